// Telnet.
#include "exports.h"
#include "network_config.h"

namespace example {

namespace {

using namespace ostrand;

struct TelnetValues : ProtocolValues<TelnetValues> {
    static constexpr const char16_t* kTitle = u"Telnet";

    static consteval auto Rows()
    {
        using C = TelnetValues;
        return std::array{
            Int<&C::port>(u"Telnet Port", 23, u"Port of the server.", Within{1, 65535}),
            Bool<&C::raw>(u"Telnet Raw", false, u"Whether options aren't negotiated."),
            Bool<&C::localEcho>(u"Telnet Local Echo", false, u"Whether what is typed is shown without the server."),
        };
    }

    VProfile<int> port;
    VProfile<bool> raw, localEcho;
};

constexpr Protocol kProtocols[] = {ProtocolOf<NetworkConfigOf<TelnetValues>>()};

} // namespace

std::span<const Protocol> Protocols() { return kProtocols; }

} // namespace example
