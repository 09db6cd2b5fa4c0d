// RemoteHostConfig: what every network protocol of a session shares: host, firewall, user name.
#pragma once

#include "config/global/firewall.h"
#include "core/unknown.h"
#include "profile/schema.h"

namespace ostrand {

/// The order of the operations is a contract with foreign modules. One thread at a time.
class IRemoteHostConfig : public IClonable {
public:
    /// A value of this record, else of its firewall, by its name in any case; null for none. Lent.
    virtual VProfileData* FindProfileValue(const char16_t* valueName) = 0;
    virtual void GetHostname(IString* out) const = 0;
    virtual void SetHostname(const char16_t* text) = 0;
    /// The firewall in force with a reference for the caller; null where its definition is missing.
    virtual FirewallConfig* GetFirewall() = 0;
    /// The name in force: that of this run, else the stored one.
    virtual void GetFirewallName(IString* out) const = 0;
    /// Sets the stored name, and opens the firewall anew.
    virtual void SetFirewallName(const char16_t* text) = 0;
    /// Sets a name for this run that is never stored, and opens the firewall anew. Empty takes it away.
    virtual void SetFirewallOverride(const char16_t* text) = 0;
    virtual void GetUsername(IString* out) const = 0;
    virtual void SetUsername(const char16_t* text) = 0;
    /// The administrator's policy; the arguments name the application and a key of it.
    virtual bool CanSaveUsername(const char16_t* application, const char16_t* subkey) const = 0;
    /// The same for passwords. With `respectAutoSave` also false unless options are saved as they change.
    virtual bool CanSavePassword(const char16_t* application, const char16_t* subkey, bool respectAutoSave) const = 0;
    virtual ~IRemoteHostConfig() = default;
    virtual void Destroy() { delete this; }
    /// A value of this record alone.
    virtual VProfileData* FindValue(const char16_t* valueName) = 0;
};

/// Reading trims the user name, and empties it where a policy forbids stored user names: in the current value, so that
/// the next save erases it from the store.
class OSTRAND_API RemoteHostConfig : public VUnknown<IRemoteHostConfig>, public VProfileRecord {
public:
    using ReadContext = VReadContext;

    /// The key may be null.
    explicit RemoteHostConfig(const VProfileKey* key);
    /// All values with their saved copies; the firewall is opened anew.
    RemoteHostConfig(const RemoteHostConfig& other);
    RemoteHostConfig& operator=(const RemoteHostConfig&) = delete;

    IClonable* Clone() const override { return new RemoteHostConfig(*this); }
    VProfileData* FindProfileValue(const char16_t* valueName) override;
    void GetHostname(IString* out) const override { out->Set(hostname.c_str(), false); }
    void SetHostname(const char16_t* text) override { hostname = VUnicodeString(text); }
    FirewallConfig* GetFirewall() override;
    void GetFirewallName(IString* out) const override { out->Set(EffectiveFirewallName().c_str(), false); }
    void SetFirewallName(const char16_t* text) override;
    void SetFirewallOverride(const char16_t* text) override;
    void GetUsername(IString* out) const override { out->Set(username.c_str(), false); }
    void SetUsername(const char16_t* text) override { username = VUnicodeString(text); }
    bool CanSaveUsername(const char16_t* application, const char16_t* subkey) const override;
    bool CanSavePassword(const char16_t* application, const char16_t* subkey, bool respectAutoSave) const override;
    VProfileData* FindValue(const char16_t* valueName) override;

    VProfileData* GetMember(int index) override { return Schema().GetMember(*this, index); }
    static const VSchema<RemoteHostConfig>& Schema();

    VProfileString hostname, firewallName, username;
    VUnicodeString firewallOverride;

private:
    const VUnicodeString& EffectiveFirewallName() const
    {
        return firewallOverride.IsEmpty() ? firewallName.Value() : firewallOverride;
    }
    void OpenFirewall();

    VUnknownPointer<FirewallConfig> m_firewall; // null where its definition is missing
};

} // namespace ostrand
