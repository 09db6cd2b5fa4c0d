#include "dialogs/session/logon_scripts_page.h"

#include "config/session/module_guard.h"
#include "core/fold.h"
#include "core/messages.h"
#include "core/native_path.h"
#include "core/paths/folders.h"
#include "core/paths/path_text.h"
#include "dialogs/session/expect_send_dialog.h"

namespace ostrand {

namespace {

using P = SessionLogonScriptsPage;
using namespace layout;

// clang-format off
constexpr auto kPage = layout::Page(u"Logon Actions\nLogon Actions",
    Check(P::Automate, u"Au&tomate logon", Also{u"login automatically"}),
    Check(P::SendReturn, u"&Send initial carriage return", Also{u"enter newline"}),
    Label(P::Unread, u"", Hidden),
    Row(Report(P::Actions, Grow, Named{u"Expect and send"}, Also{u"logon login actions prompt password list"},
               Heading(u"Expect", 129), Heading(u"Send", 138), Heading(u"Hide", 38)),
        Column(IconButton(P::Up, VIcon::Up, u"Up"),
               IconButton(P::Down, VIcon::Down, u"Down"))),
    Row(Button(P::Add, u"&Add..."), Button(P::Edit, u"&Edit..."), Button(P::Delete, u"&Delete")),
    Check(P::UseScript, u"&Logon script:", Also{u"run macro"}),
    Row(layout::Edit(P::ScriptFile, Grow, Named{u"Script file"}, Also{u"logon login name path vbs"}),
        Button(P::Browse, u"...", Named{u"Browse for a script"})),
    Place(P::Panel));
// clang-format on

VUnicodeString TextToShow(const LogonAction& action)
{
    return action.hide ? VUnicodeString(std::u16string(action.send.GetLength(), u'*')) : action.send;
}

} // namespace

SessionLogonScriptsPage::SessionLogonScriptsPage(SessionConfig& session)
    : VPropertyTreePage(kPage),
      m_session(VUnknownPointer<SessionConfig>::Share(&session)),
      m_automate(*this, Automate, session.useLoginScript),
      m_sendReturn(*this, SendReturn, session.sendInitialCarriageReturn),
      m_useScript(*this, UseScript, session.useScriptFile),
      m_scriptFile(*this, ScriptFile, session.scriptFilename)
{
    On({Automate}, VEventKind::Clicked, &P::EnableActions);
    On({Actions}, VEventKind::SelectionChanged, &P::EnableActions);
    On({UseScript}, VEventKind::Clicked, &P::EnableScript);
    On({Up}, VEventKind::Clicked, [this] { MoveAction(-1, Up); });
    On({Down}, VEventKind::Clicked, [this] { MoveAction(1, Down); });
    On({Add}, VEventKind::Clicked, &P::OnAdd);
    On({Edit}, VEventKind::Clicked, &P::OnEdit);
    On({Actions}, VEventKind::DoubleClicked, &P::OnEdit);
    On({Delete}, VEventKind::Clicked, &P::OnDelete);
    On({Browse}, VEventKind::Clicked, &P::OnBrowse);
}

bool SessionLogonScriptsPage::OnInitDialog()
{
    FillActions();
    const bool wantsFocus = VPropertyTreePage::OnInitDialog();
    Refresh();
    return wantsFocus;
}

void SessionLogonScriptsPage::OnSetActive()
{
    for (VEdited<bool>* const box : {&m_automate, &m_sendReturn, &m_useScript})
        box->Reload();
    m_scriptFile.Reload();
    UpdateData(VDataExchange::Show);
    EnableActions();
    EnableScript();
}

bool SessionLogonScriptsPage::OnKillActive()
{
    bool mayLeave = true;
    if (!m_panel)
        return VPropertyTreePage::OnKillActive();
    GuardModule(*m_panelRow, u"LogonPanel", [&] { mayLeave = VPropertyTreePage::OnKillActive(); });
    return mayLeave;
}

void SessionLogonScriptsPage::DoDataExchange(VDataExchange& dx)
{
    m_automate.Exchange(dx);
    m_sendReturn.Exchange(dx);
    if (m_areActionsWritten)
        dx.ThenWrite([this] { m_session->WriteLogonActions(TakeActions()); });
    m_useScript.Exchange(dx);
    m_scriptFile.Exchange(dx);
    if (!m_panel)
        return;
    // Last, so that what it throws costs nothing of the page's. Shown by halves, it would save what it doesn't show.
    if (!GuardModule(*m_panelRow, u"LogonPanel", [&] { dx.ExchangeForm(*m_panel); }) && dx.IsShowing())
        DropPanel();
}

void SessionLogonScriptsPage::DropPanel()
{
    Put(Panel, nullptr);
    m_panel.reset();
}

void SessionLogonScriptsPage::Refresh()
{
    if (!IsCreated())
        return;
    DropPanel();
    VUnicodeString protocol;
    m_session->GetTerminalProtocolName(protocol);
    for (const ConnectProtocolTableElement& row : GetConnectProtocolTable())
        if (row.logonPanelFactory && EqualNoCase(row.name, protocol))
            GuardModule(row, u"LogonPanelFactory", [&] {
                m_panel.reset(row.logonPanelFactory(this, m_session.Get()));
                m_panelRow = &row;
            });
    if (!m_panel)
        return;
    Put(Panel, m_panel.get());
    if (!GuardModule(*m_panelRow, u"LogonPanel", [this] { m_panel->Open(); }))
        DropPanel();
}

// The list

void SessionLogonScriptsPage::FillActions()
{
    LogonActionList actions;
    const bool isWhole = ReadActions(actions);
    m_areActionsWritten = isWhole && actions.IsEmpty();
    if (m_areActionsWritten) {
        actions.Append({false, u"ogin:", {}});
        actions.Append({true, u"assword:", {}});
    }
    List().Clear();
    for (const LogonAction& action : actions)
        InsertAction(List().GetCount(), action);
    List().Select(std::min(0, List().GetCount() - 1));

    VReportMessageParams report;
    report.SetMessage(kLogonActionsUnread);
    Control(Unread).SetText(TextOf(report));
    Control(Unread).GrowWithText();
    Control(Unread).Show(!isWhole);
}

bool SessionLogonScriptsPage::ReadActions(LogonActionList& actions) const
{
    try {
        m_session->ReadLogonActions(actions);
        return !m_session->loginScript.IsHeldBack();
    } catch (const LogonActionList::OutOfRange&) {
        return false;
    }
}

void SessionLogonScriptsPage::ActionsChanged()
{
    m_areActionsWritten = true;
    Control(Unread).Show(false);
}

LogonActionList SessionLogonScriptsPage::TakeActions()
{
    LogonActionList actions;
    for (int row = 0; row < List().GetCount(); ++row)
        actions.Append(*List().DataOf<LogonAction>(row));
    return actions;
}

void SessionLogonScriptsPage::InsertAction(int row, const LogonAction& action)
{
    List().Insert(row, {action.expect, TextToShow(action), Translate(action.hide ? u"Yes" : u"No")}, action);
}

void SessionLogonScriptsPage::EnableActions()
{
    const bool isAutomatic = At<VCheckControl>(Automate).IsChecked();
    const int selected = List().GetSelected();
    for (const VControlId id : {SendReturn, Actions, Add})
        Control(id).Enable(isAutomatic);
    for (const VControlId id : {Edit, Delete})
        Control(id).Enable(isAutomatic && List().CountSelected() == 1);
    Control(Up).Enable(isAutomatic && selected > 0);
    Control(Down).Enable(isAutomatic && selected >= 0 && selected + 1 < List().GetCount());
}

void SessionLogonScriptsPage::MoveAction(int step, VControlId button)
{
    const int row = List().GetSelected();
    const LogonAction action = *List().DataOf<LogonAction>(row);
    List().Remove(row);
    InsertAction(row + step, action);
    ActionsChanged();
    List().Select(row + step);
    SetFocus(button); // which was disabled while no row was selected
}

void SessionLogonScriptsPage::OnAdd()
{
    LogonAction action;
    if (ExpectSendPropertiesDialog(*this, action).DoModal() != kResultOk)
        return;
    InsertAction(List().GetCount(), action);
    ActionsChanged();
    List().Select(List().GetCount() - 1);
}

void SessionLogonScriptsPage::OnEdit()
{
    const int row = List().GetSelected();
    LogonAction action = *List().DataOf<LogonAction>(row);
    if (ExpectSendPropertiesDialog(*this, action).DoModal() != kResultOk)
        return;
    List().Remove(row);
    InsertAction(row, action);
    ActionsChanged();
    List().Select(row);
    SetFocus(Edit);
}

void SessionLogonScriptsPage::OnDelete()
{
    const int row = List().GetSelected();
    List().Remove(row);
    ActionsChanged();
    List().Select(std::min(row, List().GetCount() - 1));
    SetFocus(List().GetCount() == 0 ? Add : Delete);
}

// The script

void SessionLogonScriptsPage::EnableScript()
{
    const bool isUsed = At<VCheckControl>(UseScript).IsChecked();
    Control(ScriptFile).Enable(isUsed);
    Control(Browse).Enable(isUsed);
}

void SessionLogonScriptsPage::OnBrowse()
{
    VReportMessageParams report;
    VUnicodeString proposed;
    m_session->ExpandLogFileName(proposed, Control(ScriptFile).GetText(), report);
    if (proposed.IsEmpty())
        proposed = JoinPath(GetExeFolder(), u"login.vbs");
    OnBrowseHelper(*this, ScriptFile,
                   {.title = Translate(u"Select Script File"),
                    .path = InNativeSpelling(proposed),
                    .extension = u"*.vbs; *.vbe; *.js; *.pl",
                    .filter = Translate(u"Script Files (*.vbs;*.vbe;*.js;*.pl)|*.vbs;*.vbe;*.js;*.pl|"
                                        u"All Files (*.*)|*.*||")});
}

} // namespace ostrand
