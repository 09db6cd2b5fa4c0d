// What protocols share: the remote host with its firewall, and the objects of one session.
#include "config/session/common_config.h"

#include "config/global/firewall_list.h"
#include "config/global/global_config.h"
#include "core/entry.h"
#include "tests/support/default_store.h"
#include "tests/support/hive_folders.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace ostrand::test {
namespace {

class RemoteHost : public testing::Test {
protected:
    ~RemoteHost() override
    {
        GlobalConfig* config = nullptr;
        ResetGlobalConfig(config);
    }
    VUnknownPointer<RemoteHostConfig> Read(std::initializer_list<StoreEntry> values)
    {
        store.factory.Fill(values);
        const VProfileStore open(true);
        const VProfileKey key(open.GetRootKey(), u"Host");
        return VUnknownPointer<RemoteHostConfig>::Adopt(new RemoteHostConfig(&key));
    }
    static std::u16string FirewallOf(RemoteHostConfig& host)
    {
        const auto firewall = VUnknownPointer<FirewallConfig>::Adopt(host.GetFirewall());
        return firewall ? std::u16string(firewall->GetName().View()) : u"(none)";
    }
    static std::u16string NameOf(const RemoteHostConfig& host)
    {
        VUnicodeStringI name;
        host.GetFirewallName(&name);
        return name.Get();
    }

    HiveFolders hives;
    DefaultMemoryStore store;
};

TEST_F(RemoteHost, TheFirewallFollowsItsName)
{
    store.factory.Fill({{u"Firewalls\\Gate", u"Is Session", 1u}, {u"Firewalls\\Gate", u"Firewall Port", 99u}});
    const auto host = Read({{u"Host", u"Firewall Name", VUnicodeString(u"Gate")}});
    EXPECT_EQ(FirewallOf(*host), u"Gate");
    EXPECT_EQ(host->FindProfileValue(u"HOSTNAME"), &host->hostname);
    const auto* const port = dynamic_cast<VProfile<int>*>(host->FindProfileValue(u"firewall port"));
    ASSERT_TRUE(port) << "a value of the firewall";
    EXPECT_EQ(*port, 99);
    EXPECT_EQ(host->FindValue(u"Firewall Port"), nullptr);

    host->SetFirewallOverride(u"Missing");
    EXPECT_EQ(NameOf(*host), u"Missing");
    EXPECT_EQ(FirewallOf(*host), u"(none)");
    EXPECT_FALSE(host->IsModified()) << "an override is never stored";
    host->SetFirewallOverride(u"");
    EXPECT_EQ(FirewallOf(*host), u"Gate");
    host->SetFirewallName(u"None");
    EXPECT_EQ(FirewallOf(*host), u"None");

    host->hostname = VUnicodeString(u"router");
    const auto copy = VUnknownPointer<IClonable>::Adopt(host->Clone());
    auto& clone = dynamic_cast<RemoteHostConfig&>(*copy);
    EXPECT_TRUE(clone.hostname.IsModified()) << "saved copies come along";
    EXPECT_EQ(NameOf(clone), u"None");
}

TEST_F(RemoteHost, AFormerSwitchNamesTheFormerFirewall)
{
    EXPECT_EQ(NameOf(*Read({{u"Host", u"Use Firewall", 1u}})), u"DefaultTerminalFirewall");
    EXPECT_EQ(NameOf(*Read({{u"Host", u"Firewall Name", VUnicodeString(u"")}})), u"") << "a name that is there counts";
    EXPECT_EQ(NameOf(RemoteHostConfig(nullptr)), u"None");
}

TEST_F(RemoteHost, PoliciesDecideWhatMayBeSaved)
{
    EXPECT_TRUE(Read({})->CanSavePassword(u"Tessaly", u"Global", true));
    GlobalConfig* config = nullptr;
    GetGlobalConfig(config, -1);
    config->autoSaveOptions = false;
    EXPECT_FALSE(Read({})->CanSavePassword(u"Tessaly", u"Global", true));
    EXPECT_TRUE(Read({})->CanSavePassword(u"Tessaly", u"Global", false));

    hives.Write("machine/Software/Policies/Hollowmere.ini", "Save Usernames = 0\n");
    const auto host = Read({{u"Host", u"Username", VUnicodeString(u"ann")}});
    EXPECT_TRUE(host->username.IsEmpty());
    EXPECT_FALSE(host->CanSaveUsername(u"Tessaly", u"Global"));
    EXPECT_FALSE(host->CanSavePassword(u"Tessaly", u"Global", false));
    VProfileStore open;
    VProfileKey key(open.GetRootKey(), u"Host");
    host->Save(&key, false);
    EXPECT_EQ(store.Get(u"Host", u"Username"), StoreValue(VUnicodeString(u""))) << "and the store forgets it";
}

class IShared : public IClonable {
public:
    virtual ~IShared() = default;
    virtual void Destroy() { delete this; }
};

/// Counts the living ones.
class Shared : public VUnknown<IShared> {
public:
    explicit Shared(int n) : number(n) { ++living; }
    Shared(const Shared& other) : VUnknown<IShared>(other), number(other.number) { ++living; }
    ~Shared() override { --living; }
    IClonable* Clone() const override { return new Shared(*this); }

    static inline int living = 0;
    const int number;
};

TEST_F(RemoteHost, OneSessionSharesItsObjectsAndACopyHasItsOwn)
{
    const VSharedObjectFactory make = [](const VProfileKey*, bool which, bool again, void* reserved) -> IClonable* {
        EXPECT_EQ(which, again);
        EXPECT_EQ(reserved, nullptr);
        return new Shared(which ? 1 : 0);
    };
    {
        CommonConfig common;
        const auto host = VUnknownPointer<IRemoteHostConfig>::Adopt(common.GetRemoteHostConfig(nullptr));
        const auto again = VUnknownPointer<IRemoteHostConfig>::Adopt(common.GetRemoteHostConfig(nullptr));
        EXPECT_EQ(host.Get(), again.Get());
        host->SetHostname(u"router");
        for (const bool which : {true, false, true}) {
            const auto object = VUnknownPointer<IClonable>::Adopt(common.GetSharedObject(nullptr, which, make));
            EXPECT_EQ(dynamic_cast<Shared&>(*object).number, which ? 1 : 0);
        }
        EXPECT_EQ(Shared::living, 2);

        CommonConfig copy(common);
        EXPECT_EQ(Shared::living, 4);
        const auto other = VUnknownPointer<IRemoteHostConfig>::Adopt(copy.GetRemoteHostConfig(nullptr));
        EXPECT_NE(other.Get(), host.Get());
        VUnicodeStringI name;
        other->GetHostname(&name);
        EXPECT_EQ(std::u16string(name.Get()), u"router");
    }
    EXPECT_EQ(Shared::living, 0);
}

} // namespace
} // namespace ostrand::test
