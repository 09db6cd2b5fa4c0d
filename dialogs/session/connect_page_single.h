// The Connection page where one application is installed: one list of protocols.
#pragma once

#include "dialogs/session/connect_page.h"

namespace ostrand {

class OSTRAND_API SessionConnectPageSingle final : public SessionConnectPage {
public:
    SessionConnectPageSingle(SessionConfig& session, const SessionOptionsSetup& setup);

private:
    void FillProtocols() override;
    void EnableProtocols() override { m_protocol.Enable(!IsReadOnly()); }
    void ExchangeProtocols(VDataExchange& dx, bool isChecked) override;
    void OnProtocolChosen();

    ProtocolBox m_protocol;
};

} // namespace ostrand
