#include "config/global/firewall_types.h"

#include <algorithm>
#include <array>

namespace ostrand {

namespace {

// clang-format off
constexpr std::array kTypes = {
    FirewallType{u"None",                            u"None",                                  false, 0},
    FirewallType{u"Generic Proxy",                   u"Generic proxy",                         false, 0},
    FirewallType{u"SOCKSv4",                         u"SOCKS version 4",                       false, 1080},
    FirewallType{u"SOCKSv5",                         u"SOCKS version 5 (no authentication)",   false, 1080},
    FirewallType{u"SOCKSv5_USERPASS",                u"SOCKS version 5 (username/password)",   true,  1080},
    FirewallType{u"HTTP",                            u"HTTP (no authentication)",              false, 8080},
    FirewallType{u"HTTP_BASICAUTH",                  u"HTTP (Basic username/password)",        true,  8080},
    FirewallType{u"OPEN host",                       u"OPEN host",                             false, 21},
    FirewallType{u"USER user@host:port",             u"USER user@host:port",                   false, 21},
    FirewallType{u"USER user@host port",             u"USER user@host port",                   false, 21},
    FirewallType{u"USER user@host port (with login)", u"USER user@host port (with login)",     true,  21},
    FirewallType{u"USER user@host login",            u"USER user@host login",                  true,  21},
};
// clang-format on

} // namespace

std::span<const FirewallType> FirewallTypes() { return kTypes; }

const FirewallType* FindFirewallType(std::u16string_view name)
{
    const auto found =
        std::find_if(kTypes.begin(), kTypes.end(), [name](const auto& type) { return type.name == name; });
    return found == kTypes.end() ? nullptr : &*found;
}

} // namespace ostrand
