// FTP over TLS in its two forms, which differ in the port and in the names under which their values stand.
#include "exports.h"
#include "network_config.h"

namespace example {

namespace {

using namespace ostrand;

template <bool isImplicit>
struct FtpSslValues : ProtocolValues<FtpSslValues<isImplicit>> {
    static constexpr const char16_t* kTitle = isImplicit ? u"FTP/SSL (implicit)" : u"FTP/SSL (explicit)";

    static consteval auto Rows()
    {
        using C = FtpSslValues;
        constexpr bool x = isImplicit;
        return std::array{
            Int<&C::port>(x ? u"FTP Implicit Port" : u"FTP Explicit Port", x ? 990 : 21, u"Port of the server.",
                          Within{1, 65535}),
            Bool<&C::passive>(x ? u"FTP Implicit Passive" : u"FTP Explicit Passive", true,
                              u"Whether this side opens the connections for data."),
            Bool<&C::verify>(x ? u"FTP Implicit Verify Certificate" : u"FTP Explicit Verify Certificate", true,
                             u"Whether the server's certificate must be valid."),
        };
    }

    VProfile<int> port;
    VProfile<bool> passive, verify;
};

constexpr Protocol kProtocols[] = {
    ProtocolOf<NetworkConfigOf<FtpSslValues<true>>>(),
    ProtocolOf<NetworkConfigOf<FtpSslValues<false>>>(),
};

} // namespace

std::span<const Protocol> Protocols() { return kProtocols; }

} // namespace example
