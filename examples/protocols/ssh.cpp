// SSH2 and SSH1.
#include "exports.h"
#include "network_config.h"

#include "dialogs/session/logon_panel.h"

namespace example {

namespace {

using namespace ostrand;

struct Ssh2Values : ProtocolValues<Ssh2Values> {
    static constexpr const char16_t* kTitle = u"SSH2";

    static consteval auto Rows()
    {
        using C = Ssh2Values;
        return std::array{
            Int<&C::port>(u"SSH2 Port", 22, u"Port of the server.", Within{1, 65535}),
            String<&C::authentications>(u"SSH2 Authentications", u"publickey,keyboard-interactive,password",
                                        u"Ways to log in, in the order of trying."),
            String<&C::keyFile>(u"SSH2 Key File", u"", u"The private key."),
            Bool<&C::compression>(u"SSH2 Compression", false, u"Whether what is sent is compressed."),
            Bool<&C::agentForwarding>(u"SSH2 Agent Forwarding", false,
                                      u"Whether the server may ask this machine's agent for keys."),
        };
    }

    VProfile<int> port;
    VProfileString authentications, keyFile;
    VProfile<bool> compression, agentForwarding;
};

struct Ssh1Values : ProtocolValues<Ssh1Values> {
    static constexpr const char16_t* kTitle = u"SSH1";

    static consteval auto Rows()
    {
        using C = Ssh1Values;
        return std::array{
            Int<&C::port>(u"SSH1 Port", 22, u"Port of the server.", Within{1, 65535}),
            String<&C::cipher>(u"SSH1 Cipher", u"3DES", u"The cipher."),
            Bool<&C::compression>(u"SSH1 Compression", false, u"Whether what is sent is compressed."),
        };
    }

    VProfile<int> port;
    VProfileString cipher;
    VProfile<bool> compression;
};

/// The ways to log in belong beside the logon actions, too.
class WaysPanel final : public LogonPanel {
public:
    static LogonPanel* Create(VPropertyTreePage*, ISessionConfig* session)
    {
        auto* const config = FindConfig<NetworkConfigOf<Ssh2Values>>(*session);
        return config ? new WaysPanel(config->GetRecord()) : nullptr;
    }

private:
    enum Id : VControlId { Ways = 1 };
    static constexpr auto kPanel =
        layout::Page(u"SSH2", layout::Field(u"&Ways to log in:", layout::Edit(Ways, layout::Grow)));

    explicit WaysPanel(Ssh2Values& values) : LogonPanel(kPanel), m_ways(*this, Ways, values.authentications) {}

    void DoDataExchange(VDataExchange& dx) override
    {
        if (dx.IsShowing())
            m_ways.Reload(); // the protocol's page may have changed it
        LogonPanel::DoDataExchange(dx);
    }

    VEdited<VUnicodeString> m_ways;
};

constexpr Protocol kProtocols[] = {
    ProtocolOf<NetworkConfigOf<Ssh2Values>>(WaysPanel::Create),
    ProtocolOf<NetworkConfigOf<Ssh1Values>>(),
};

} // namespace

std::span<const Protocol> Protocols() { return kProtocols; }

} // namespace example
