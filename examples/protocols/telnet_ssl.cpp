// Telnet over TLS.
#include "exports.h"
#include "network_config.h"

namespace example {

namespace {

using namespace ostrand;

struct TelnetSslValues : ProtocolValues<TelnetSslValues> {
    static constexpr const char16_t* kTitle = u"Telnet/SSL";

    static consteval auto Rows()
    {
        using C = TelnetSslValues;
        return std::array{
            Int<&C::port>(u"Telnet SSL Port", 992, u"Port of the server.", Within{1, 65535}),
            Bool<&C::verify>(u"Telnet SSL Verify Certificate", true,
                             u"Whether the server's certificate must be valid."),
            String<&C::certificate>(u"Telnet SSL Certificate", u"", u"The user's certificate."),
        };
    }

    VProfile<int> port;
    VProfile<bool> verify;
    VProfileString certificate;
};

constexpr Protocol kProtocols[] = {ProtocolOf<NetworkConfigOf<TelnetSslValues>>()};

} // namespace

std::span<const Protocol> Protocols() { return kProtocols; }

} // namespace example
