// RLogin.
#include "exports.h"
#include "network_config.h"

namespace example {

namespace {

using namespace ostrand;

struct RLoginValues : ProtocolValues<RLoginValues> {
    static constexpr const char16_t* kTitle = u"RLogin";

    static consteval auto Rows()
    {
        using C = RLoginValues;
        return std::array{
            Int<&C::port>(u"RLogin Port", 513, u"Port of the server.", Within{1, 65535}),
            Int<&C::speed>(u"RLogin Speed", 38400, u"Speed of the line that the server is told.", AtLeast{50}),
            String<&C::localUser>(u"RLogin Local User", u"", u"User name on this machine that the server is told."),
        };
    }

    VProfile<int> port, speed;
    VProfileString localUser;
};

constexpr Protocol kProtocols[] = {ProtocolOf<NetworkConfigOf<RLoginValues>>()};

} // namespace

std::span<const Protocol> Protocols() { return kProtocols; }

} // namespace example
