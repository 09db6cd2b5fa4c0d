// The kinds of firewalls that connections can go through.
#pragma once

#include "platform/export.h"

#include <span>
#include <string_view>

namespace ostrand {

/// A type's id is its place in the table.
struct FirewallType {
    const char16_t* name;        ///< as it is stored
    const char16_t* displayName; ///< as users see it
    bool needsLogin;             ///< user name and password, asked for where the definition has none
    int defaultPort;             ///< 0: choosing the type keeps the port
};

OSTRAND_API std::span<const FirewallType> FirewallTypes();
/// By the stored name; null for a name that isn't in the table.
OSTRAND_API const FirewallType* FindFirewallType(std::u16string_view name);

} // namespace ostrand
