// Key maps in memory, and the tables of functions and keys.
#include "keymap/default_bindings.h"
#include "keymap/function_names.h"
#include "keymap/keymap.h"
#include "keymap/virtual_keys.h"
#include "tests/support/memory_files.h"

#include <gtest/gtest.h>

namespace ostrand {
namespace {

/// A map with the default bindings behind it, as loading an empty file leaves it.
struct MapWithDefaults {
    MapWithDefaults()
    {
        const VPlatformScope scope;
        test::MemoryFiles files;
        Platform().files = &files;
        files.contents["/empty.key"] = "";
        EXPECT_TRUE(keymap.LoadFromFile(u"/empty.key", status));
    }
    VReportMessageParams status;
    Keymap keymap;
};

constexpr unsigned kBackspace = 0x08;
constexpr unsigned kF1 = 0x70;

TEST(Keymap, AnswersForItsOwnBindingsThenForTheDefaults)
{
    MapWithDefaults scene;
    Keymap& keymap = scene.keymap;
    EXPECT_EQ(keymap.GetFunction(kBackspace), kFunctionSend);
    EXPECT_EQ(keymap.GetString(kBackspace), u"\\010");

    keymap.SetFunction(kBackspace, kFunctionDisabled);
    EXPECT_EQ(keymap.GetFunction(kBackspace), kFunctionDisabled);
    EXPECT_EQ(keymap.GetString(kBackspace), u"\\010") << "an empty string doesn't hide the default's";
    keymap.SetFunction(kBackspace, kFunctionNone);
    EXPECT_EQ(keymap.GetFunction(kBackspace), kFunctionSend) << "NONE hides nothing";
    keymap.SetString(kBackspace, u"own");
    EXPECT_EQ(keymap.GetString(kBackspace), u"own");

    Keymap copy(keymap);
    copy.commentSeen = true;
    EXPECT_EQ(copy.GetFunction(kF1), kFunctionNone) << "the defaults don't come along";
    EXPECT_EQ(copy.GetString(kBackspace), u"own");
    keymap = copy;
    EXPECT_FALSE(keymap.HasDefaults() || keymap.commentSeen);
}

TEST(Keymap, IndexesBeyondTheKeysAreNothing)
{
    MapWithDefaults scene;
    Keymap& keymap = scene.keymap;
    for (const unsigned index : {kKeyCount, kKeyCount + kF1, ~0u}) {
        keymap.SetFunction(index, kFunctionSend);
        keymap.SetString(index, u"x");
        EXPECT_EQ(keymap.GetFunction(index), kFunctionNone);
        EXPECT_TRUE(keymap.GetString(index).IsEmpty());
    }
    keymap.SetFunction(kKeyCount - 1, 0xFFFFFFFF);
    EXPECT_EQ(keymap.GetFunction(kKeyCount - 1), 0xFFFFFFFF) << "codes are kept whole, known or not";
}

TEST(Keymap, BindingsThatWereUnsetEqualBindingsThatNeverWere)
{
    Keymap one;
    Keymap other;
    for (const unsigned index : {0u, 63u, 64u, kKeyCount - 1}) {
        one.SetFunction(index, kFunctionSend);
        one.SetString(index, u"x");
        EXPECT_FALSE(one.OwnBindings() == other.OwnBindings());
        one.SetFunction(index, kFunctionNone);
        EXPECT_FALSE(one.OwnBindings() == other.OwnBindings()) << "the string is there";
        one.SetString(index, u"");
        EXPECT_TRUE(one.OwnBindings() == other.OwnBindings() && other.OwnBindings() == one.OwnBindings());
    }
}

TEST(Keymap, DefaultBindingsTouchNoOtherKey)
{
    Keymap keymap;
    keymap.SetString(kF1, u"old");
    keymap.SetFunction(0x41, kFunctionSend);
    InstallDefaultKeymap(keymap);
    unsigned bound = 0;
    for (unsigned index = 0; index < kKeyCount; ++index)
        bound += keymap.GetFunction(index) != kFunctionNone ? 1 : 0;
    EXPECT_EQ(bound, 54u);
    EXPECT_TRUE(keymap.GetString(kF1).IsEmpty());
}

TEST(KeyTables, EveryNameLeadsToItsCodeAndBack)
{
    for (unsigned code = 0; code < 165; ++code) {
        const std::u16string_view name = FunctionNameOf(code);
        EXPECT_EQ(FunctionCodeOf(name), static_cast<int>(code));
        EXPECT_EQ(FunctionCodeOf(ToUtf8(name)), static_cast<int>(code));
    }
    for (unsigned code = 0; code < 256; ++code)
        EXPECT_EQ(ParseVirtualKey(VirtualKeyName(code)), static_cast<int>(code));
    const struct {
        std::u16string_view name;
        int code;
    } cases[] = {{u"", 0},       {u"VT_HELP", 153}, {u"VT_DO", 154}, {u"send", -1},
                 {u"SEND ", -1}, {u"SEN", -1},      {u"\u0153", -1}};
    for (const auto& c : cases)
        EXPECT_EQ(FunctionCodeOf(c.name), c.code);
    EXPECT_EQ(FunctionCodeOf("S\xC3\x84"), -1);
    EXPECT_TRUE(FunctionNameOf(165).empty() && FunctionNameOf(~0u).empty());
}

TEST(KeyTables, GroupsOfFunctionsAreWhole)
{
    const struct {
        KeyFunctionRange range;
        std::u16string_view prefix;
    } groups[] = {{kScrollbackFunctions, u"SB_"},
                  {kMenuFunctions, u"MENU_"},
                  {kTelnetFunctions, u"TN_"},
                  {kSshFunctions, u"SSH_"},
                  {kTerminalKeyFunctions, u"VT_"}};
    for (unsigned code = 0; code < 165; ++code)
        for (const auto& group : groups)
            EXPECT_EQ(FunctionNameAt(code).starts_with(group.prefix),
                      code >= group.range.first && code <= group.range.last);
    EXPECT_TRUE(FunctionNameAt(165).empty());
}

TEST(KeyTables, NumbersOfKeysAreReadInTheBaseThatTheirStartSays)
{
    const struct {
        std::u16string_view field;
        int code;
    } cases[] = {{u"0", 0},       {u"255", 255},       {u"256", -1},  {u"0XFF", 255}, {u"0X100", -1}, {u"0377", 255},
                 {u"0400", -1},   {u"65ABC", 65},      {u"0X", 0},    {u"0XG", 0},    {u"08", 0},     {u"0x4f", 79},
                 {u"\u0661", -1}, {u"4294967361", -1}, {u"VK_a", -1}, {u"", -1},      {u"-1", -1},    {u"VK_F25", -1}};
    for (const auto& c : cases) {
        SCOPED_TRACE(ToUtf8(c.field));
        EXPECT_EQ(ParseVirtualKey(c.field), c.code);
    }
}

} // namespace
} // namespace ostrand
