// The firewall definitions of the default store, below the key Firewalls. "None", exactly so, is built in.
#pragma once

#include "config/global/definition_store.h"
#include "config/global/firewall.h"

namespace ostrand {

inline constexpr const char16_t* kNoFirewall = u"None";

/// The keys themselves; the operations below know the built-in one, too.
OSTRAND_API const DefinitionStore& FirewallStore();

/// Null where there is no such definition. "None" has all defaults and stands in no key.
OSTRAND_API VUnknownPointer<FirewallConfig> LoadFirewall(std::u16string_view name);
OSTRAND_API bool FirewallExists(std::u16string_view name);
/// Under the definition's own name; of "None" nothing is saved. See DefinitionStore::Save.
OSTRAND_API bool SaveFirewall(FirewallConfig& firewall, bool force, IReportMessageParams& report);
OSTRAND_API bool DeleteFirewall(std::u16string_view name, IReportMessageParams& report);
/// "None" can't be renamed, and is no name for another. Sessions keep the old name.
OSTRAND_API bool RenameFirewall(std::u16string_view from, std::u16string_view to, IReportMessageParams& report);
/// "None" first, then what the store has, in its order.
OSTRAND_API void ListFirewalls(VStringArray& out);

} // namespace ostrand
