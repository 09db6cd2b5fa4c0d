// The key map of a session: when it is read, written, changed and reverted.
#include "core/trace.h"
#include "keymap/function_names.h"
#include "keymap/key_block.h"
#include "keymap/profile_keymap.h"
#include "platform/error_codes.h"
#include "tests/profile/value_store.h"
#include "tests/support/fake_platform.h"
#include "tests/support/temp_folder.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace ostrand {
namespace {

constexpr const char16_t* kName = u"Keymap v2";
constexpr unsigned kA = 0x41;

using Names = std::vector<std::u16string>;

class ProfileKeymapTest : public testing::Test {
protected:
    ProfileKeymapTest()
    {
        TraceLog().Close();
        platform.environment.variables["TEMP"] = folder.Path();
    }
    ~ProfileKeymapTest() override { TraceLog().Close(); }

    void Store(const char16_t* name, const std::vector<uint8_t>& block)
    {
        store.Key().WriteBinary(name, block.data(), static_cast<unsigned>(block.size()));
        store.TakeWrites();
    }
    std::vector<uint8_t> Stored()
    {
        std::vector<uint8_t> block(100000);
        auto size = static_cast<unsigned>(block.size());
        EXPECT_TRUE(store.Key().ReadBinary(kName, block.data(), &size));
        block.resize(size);
        return block;
    }
    static std::vector<uint8_t> BlockOf(const char16_t* text)
    {
        Keymap bound;
        bound.SetFunction(kA, kFunctionSend);
        bound.SetString(kA, text);
        return WriteKeyBlock(bound.OwnBindings());
    }
    Names Saved(bool force = false)
    {
        keymap.Save(&store.Key(), force);
        return store.TakeWrites();
    }
    std::u16string Trace()
    {
        TraceLog().Close();
        VTextFile log;
        VUnicodeString line;
        const bool isThere =
            log.Open(folder.WidePath("Tessaly.trace.log"), VFileAccess::Read, VFileDisposition::OpenExisting) == 0 &&
            log.ReadLine(line);
        return isThere ? std::u16string(line.View()) : std::u16string();
    }

    test::TempFolder folder;
    test::FakePlatform platform;
    ValueStore store;
    ProfileKeymap keymap;
};

TEST_F(ProfileKeymapTest, AnOlderValueIsReadAndTheNextSaveHasTheNewName)
{
    Store(u"Keymap", BlockOf(u"old"));
    EXPECT_TRUE(keymap.Load(&store.Key(), kName));
    EXPECT_EQ(keymap.GetString(kA), u"old");
    EXPECT_EQ(Saved(), Names());
    EXPECT_EQ(Saved(true), Names{kName});

    ProfileKeymap other;
    EXPECT_TRUE(other.Load(&store.Key(), u"Other v2 and v2"));
    EXPECT_FALSE(other.IsModified() || other.IsDirty()) << "a missing map isn't due to be written";
    EXPECT_EQ(other.GetFunction(kA), kFunctionNone);
}

TEST_F(ProfileKeymapTest, AValueAboveTheLimitCountsAsMissing)
{
    Store(u"Keymap", BlockOf(u"old"));
    Store(kName, std::vector<uint8_t>(kLargestKeyBlock + 1));
    EXPECT_TRUE(keymap.Load(&store.Key(), kName));
    EXPECT_EQ(keymap.GetString(kA), u"old");
    Store(kName, std::vector<uint8_t>(kLargestKeyBlock));
    EXPECT_TRUE(keymap.Load(&store.Key(), kName));
    EXPECT_EQ(keymap.GetFunction(kA), kFunctionNone);
    EXPECT_EQ(keymap.GetString(kA), u"old") << "a read drops bindings, not strings";
}

TEST_F(ProfileKeymapTest, WithoutASavedCopyTheMapCountsAsChanged)
{
    const struct {
        std::vector<uint8_t> block;
        bool result;
        std::u16string_view trace;
    } cases[] = {
        {{0, 0, 0}, false, u""}, {{}, false, u""}, {{0, 0, 0, 1, 0, 0, 0}, true, u"WARNING: bad keymap profile entry"}};
    for (const auto& c : cases) {
        ProfileKeymap fresh;
        Store(kName, c.block);
        EXPECT_EQ(fresh.Load(&store.Key(), kName), c.result);
        EXPECT_EQ(Trace(), c.trace);
        EXPECT_TRUE(fresh.IsModified());
        fresh.SetFunction(kA, kFunctionDisabled);
        fresh.RevertChanges();
        EXPECT_EQ(fresh.GetFunction(kA), kFunctionDisabled) << "there is nothing to go back to";
        fresh.Save(&store.Key(), false);
        EXPECT_EQ(store.TakeWrites(), Names{kName});
        EXPECT_FALSE(fresh.IsModified() || fresh.IsDirty());
    }
}

TEST_F(ProfileKeymapTest, AShortValueLeavesTheSavedCopy)
{
    Store(kName, BlockOf(u"x"));
    keymap.Load(&store.Key(), kName);
    Store(kName, {1, 2});
    EXPECT_FALSE(keymap.Load(&store.Key(), kName));
    EXPECT_EQ(keymap.GetFunction(kA), kFunctionNone);
    keymap.RevertChanges();
    EXPECT_EQ(keymap.GetFunction(kA), kFunctionSend);
}

TEST_F(ProfileKeymapTest, ChangesAreKeptOrGivenUp)
{
    Store(kName, BlockOf(u"x"));
    keymap.Load(&store.Key(), kName);
    keymap.SetString(kA, u"X");
    EXPECT_TRUE(keymap.IsModified());
    keymap.AcceptChanges();
    EXPECT_FALSE(keymap.IsModified());
    EXPECT_TRUE(keymap.IsDirty());
    keymap.SetString(kA, u"y");
    keymap.RevertChanges();
    EXPECT_EQ(keymap.GetString(kA), u"X");
    EXPECT_EQ(Saved(), Names{kName});
    EXPECT_EQ(Stored(), BlockOf(u"X"));

    keymap.AcceptChanges();
    EXPECT_EQ(Saved(), Names()) << "nothing was accepted";
    keymap.RevertChanges();
    EXPECT_EQ(Saved(), Names{kName}) << "reverting is an assignment";
    keymap.Load(nullptr, u"Other");
    EXPECT_EQ(keymap.GetString(kA), u"X") << "no key, no change";
}

TEST_F(ProfileKeymapTest, ACopyOfTheValueIsAnAssignment)
{
    Store(kName, BlockOf(u"x"));
    keymap.Load(&store.Key(), kName);
    ProfileKeymap target;
    target.SetName(u"Other");
    target.CopyValue(keymap);
    EXPECT_TRUE(target.IsDirty() && target.IsModified());
    EXPECT_EQ(target.name, kName);
    EXPECT_EQ(target.GetString(kA), u"x");
    EXPECT_FALSE(target.savedCopy) << "it isn't carried along";

    keymap.CopyValue(keymap);
    EXPECT_FALSE(keymap.IsDirty()) << "from itself";
    const ProfileKeymap whole(keymap);
    ASSERT_TRUE(whole.savedCopy && keymap.savedCopy);
    EXPECT_FALSE(whole.IsModified());
    EXPECT_FALSE(keymap.savedCopy->savedCopy) << "saved copies don't grow into a chain";
}

TEST_F(ProfileKeymapTest, WhatDoesNotFitIsRefused)
{
    Store(kName, BlockOf(u"old"));
    keymap.Load(&store.Key(), kName);
    for (unsigned index = 0; index < kKeyCount; ++index) {
        keymap.SetFunction(index, kFunctionSend);
        keymap.SetString(index, u"an argument of some length");
    }
    keymap.AcceptChanges();
    EXPECT_EQ(Saved(true), Names());
    EXPECT_EQ(store.Key().GetStatus().GetCode(), kErrorInsufficientBuffer);
    EXPECT_EQ(Stored(), BlockOf(u"old"));
    EXPECT_TRUE(keymap.IsDirty());
    EXPECT_TRUE(Trace().starts_with(u"WARNING: keymap profile value Keymap v2 not written"));

    // Both sides of the limit: 4 for the count, 16 for the entry around its argument.
    for (const unsigned size : {kLargestKeyBlock, kLargestKeyBlock + 1}) {
        ProfileKeymap single;
        single.SetName(kName);
        single.SetFunction(kA, kFunctionSend);
        single.SetString(kA, std::u16string_view(std::u16string(size - 20, u'x')));
        single.Save(&store.Key(), false);
        EXPECT_EQ(store.TakeWrites().size(), size == kLargestKeyBlock ? 1u : 0u);
        EXPECT_EQ(single.IsModified(), size != kLargestKeyBlock);
    }
}

TEST_F(ProfileKeymapTest, ARefusedWriteIsTriedAgain)
{
    Store(kName, BlockOf(u"x"));
    keymap.Load(&store.Key(), kName);
    keymap.SetFunction(kA, kFunctionDisabled);
    keymap.Save(&store.RefusingKey(), false);
    keymap.Save(nullptr, true);
    EXPECT_TRUE(keymap.IsModified());
    EXPECT_EQ(Saved(), Names{kName});
    EXPECT_EQ(Saved(), Names());
}

TEST_F(ProfileKeymapTest, LoadsNoFile)
{
    VReportMessageParams status;
    folder.Write("m.key", "N VK_A \"x\"");
    EXPECT_TRUE(keymap.LoadFromFile(folder.WidePath("m.key"), status));
    EXPECT_EQ(keymap.GetFunction(kA), kFunctionNone);
    EXPECT_FALSE(keymap.HasDefaults());
}

} // namespace
} // namespace ostrand
