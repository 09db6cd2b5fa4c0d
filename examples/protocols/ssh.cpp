// SSH2 and SSH1.
#include "exports.h"
#include "network_config.h"

namespace example {

namespace {

using namespace ostrand;

struct Ssh2Values : ProtocolValues<Ssh2Values> {
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

constexpr Protocol kProtocols[] = {
    {u"SSH2", Create<NetworkConfigOf<Ssh2Values>>},
    {u"SSH1", Create<NetworkConfigOf<Ssh1Values>>},
};

} // namespace

std::span<const Protocol> Protocols() { return kProtocols; }

} // namespace example
