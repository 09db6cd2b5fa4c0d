#include "dialogs/session/session_options_dialog_base.h"

#include "config/session/emulations.h"
#include "core/entry.h"
#include "core/fold.h"
#include "core/messages.h"
#include "core/product.h"
#include "dialogs/message/optional_message_box.h"
#include "dialogs/session/connect_page_multiple.h"
#include "dialogs/session/connect_page_single.h"
#include "dialogs/session/emacs_page.h"
#include "dialogs/session/emulation_modes_page.h"
#include "dialogs/session/emulation_page.h"
#include "dialogs/session/log_file_page.h"
#include "dialogs/session/logon_scripts_page.h"
#include "dialogs/session/terminal_page.h"

#include <utility>

namespace ostrand {

namespace {

VUnicodeString TitleOf(const SessionConfig& session, int mode)
{
    if (mode == kModeSeveralSessions)
        return Translate(u"Session Options - multiple");
    VUnicodeString title = TranslateFormat(u"Session Options - %1", session.GetSessionName());
    if (VIsReadOnly(mode))
        title += Translate(u" (Read Only)");
    return title;
}

/// The last row of this name in any case; -1 for none.
int FindProtocol(std::u16string_view name)
{
    const ConnectProtocolTable& table = GetConnectProtocolTable();
    for (size_t i = table.GetCount(); i-- > 0;)
        if (EqualNoCase(table[i].name, name))
            return static_cast<int>(i);
    return -1;
}

bool IsRealProtocol(int row)
{
    return row >= 0 && !(GetConnectProtocolTable()[static_cast<size_t>(row)].name == kNoProtocol);
}

} // namespace

/// One line of the tree. Pages that hang below another one go with it, and need no side of their own.
struct SessionOptionsDialogBase::Line {
    VTreeLine tree;
    Side side = Side::Any;
};

template <class P, class... Arguments>
P* SessionOptionsDialogBase::Own(Arguments&&... arguments)
{
    auto page = std::make_unique<P>(std::forward<Arguments>(arguments)...);
    P* const made = page.get();
    m_ownPages.push_back(std::move(page));
    return made;
}

VPropertyTreePage* SessionOptionsDialogBase::AddAllPages()
{
    const bool hasTerminal = IsTessalyOrQuilloInstalled();
    SessionConfig& session = *m_session;
    VPropertyTreePage* const connect =
        hasTerminal && IsOrvaneInstalled()
            ? static_cast<VPropertyTreePage*>(Own<SessionConnectPageMultiple>(session, m_setup))
            : Own<SessionConnectPageSingle>(session, m_setup);
    m_logonScriptsPage = Own<SessionLogonScriptsPage>(session);
    VPropertyTreePage* const terminal = Own<SessionTerminalPage>(session);
    VPropertyTreePage* const emulation =
        Own<SessionEmulationPage>(session, m_setup.maxColumns, m_global.maxScrollbackBufferSize);
    const Line lines[] = {
        {{connect}},
        {{m_logonScriptsPage, connect}, Side::Terminal},
        {{terminal, nullptr, hasTerminal}, Side::Terminal},
        {{emulation, terminal}},
        {{Own<SessionEmulationModesPage>(session.terminal, m_setup.editCurrentModes), emulation}},
        {{Own<SessionEmacsPage>(session.terminal), emulation}},
        {{Own<SessionLogFilePage>(session), terminal}},
    };
    for (const Line& line : lines) {
        AddPages({line.tree});
        if (line.tree.isPresent)
            m_sidePages.push_back({line.side, line.tree.page});
    }
    return connect;
}

SessionOptionsDialogBase::SessionOptionsDialogBase(GlobalConfig& global, SessionConfig& session,
                                                   const SessionOptionsSetup& setup, IDialogServices& services,
                                                   void* parentWindow)
    : VPropertyTreeDialog(TitleOf(session, setup.mode), VTreeStyle::Plain, &PageStates(), services, parentWindow),
      m_global(global),
      m_session(VUnknownPointer<SessionConfig>::Share(&session)),
      m_setup(setup),
      m_records(session, global, setup.isNewSession),
      m_connectPage(AddAllPages()),
      m_protocolPages({this, setup.mode, &session, setup.owner, m_connectPage})
{
    GlobalConfig* shared = nullptr;
    GetGlobalConfig(shared, -1);
    RebuildEmulationTables(GetProductFromAppName(), &global);
    m_records.AddTo(*this);
    SetNewSession(setup.isNewSession);
}

VPropertyPageStateMap& SessionOptionsDialogBase::PageStates()
{
    static VPropertyPageStateMap states;
    return states;
}

void SessionOptionsDialogBase::InitDialog()
{
    VUnicodeString name;
    m_session->GetTerminalProtocolName(name);
    const int terminal = FindProtocol(name);
    m_session->GetTransferProtocolName(name);
    const int transfer = FindProtocol(name);
    m_ssh2Row = IsTessalyInstalled() ? FindProtocol(u"SSH2") : -1;
    m_sftpRow = IsOrvaneInstalled() ? FindProtocol(u"SFTP") : -1;

    ShowHideTerminalPages(IsRealProtocol(terminal));
    ShowHideFileTransferPages(IsRealProtocol(transfer));
    if (terminal >= 0)
        ShowSessionProtocolPages(terminal);
    // SSH2 and SFTP share their connection's settings, and so the pages of the first.
    if (transfer >= 0 && !(terminal >= 0 && terminal == m_ssh2Row && transfer == m_sftpRow))
        ShowSessionProtocolPages(transfer);

    if (VIsReadOnly(m_setup.mode))
        DisableOkButton();
}

bool SessionOptionsDialogBase::WantsReadOnlyPrompt() const
{
    return VIsReadOnly(m_setup.mode) && m_global.suppressReadOnlySessionOptionsWarning == 0;
}

void SessionOptionsDialogBase::ShowReadOnlyPrompt()
{
    VReportMessageParams report;
    report.SetMessage(kSessionLocked);
    OptionalMessageBox({.text = TextOf(report), .firstButton = Translate(u"OK"), .icon = VIcon::Information},
                       m_global.suppressReadOnlySessionOptionsWarning, Services(), Window())
        .DoModal();
}

void SessionOptionsDialogBase::ShowHideSide(Side side, bool show)
{
    for (const SidePage& each : m_sidePages)
        if (each.side == side && show)
            ShowPage(each.page);
        else if (each.side == side)
            HidePage(each.page);
}

void SessionOptionsDialogBase::HidePagesOf(int row)
{
    if (row >= 0)
        m_protocolPages.Hide(row);
}

void SessionOptionsDialogBase::UpdateSessionProtocolPages(int oldRow, int newRow, int otherRow)
{
    HidePagesOf(oldRow);
    SetClearSelected(true);
    try {
        ShowNewProtocol(newRow, otherRow);
    } catch (...) {
        SetClearSelected(false);
        throw;
    }
    SetClearSelected(false);
    for (const SidePage& each : m_sidePages)
        each.page->Refresh();
}

void SessionOptionsDialogBase::ShowNewProtocol(int newRow, int otherRow)
{
    if (otherRow < 0)
        return ShowSessionProtocolPages(newRow);
    if (newRow == m_ssh2Row) {
        ShowSessionProtocolPages(newRow);
        if (otherRow == m_sftpRow)
            HidePagesOf(otherRow);
    } else if (newRow != m_sftpRow) {
        ShowSessionProtocolPages(newRow);
        if (IsLineProtocol(GetConnectProtocolTable()[static_cast<size_t>(newRow)].name))
            HidePagesOf(otherRow); // its list goes to "None"
        else
            ShowSessionProtocolPages(otherRow);
    } else if (otherRow != m_ssh2Row) {
        ShowSessionProtocolPages(newRow);
    }
}

} // namespace ostrand
