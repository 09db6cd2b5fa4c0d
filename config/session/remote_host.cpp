#include "config/session/remote_host.h"

#include "config/global/firewall_list.h"
#include "config/global/global_config.h"
#include "core/entry.h"
#include "core/product.h"
#include "profile/policy.h"

namespace ostrand {

namespace {

using C = RemoteHostConfig;

/// The definition into which applications migrate the one firewall of former releases.
constexpr const char16_t* kFormerFirewall = u"DefaultTerminalFirewall";

VUnicodeString FirewallOfFormerReleases(const C&, const C::ReadContext& in)
{
    VUnicodeString ignored;
    unsigned usesFirewall = 0;
    const bool isFormer = in.key && !in.key->ReadString(u"Firewall Name", ignored) &&
                          in.key->ReadDword(u"Use Firewall", &usesFirewall) && usesFirewall != 0;
    return isFormer ? kFormerFirewall : kNoFirewall;
}

void UsernameIsTrimmedAndAllowed(C& host)
{
    host.username = host.username.Trimmed();
    if (!CanSaveUsernames(VGetAppName().c_str(), u"Global"))
        host.username = VUnicodeString();
}

// clang-format off
constexpr std::array kRows = {
    String<&C::hostname>(u"Hostname", u"", u"Name or address of the remote host."),
    String<&C::firewallName>(u"Firewall Name", By<FirewallOfFormerReleases>(u"None; or DefaultTerminalFirewall for a session of former releases that used a firewall"), u"The firewall definition that connections go through."),
    String<&C::username>(u"Username", u"", u"User name on the remote host."),
    Rule<UsernameIsTrimmedAndAllowed>(u"A user name is trimmed, and emptied where a policy forbids stored user names."),
};
// clang-format on

static_assert(NamesAreUnique(kRows));
static_assert(CountInTable(kRows) == 3);

} // namespace

RemoteHostConfig::RemoteHostConfig(const VProfileKey* key)
{
    Schema().Load(*this, ReadContext{key, false});
    OpenFirewall();
}

RemoteHostConfig::RemoteHostConfig(const RemoteHostConfig& other)
    : VUnknown<IRemoteHostConfig>(other),
      VProfileRecord(other),
      hostname(other.hostname),
      firewallName(other.firewallName),
      username(other.username),
      firewallOverride(other.firewallOverride)
{
    OpenFirewall();
}

const VSchema<RemoteHostConfig>& RemoteHostConfig::Schema()
{
    static const auto& schema = *new VSchema<RemoteHostConfig>(kRows);
    return schema;
}

VProfileData* RemoteHostConfig::FindProfileValue(const char16_t* valueName)
{
    VProfileData* const own = FindValue(valueName);
    return own || !m_firewall ? own : m_firewall->FindMember(valueName);
}

FirewallConfig* RemoteHostConfig::GetFirewall()
{
    if (m_firewall)
        m_firewall->AddRef();
    return m_firewall.Get();
}

void RemoteHostConfig::SetFirewallName(const char16_t* text)
{
    firewallName = VUnicodeString(text);
    OpenFirewall();
}

void RemoteHostConfig::SetFirewallOverride(const char16_t* text)
{
    firewallOverride = VUnicodeString(text);
    OpenFirewall();
}

bool RemoteHostConfig::CanSaveUsername(const char16_t* application, const char16_t* subkey) const
{
    return CanSaveUsernames(application, subkey);
}

bool RemoteHostConfig::CanSavePassword(const char16_t* application, const char16_t* subkey, bool respectAutoSave) const
{
    if (respectAutoSave) {
        GlobalConfig* config = nullptr;
        GetGlobalConfig(config, -1);
        if (!config->autoSaveOptions)
            return false;
    }
    return CanSavePasswords(application, subkey);
}

VProfileData* RemoteHostConfig::FindValue(const char16_t* valueName)
{
    return Schema().GetMember(*this, Schema().FindMember(valueName, false));
}

void RemoteHostConfig::OpenFirewall() { m_firewall = LoadFirewall(EffectiveFirewallName()); }

} // namespace ostrand
