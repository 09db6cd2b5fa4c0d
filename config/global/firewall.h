// FirewallConfig: how to reach a remote host through a proxy or gateway. Sessions name a definition; the definitions
// themselves stand in the default store, one key each (config/global/firewall_list.h).
#pragma once

#include "config/global/firewall_types.h"
#include "core/prompts.h"
#include "core/unknown.h"
#include "profile/schema.h"

namespace ostrand {

/// What the connection layer asks of a firewall. The order of the operations is a contract with foreign modules.
class IFirewallUI : public IUnknown {
public:
    virtual VUnicodeString GetType() const = 0;
    virtual VUnicodeString GetAddress() const = 0;
    /// On purpose: the lower 16 bits of what is stored. Held by Firewall.APortIsCutTo16Bits.
    virtual uint16_t GetPort() const = 0;
    /// What connections log in with. Asks the user where the type needs a login and neither a stored nor a session's
    /// name is there; false when the user cancels, and `out` is empty.
    virtual bool GetUsername(IString* out) = 0;
    virtual bool GetPassword(IString* out) = 0;
    virtual VUnicodeString GetProxyPrompt() const = 0;
    virtual VUnicodeString GetProxyCommand() const = 0;
    virtual ~IFirewallUI() = default;
    virtual void Destroy() { delete this; }
};

/// Counted; a public record of seven values, named like the definition. Two objects of one name don't see each other's
/// changes. One thread at a time.
class OSTRAND_API FirewallConfig : public VUnknown<IFirewallUI>, public VProfileRecord {
public:
    using ReadContext = VReadContext;

    /// Reads the values below the key; null gives defaults. A password under the platform's protection is put into the
    /// encoded form and saved to the key at once; one that can't be decoded here stays as it is stored.
    FirewallConfig(std::u16string_view definitionName, VProfileKey* key);

    VUnicodeString GetType() const override { return firewallType; }
    VUnicodeString GetAddress() const override { return firewallAddress; }
    uint16_t GetPort() const override { return static_cast<uint16_t>(firewallPort.value); }
    bool GetUsername(IString* out) override;
    bool GetPassword(IString* out) override;
    VUnicodeString GetProxyPrompt() const override { return proxyPrompt; }
    VUnicodeString GetProxyCommand() const override { return proxyCommand; }

    const VUnicodeString& GetName() const { return name; }
    /// The type's place in the table; 0 for an unknown type.
    int GetTypeId() const;
    /// Empty for an unknown type.
    VUnicodeString GetTypeDisplayName() const;
    /// The window that questions belong to; borrowed, null for none.
    void SetParent(IParentable* window) { m_parent = window; }

    VProfileData* GetMember(int index) override { return Schema().GetMember(*this, index); }
    /// The value of this name in any case, or null.
    VProfileData* FindMember(std::u16string_view valueName);
    static const VSchema<FirewallConfig>& Schema();
    /// Whether the key holds a password that construction puts into another form, and so needs a key to write to.
    static bool IsRewrittenByReading(const VProfileKey& key);

    VProfileString firewallType, firewallAddress;
    VProfile<int> firewallPort;
    VProfileString proxyPrompt, proxyCommand, firewallUser;
    VProfileEncodedString firewallPassword;

private:
    /// One of the two things that are asked for: where it is stored, and what this object keeps of an answer.
    template <class Value>
    bool GetCredential(VFirewallCredential what, Value& stored, VUnicodeString& ofThisRun, IString* out);

    // Answers that the user didn't want stored; they win over stored values.
    VUnicodeString m_sessionUser, m_sessionPassword;
    IParentable* m_parent = nullptr;
};

/// Asks for what a firewall's login lacks; `save` is the state of the check box. False when the user cancels, or where
/// there is no user interface, and then both are as they were. `parent` may be null.
OSTRAND_API bool LaunchFirewallUsernameDialog(IString* value, bool& save, IParentable* parent);
OSTRAND_API bool LaunchFirewallPasswordDialog(IString* value, bool& save, IParentable* parent);

} // namespace ostrand
