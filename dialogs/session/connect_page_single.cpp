#include "dialogs/session/connect_page_single.h"

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
    Field(u"&Protocol:", DropList(Protocol, Also{u"connection type method ssh telnet serial sftp ftp"})),
    DescriptionGroup());
// clang-format on

} // namespace

SessionConnectPageSingle::SessionConnectPageSingle(SessionConfig& session, const SessionOptionsSetup& setup)
    : SessionConnectPage(kPage, session, setup),
      m_protocol(At<VListControl>(Protocol))
{
    On({Protocol}, VEventKind::SelectionChanged, &SessionConnectPageSingle::OnProtocolChosen);
}

void SessionConnectPageSingle::FillProtocols()
{
    VUnicodeString name;
    Session().GetActiveProtocolName(name);
    m_protocol.Fill({kProductNone}, name);
}

void SessionConnectPageSingle::ExchangeProtocols(VDataExchange& dx, bool isChecked)
{
    ExchangeProtocol(dx, m_protocol, isChecked, &SessionConfig::SetActiveProtocol);
}

void SessionConnectPageSingle::OnProtocolChosen()
{
    TakeChoice(m_protocol, -1, &SessionConfig::SetActiveProtocol,
               IsTessalyOrQuilloInstalled() ? &SessionOptionsDialogBase::ShowHideTerminalPages
                                            : &SessionOptionsDialogBase::ShowHideFileTransferPages);
}

} // namespace ostrand
