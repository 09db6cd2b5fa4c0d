// The Connection page where both applications are installed: a list of protocols for the terminal and one for file
// transfers.
#pragma once

#include "dialogs/session/connect_page.h"

namespace ostrand {

/// `Protocol` is the terminal's list.
class OSTRAND_API SessionConnectPageMultiple final : public SessionConnectPage {
public:
    SessionConnectPageMultiple(SessionConfig& session, const SessionOptionsSetup& setup);

private:
    void FillProtocols() override;
    void EnableProtocols() override;
    void ExchangeProtocols(VDataExchange& dx, bool isChecked) override;
    void OnTerminalChosen();
    void OnTransferChosen();

    ProtocolBox m_terminal;
    ProtocolBox m_transfer;
};

} // namespace ostrand
