// Logon actions: damaged lists, older scripts that can't be read now, and what a whole load and save writes.
#include "config/session/logon_actions.h"
#include "profile/capi_string.h"
#include "profile/xor_text.h"
#include "stores/memory_store.h"
#include "tests/support/fake_platform.h"
#include "tests/support/fake_protection.h"

#include <gtest/gtest.h>

namespace ostrand {
namespace {

constexpr VXorKey kKey = {0x11, 0x22, 0x33, 0x44};

/// The older form of a block that is given in the code page.
VUnicodeString OlderScript(std::u16string_view block) { return EncodeXor(block, kKey); }

// The flags are the byte 0x80, which is the euro in the code page.
const std::u16string kBlock = std::u16string(u"\u20AClogin:\0root\0", 13);
constexpr std::u16string_view kConverted = u"1\x1Flogin:\x1Froot\x1F";

struct Session {
    Session() : store(&factory) { platform.environment.variables["TEMP"] = "/no/trace/log"; }

    VProfileKey& Key() { return *store.GetRootKey(); }
    void Load()
    {
        sendInitialCarriageReturn.SetName(u"Send Initial Carriage Return");
        sendInitialCarriageReturn.Load(&Key(), true);
        LoadLogonActions(&Key(), script, sendInitialCarriageReturn);
    }
    /// The value names that a forced or unforced save of the script writes.
    size_t CountWrites(bool force)
    {
        factory.Log().clear();
        script.Save(&Key(), force);
        return factory.Log().size();
    }

    test::FakePlatform platform;
    test::FakeProtection protection;
    MemoryStoreFactory factory;
    VProfileStore store;
    VProfileEncodedString script;
    VProfile<bool> sendInitialCarriageReturn;
};

TEST(LogonActions, ACompleteActionInFrontOfACutOneIsRead)
{
    const struct {
        std::u16string_view text;
        size_t complete;
        bool isCut;
    } cases[] = {
        {u"", 0, false},
        {u"1\x1F", 0, true},
        {u"0\x1F"
         u"a\x1F"
         u"b\x1F"
         u"1\x1F"
         u"c",
         1, true},
        {u"0\x1F"
         u"a\x1F"
         u"b",
         1, false},
        {u"0\x1F\x1F\x1F\x1F\x1F\x1F", 2, false},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::Message() << c.complete << c.isCut);
        LogonActionList list;
        bool isCut = false;
        try {
            ReadLogonActions(c.text, list);
        } catch (const LogonActionList::OutOfRange&) {
            isCut = true;
        }
        EXPECT_EQ(isCut, c.isCut);
        EXPECT_EQ(list.GetCount(), c.complete);
    }
}

TEST(LogonActions, PartsOfAScriptAreSecretsToo)
{
    VUnicodeString text = kConverted;
    text.MarkSensitive();
    LogonActionList list;
    ReadLogonActions(text, list);
    ASSERT_EQ(list.GetCount(), 1u);
    EXPECT_TRUE(list[0].send.IsSensitive());
    EXPECT_TRUE(WriteLogonActions(list).IsSensitive());
    EXPECT_EQ(WriteLogonActions(list), kConverted);
}

TEST(LogonActions, AnyRestOfAnOlderBlockIsTaken)
{
    const struct {
        const char* what;
        std::u16string block;
        std::u16string_view text;
        bool carriageReturn;
    } cases[] = {
        {"no last zero", kBlock.substr(0, 12), kConverted, false},
        {"expected text alone", kBlock.substr(0, 8), u"1\x1Flogin:\x1F\x1F", false},
        {"flags alone", u"\xFF", u"", true},
        {"an eighth row has no flag", u"\xFF" + std::u16string(14, u'\0') + std::u16string(u"x\0y\0", 4),
         u"1\x1F\x1F\x1F" // seven rows with nothing but their flags
         u"1\x1F\x1F\x1F"
         u"1\x1F\x1F\x1F"
         u"1\x1F\x1F\x1F"
         u"1\x1F\x1F\x1F"
         u"1\x1F\x1F\x1F"
         u"1\x1F\x1F\x1F"
         u"0\x1Fx\x1Fy\x1F",
         true},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        ConvertedLoginScript converted;
        ASSERT_TRUE(ConvertLoginScript(OlderScript(c.block), converted));
        EXPECT_EQ(WriteLogonActions(converted.actions), c.text);
        EXPECT_EQ(converted.sendInitialCarriageReturn, c.carriageReturn);
    }
    ConvertedLoginScript none;
    EXPECT_FALSE(ConvertLoginScript(u"11223344", none)) << "a key without a block";
    EXPECT_FALSE(ConvertLoginScript(u"u", none));
}

TEST(LogonActions, AnOlderScriptIsConvertedAndStays)
{
    Session session;
    const VUnicodeString stored = EncodeXor(OlderScript(kBlock));
    session.Key().WriteString(u"Login Script", stored.c_str());
    session.Load();
    EXPECT_EQ(session.script, kConverted);
    EXPECT_TRUE(session.script.IsModified());
    EXPECT_FALSE(session.sendInitialCarriageReturn);
    EXPECT_EQ(session.CountWrites(false), 1u);

    Session second;
    for (const StoreEntry& entry : session.factory.Dump())
        second.factory.Fill({entry});
    second.Load();
    EXPECT_EQ(second.script, kConverted);
    EXPECT_EQ(second.CountWrites(false), 0u);
    VUnicodeString kept;
    EXPECT_TRUE(second.Key().ReadString(u"Login Script", kept));
    EXPECT_EQ(kept, stored);
}

TEST(LogonActions, AProtectedOlderScriptWaitsUntilItCanBeRead)
{
    Session session;
    VProfileCapiString older;
    older.SetName(u"Login Script");
    older = OlderScript(kBlock);
    older.Save(&session.Key(), true);

    session.protection.user = 'b';
    session.Load();
    EXPECT_TRUE(session.script.IsEmpty());
    EXPECT_TRUE(session.sendInitialCarriageReturn) << "the flag is in there, too";
    EXPECT_EQ(session.CountWrites(true), 0u) << "an empty script would hide it for good";

    session.protection.user = 'a';
    session.Load();
    EXPECT_EQ(session.script, kConverted);
    EXPECT_EQ(session.CountWrites(false), 1u);
}

TEST(LogonActions, WithoutAnyScriptThereIsAPendingEmptyOne)
{
    Session session;
    session.Load();
    EXPECT_EQ(session.CountWrites(false), 1u);
    LoadLogonActions(nullptr, session.script, session.sendInitialCarriageReturn);
    EXPECT_TRUE(session.script.IsEmpty() && session.script.IsDirty());
}

} // namespace
} // namespace ostrand
