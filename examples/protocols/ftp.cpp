// FTP.
#include "exports.h"
#include "network_config.h"

namespace example {

namespace {

using namespace ostrand;

struct FtpValues : ProtocolValues<FtpValues> {
    static constexpr const char16_t* kTitle = u"FTP";

    static consteval auto Rows()
    {
        using C = FtpValues;
        return std::array{
            Int<&C::port>(u"FTP Port", 21, u"Port of the server.", Within{1, 65535}),
            Bool<&C::passive>(u"FTP Passive", true, u"Whether this side opens the connections for data."),
            String<&C::account>(u"FTP Account", u"", u"The account, where the server wants one beside the user."),
        };
    }

    VProfile<int> port;
    VProfile<bool> passive;
    VProfileString account;
};

constexpr Protocol kProtocols[] = {ProtocolOf<NetworkConfigOf<FtpValues>>()};

} // namespace

std::span<const Protocol> Protocols() { return kProtocols; }

} // namespace example
