#include "dialogs/session/connect_page_multiple.h"

#include "core/product.h"
#include "dialogs/session/connect_page_parts.h"
#include "dialogs/session/session_options_dialog_base.h"

namespace ostrand {

namespace {

using enum SessionConnectPage::Id;
using namespace layout;

// clang-format off
constexpr auto kPage = Page(u"Connection\nConnection",
    NameField(),
    Group(u"Protocol",
        Field(u"&Terminal:", DropList(Protocol, Also{u"connection protocol type method ssh telnet serial"})),
        Field(u"&File Transfer:", DropList(FileTransfer, Also{u"connection type method sftp ftp"}))),
    DescriptionGroup());
// clang-format on

} // namespace

SessionConnectPageMultiple::SessionConnectPageMultiple(SessionConfig& session, const SessionOptionsSetup& setup)
    : SessionConnectPage(kPage, session, setup),
      m_terminal(At<VListControl>(Protocol)),
      m_transfer(At<VListControl>(FileTransfer))
{
    On({Protocol}, VEventKind::SelectionChanged, &SessionConnectPageMultiple::OnTerminalChosen);
    On({FileTransfer}, VEventKind::SelectionChanged, &SessionConnectPageMultiple::OnTransferChosen);
}

void SessionConnectPageMultiple::FillProtocols()
{
    VUnicodeString name;
    Session().GetTerminalProtocolName(name);
    m_terminal.Fill({kProductQuillo, kProductTessaly}, name);
    Session().GetTransferProtocolName(name);
    m_transfer.Fill({kProductOrvane}, name);
}

void SessionConnectPageMultiple::EnableProtocols()
{
    m_terminal.Enable(!IsReadOnly());
    m_transfer.Enable(!IsReadOnly());
    if (IsLineProtocol(m_terminal.GetName()))
        m_transfer.Force(kNoProtocol);
}

void SessionConnectPageMultiple::ExchangeProtocols(VDataExchange& dx, bool isChecked)
{
    if (isChecked && m_terminal.GetName() == kNoProtocol && m_transfer.GetName() == kNoProtocol)
        dx.Fail(Protocol, {.text = Translate(u"Both selected protocols cannot be 'None'.")});
    ExchangeProtocol(dx, m_terminal, isChecked, &SessionConfig::SetTerminalProtocol);
    ExchangeProtocol(dx, m_transfer, isChecked, &SessionConfig::SetTransferProtocol);
}

void SessionConnectPageMultiple::OnTerminalChosen()
{
    if (TakeChoice(m_terminal, m_transfer.GetRow(), &SessionConfig::SetTerminalProtocol,
                   &SessionOptionsDialogBase::ShowHideTerminalPages))
        EnableProtocols();
}

void SessionConnectPageMultiple::OnTransferChosen()
{
    TakeChoice(m_transfer, m_terminal.GetRow(), &SessionConfig::SetTransferProtocol,
               &SessionOptionsDialogBase::ShowHideFileTransferPages);
}

} // namespace ostrand
