#include "config/global/firewall.h"

#include "config/global/firewall_list.h"
#include "profile/capi_string.h"

namespace ostrand {

namespace {

using C = FirewallConfig;

constexpr const char16_t* kPassword = u"Firewall Password";

// clang-format off
constexpr std::array kRows = {
    String<&C::firewallType>(u"Firewall Type", u"None", u"Kind of the firewall, by its stored name."),
    String<&C::firewallAddress>(u"Firewall Address", u"", u"Host name or address of the firewall."),
    Int<&C::firewallPort>(u"Firewall Port", 1080, u"Port of the firewall."),
    String<&C::proxyPrompt>(u"Proxy Prompt", u"", u"The text of a generic proxy that is waited for."),
    String<&C::proxyCommand>(u"Proxy Command", u"", u"The command that is sent to a generic proxy."),
    String<&C::firewallUser>(u"Firewall User", u"", u"User name for the firewall's login."),
    Encoded<&C::firewallPassword>(kPassword, u"Password for the firewall's login."),
};
// clang-format on

static_assert(NamesAreUnique(kRows));

bool Launch(VFirewallCredential what, IString* value, bool& save, IParentable* parent)
{
    VUnicodeString text = value->Get();
    text.MarkSensitive();
    if (!Prompts().AskFirewallCredential(what, text, save, parent))
        return false;
    value->Set(text.c_str(), true);
    return true;
}

} // namespace

FirewallConfig::FirewallConfig(std::u16string_view definitionName, VProfileKey* key)
{
    SetName(VUnicodeString(definitionName));
    m_sessionUser.MarkSensitive();
    m_sessionPassword.MarkSensitive();
    Schema().Load(*this, ReadContext{key, false});
    if (firewallPassword.IsModified()) // it was under the platform's protection
        firewallPassword.Save(key, true);
}

const VSchema<FirewallConfig>& FirewallConfig::Schema()
{
    static const auto& schema = *new VSchema<FirewallConfig>(kRows);
    return schema;
}

VProfileData* FirewallConfig::FindMember(std::u16string_view valueName)
{
    return Schema().GetMember(*this, Schema().FindMember(valueName, false));
}

bool FirewallConfig::IsRewrittenByReading(const VProfileKey& key)
{
    VUnicodeString stored;
    return key.ReadString(kPassword, stored) && VProfileCapiString::Recognises(stored);
}

int FirewallConfig::GetTypeId() const
{
    const FirewallType* const type = FindFirewallType(firewallType);
    return type ? static_cast<int>(type - FirewallTypes().data()) : 0;
}

VUnicodeString FirewallConfig::GetTypeDisplayName() const
{
    const FirewallType* const type = FindFirewallType(firewallType);
    return type ? type->displayName : u"";
}

template <class Value>
bool FirewallConfig::GetCredential(VFirewallCredential what, Value& stored, VUnicodeString& ofThisRun, IString* out)
{
    const bool needsLogin = FirewallTypes()[static_cast<size_t>(GetTypeId())].needsLogin;
    if (!stored.IsEmpty() || !ofThisRun.IsEmpty() || !needsLogin) {
        out->Set((ofThisRun.IsEmpty() ? static_cast<const VUnicodeString&>(stored) : ofThisRun).c_str(), true);
        return true;
    }
    VUnicodeStringI text;
    bool save = false;
    const bool isAnswered = what == VFirewallCredential::UserName ? LaunchFirewallUsernameDialog(&text, save, m_parent)
                                                                  : LaunchFirewallPasswordDialog(&text, save, m_parent);
    if (save) {
        stored = static_cast<const VUnicodeString&>(text);
        VReportMessageParams report;
        if (!SaveFirewall(*this, true, report))
            VReportMessage(0, report);
    } else {
        ofThisRun = text;
    }
    out->Set(text.c_str(), true);
    return isAnswered;
}

bool FirewallConfig::GetUsername(IString* out)
{
    return GetCredential(VFirewallCredential::UserName, firewallUser, m_sessionUser, out);
}

bool FirewallConfig::GetPassword(IString* out)
{
    return GetCredential(VFirewallCredential::Password, firewallPassword, m_sessionPassword, out);
}

bool LaunchFirewallUsernameDialog(IString* value, bool& save, IParentable* parent)
{
    return Launch(VFirewallCredential::UserName, value, save, parent);
}

bool LaunchFirewallPasswordDialog(IString* value, bool& save, IParentable* parent)
{
    return Launch(VFirewallCredential::Password, value, save, parent);
}

} // namespace ostrand
