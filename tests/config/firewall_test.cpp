// Firewalls: what connections ask of a definition, and the definitions of the store.
#include "config/global/firewall_list.h"

#include "core/messages.h"
#include "platform/error_codes.h"
#include "profile/capi_string.h"
#include "tests/support/default_store.h"
#include "tests/support/fake_platform.h"
#include "tests/support/fake_protection.h"
#include "tests/support/recording_prompts.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace ostrand::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using FirewallPointer = VUnknownPointer<FirewallConfig>;

class Firewall : public testing::Test {
protected:
    /// A definition of this type in the store.
    FirewallPointer Make(const char16_t* type)
    {
        store.factory.Fill(
            {{u"Firewalls\\Gate", u"Is Session", 1u}, {u"Firewalls\\Gate", u"Firewall Type", VUnicodeString(type)}});
        return LoadFirewall(u"Gate");
    }
    static std::u16string UserOf(FirewallConfig& firewall, bool expected = true)
    {
        VUnicodeStringI out;
        EXPECT_EQ(firewall.GetUsername(&out), expected);
        return out.Get();
    }
    static std::u16string PasswordOf(FirewallConfig& firewall, bool expected = true)
    {
        VUnicodeStringI out;
        EXPECT_EQ(firewall.GetPassword(&out), expected);
        EXPECT_TRUE(out.IsSensitive());
        return out.Get();
    }
    std::optional<StoreValue> Stored(std::u16string_view name) const { return store.Get(u"Firewalls\\Gate", name); }

    DefaultMemoryStore store;
    RecordingPrompts prompts;
    VReportMessageParams report;
};

TEST_F(Firewall, OnlyTypesWithALoginAsk)
{
    const struct {
        const char16_t* type;
        int id;
        const char16_t* shown;
        bool asks;
    } kCases[] = {
        {u"None", 0, u"None", false},
        {u"SOCKSv5", 3, u"SOCKS version 5 (no authentication)", false},
        {u"SOCKSv5_USERPASS", 4, u"SOCKS version 5 (username/password)", true},
        {u"HTTP_BASICAUTH", 6, u"HTTP (Basic username/password)", true},
        {u"USER user@host port", 9, u"USER user@host port", false},
        {u"USER user@host port (with login)", 10, u"USER user@host port (with login)", true},
        {u"socksv5_userpass", 0, u"", false},
        {u"Made up", 0, u"", false},
    };
    prompts.answer = false;
    for (const auto& c : kCases) {
        SCOPED_TRACE(ToUtf8(c.type));
        const FirewallPointer firewall = Make(c.type);
        EXPECT_EQ(firewall->GetTypeId(), c.id);
        EXPECT_EQ(firewall->GetTypeDisplayName(), c.shown);
        prompts.questions.clear();
        EXPECT_EQ(UserOf(*firewall, !c.asks), u"");
        EXPECT_EQ(PasswordOf(*firewall, !c.asks), u"");
        EXPECT_EQ(prompts.questions.size(), c.asks ? 2u : 0u);
    }
}

TEST_F(Firewall, AnAnswerIsKeptForTheRunOrSavedAtOnce)
{
    FirewallPointer firewall = Make(u"SOCKSv5_USERPASS");
    prompts.answer = false;
    UserOf(*firewall, false);
    UserOf(*firewall, false);
    EXPECT_EQ(prompts.questions.size(), 2u) << "a cancelled question comes again";

    prompts.answer = true;
    prompts.typed = u"ann";
    store.TakeWrites();
    EXPECT_EQ(UserOf(*firewall), u"ann");
    EXPECT_EQ(UserOf(*firewall), u"ann");
    EXPECT_EQ(prompts.questions.size(), 3u);
    EXPECT_THAT(store.TakeWrites(), IsEmpty());
    firewall->firewallUser = VUnicodeString(u"stored");
    EXPECT_EQ(UserOf(*firewall), u"ann") << "the run's own name wins";

    prompts.typed = u"hunter2";
    prompts.savesTyped = true;
    EXPECT_EQ(PasswordOf(*firewall), u"hunter2");
    EXPECT_THAT(store.TakeWrites(), testing::Contains(u"Firewalls\\Gate|Firewall Password"));
    EXPECT_NE(Stored(u"Firewall Password"), StoreValue(VUnicodeString(u"hunter2")));
    firewall = LoadFirewall(u"Gate");
    EXPECT_EQ(PasswordOf(*firewall), u"hunter2");
    EXPECT_EQ(prompts.questions.size(), 4u) << "only what is missing is asked for";
}

TEST_F(Firewall, APortIsCutTo16Bits)
{
    store.factory.Fill({{u"Firewalls\\Gate", u"Is Session", 0u}, {u"Firewalls\\Gate", u"Firewall Port", 65536u + 21u}});
    const FirewallPointer firewall = LoadFirewall(u"gate");
    ASSERT_TRUE(firewall) << "the mark counts, not its value, and names ignore case";
    EXPECT_EQ(firewall->GetPort(), 21);
    EXPECT_EQ(LoadFirewall(kNoFirewall)->GetPort(), 1080);
}

TEST_F(Firewall, TheListIsTheStoreAndNone)
{
    store.factory.Fill({{u"Firewalls\\B", u"Is Session", 1u},
                        {u"Firewalls\\A", u"Is Session", 1u},
                        {u"Firewalls\\Unmarked", u"Firewall Port", 1u},
                        {u"Firewalls\\Text", u"Is Session", VUnicodeString(u"1")}});
    VStringArray names;
    ListFirewalls(names);
    EXPECT_THAT(std::vector(names.begin(), names.end()), ElementsAre(u"None", u"A", u"B"));
    EXPECT_TRUE(FirewallExists(u"None"));
    EXPECT_FALSE(FirewallExists(u"none")) << "only the exact name is built in";
    EXPECT_FALSE(LoadFirewall(u"Unmarked"));
    EXPECT_FALSE(LoadFirewall(u"Text"));
}

TEST_F(Firewall, ASaveMarksTheKeyAndNoneIsNeverSaved)
{
    const FirewallPointer none = LoadFirewall(kNoFirewall);
    EXPECT_TRUE(SaveFirewall(*none, true, report));
    EXPECT_THAT(store.TakeWrites(), IsEmpty());

    const auto made = FirewallPointer::Adopt(new FirewallConfig(u"none", nullptr));
    EXPECT_TRUE(SaveFirewall(*made, false, report));
    EXPECT_THAT(store.NamesIn(u"Firewalls\\none"),
                ElementsAre(u"Firewall Type", u"Firewall Address", u"Firewall Port", u"Proxy Prompt", u"Proxy Command",
                            u"Firewall User", u"Firewall Password", u"Is Session"));
    store.TakeWrites();
    EXPECT_TRUE(SaveFirewall(*made, false, report));
    made->firewallPort = 21;
    EXPECT_TRUE(SaveFirewall(*made, false, report));
    EXPECT_THAT(store.TakeWrites(), ElementsAre(u"Firewalls\\none|Firewall Port"));

    store.factory.FailFlush(kErrorDiskFull);
    EXPECT_FALSE(SaveFirewall(*made, true, report));
    EXPECT_EQ(report.GetCode(), kErrorDiskFull);
    store.factory.FailFlush(0);
    store.factory.SetReadOnly(true);
    EXPECT_FALSE(SaveFirewall(*made, true, report));
    EXPECT_FALSE(DeleteFirewall(u"none", report));
    EXPECT_EQ(report.GetCode(), kErrorAccessDenied);
    store.factory.SetReadOnly(false);
    EXPECT_TRUE(DeleteFirewall(u"none", report));
    EXPECT_FALSE(DeleteFirewall(u"none", report));
    EXPECT_EQ(report.GetCode(), kNameUnknown);
}

TEST_F(Firewall, ARenameCarriesEverythingOrNothing)
{
    Make(u"HTTP");
    store.factory.Fill({{u"Firewalls\\Gate", u"Of A Later Version", VStringArray()},
                        {u"Firewalls\\Gate\\Below", u"Deep", StoreBlock{1, 2}},
                        {u"Firewalls\\Taken", u"Is Session", 1u}});
    const auto before = store.factory.Dump();
    const struct {
        const char16_t *from, *to;
        unsigned code;
    } kRefused[] = {
        {u"Gate", u"", kNameMissing},       {u"Gate", u"A\\B", kNameIllegalCharacter}, {u"Gate", u"taken", kNameExists},
        {u"Gate", kNoFirewall, kNameInUse}, {kNoFirewall, u"X", kNameInUse},           {u"Missing", u"X", kNameUnknown},
    };
    for (const auto& c : kRefused) {
        EXPECT_FALSE(RenameFirewall(c.from, c.to, report)) << ToUtf8(c.to);
        EXPECT_EQ(report.GetCode(), c.code) << ToUtf8(c.to);
    }
    EXPECT_EQ(store.factory.Dump(), before);

    ASSERT_TRUE(RenameFirewall(u"Gate", u"Door", report));
    ASSERT_TRUE(RenameFirewall(u"Door", u"DOOR", report));
    EXPECT_THAT(store.factory.Keys(),
                ElementsAre(u"Firewalls", u"Firewalls\\DOOR", u"Firewalls\\DOOR\\Below", u"Firewalls\\Taken"));
    EXPECT_EQ(store.Get(u"Firewalls\\DOOR", u"Of A Later Version"), StoreValue(VStringArray()));
    EXPECT_EQ(store.Get(u"Firewalls\\DOOR\\Below", u"Deep"), StoreValue(StoreBlock{1, 2}));

    store.factory.Fill({{u"Firewalls\\DOOR", u"Foreign", ForeignValue()}});
    EXPECT_FALSE(RenameFirewall(u"DOOR", u"Gate", report)) << "a value that can't be carried over";
    EXPECT_EQ(report.GetCode(), kValueNotCopied);
    EXPECT_TRUE(FirewallExists(u"DOOR"));
    EXPECT_FALSE(store.Get(u"Firewalls\\Gate", u"Is Session"));
}

TEST_F(Firewall, AProtectedPasswordIsTakenOverOnceAndAForeignOneStays)
{
    FakePlatform platform;
    FakeProtection protection;
    Platform().dataProtection = &protection;
    Make(u"SOCKSv5_USERPASS");
    VProfileCapiString former;
    former.SetName(u"Firewall Password");
    former = std::u16string_view(u"hunter2");
    VUnicodeString stored;
    ASSERT_TRUE(former.Encode(stored));
    store.factory.Fill({{u"Firewalls\\Gate", u"Firewall Password", stored}});
    store.TakeWrites();
    EXPECT_EQ(PasswordOf(*LoadFirewall(u"Gate")), u"hunter2");
    EXPECT_THAT(store.TakeWrites(), ElementsAre(u"Firewalls\\Gate|Firewall Password"));
    EXPECT_EQ(PasswordOf(*LoadFirewall(u"Gate")), u"hunter2");
    EXPECT_THAT(store.TakeWrites(), IsEmpty());

    const VUnicodeString foreign = u"CAPI:0123";
    store.factory.Fill({{u"Firewalls\\Gate", u"Firewall Password", foreign}});
    const FirewallPointer firewall = LoadFirewall(u"Gate");
    EXPECT_TRUE(firewall->firewallPassword.IsEmpty());
    EXPECT_FALSE(firewall->firewallPassword.IsDirty());
    EXPECT_TRUE(SaveFirewall(*firewall, true, report));
    EXPECT_EQ(Stored(u"Firewall Password"), StoreValue(foreign)) << "it may open again on its own machine";
    firewall->firewallPassword = std::u16string_view(u"new");
    EXPECT_TRUE(SaveFirewall(*firewall, false, report));
    EXPECT_EQ(PasswordOf(*LoadFirewall(u"Gate")), u"new");
}

} // namespace
} // namespace ostrand::test
