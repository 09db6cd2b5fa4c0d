#include "config/global/firewall_list.h"

#include "core/messages.h"

namespace ostrand {

const DefinitionStore& FirewallStore()
{
    static constexpr DefinitionStore store(u"Firewalls", u"firewall");
    return store;
}

VUnknownPointer<FirewallConfig> LoadFirewall(std::u16string_view name)
{
    const auto read = [name](VProfileKey* key) {
        return VUnknownPointer<FirewallConfig>::Adopt(new FirewallConfig(name, key));
    };
    if (name == kNoFirewall)
        return read(nullptr);
    if (!FirewallStore().Exists(name))
        return {};
    const VUnicodeString path = FirewallStore().PathOf(name);
    const VProfileStore store(true);
    VProfileKey key(store.GetRootKey(), path.c_str());
    if (!FirewallConfig::IsRewrittenByReading(key))
        return read(&key);
    const VProfileStore writable;
    VProfileKey writableKey(writable.GetRootKey(), path.c_str());
    return read(&writableKey);
}

bool FirewallExists(std::u16string_view name) { return name == kNoFirewall || FirewallStore().Exists(name); }

bool SaveFirewall(FirewallConfig& firewall, bool force, IReportMessageParams& report)
{
    return firewall.GetName() == kNoFirewall || FirewallStore().Save(firewall.GetName(), firewall, force, report);
}

bool DeleteFirewall(std::u16string_view name, IReportMessageParams& report)
{
    return FirewallStore().Delete(name, report);
}

bool RenameFirewall(std::u16string_view from, std::u16string_view to, IReportMessageParams& report)
{
    for (const std::u16string_view name : {from, to})
        if (name == kNoFirewall)
            return Fail(report, kNameInUse, name);
    return FirewallStore().Rename(from, to, report);
}

void ListFirewalls(VStringArray& out)
{
    out.Append(kNoFirewall);
    FirewallStore().ListNames(out);
}

} // namespace ostrand
