// The US keyboard, against what is printed on its keys.
#include "keymap/us_keyboard.h"

#include "keymap/virtual_keys.h"

#include <gtest/gtest.h>

namespace ostrand::test {
namespace {

TEST(UsKeyboard, KeysByTheirPlace)
{
    const struct {
        unsigned scanCode;
        bool isExtended;
        std::u16string_view name;
    } cases[] = {
        {0x01, false, u"VK_ESCAPE"},  {0x02, false, u"VK_1"},      {0x0B, false, u"VK_0"},
        {0x10, false, u"VK_Q"},       {0x19, false, u"VK_P"},      {0x1E, false, u"VK_A"},
        {0x26, false, u"VK_L"},       {0x2C, false, u"VK_Z"},      {0x32, false, u"VK_M"},
        {0x3B, false, u"VK_F1"},      {0x44, false, u"VK_F10"},    {0x57, false, u"VK_F11"},
        {0x45, false, u"VK_PAUSE"},   {0x45, true, u"VK_NUMLOCK"}, {0x47, false, u"VK_HOME"},
        {0x47, true, u"VK_HOME"},     {0x53, true, u"VK_DELETE"},  {0x1C, true, u"VK_RETURN"},
        {0x37, true, u"VK_SNAPSHOT"}, {0x35, true, u"VK_DIVIDE"},
    };
    for (const auto& each : cases)
        EXPECT_EQ(VirtualKeyName(UsVirtualKey(each.scanCode, each.isExtended)), each.name) << each.scanCode;
    for (const unsigned none : {0u, 0x54u, 0x7Fu, 0x1000u})
        EXPECT_EQ(UsVirtualKey(none, false), 0u);
    EXPECT_EQ(UsVirtualKey(0x1E, true), 0u) << "letters aren't extended";
}

TEST(UsKeyboard, TextOfKeys)
{
    const struct {
        unsigned key;
        std::u16string_view plain, shifted, control, both;
    } cases[] = {
        {'A', u"a", u"A", u"\x01", u"\x01"},
        {'Z', u"z", u"Z", u"\x1A", u"\x1A"},
        {'2', u"2", u"@", u"", std::u16string_view(u"\0", 1)},
        {'6', u"6", u"^", u"", u"\x1E"},
        {0xBD, u"-", u"_", u"", u"\x1F"},
        {0xDB, u"[", u"{", u"\x1B", u""},
        {0xDC, u"\\", u"|", u"\x1C", u""},
        {0xDE, u"'", u"\"", u"", u""},
        {0x0D, u"\r", u"\r", u"\n", u""},
        {0x6B, u"+", u"+", u"", u""},
        {0x70, u"", u"", u"", u""},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.key);
        EXPECT_EQ(UsKeyText(each.key, false, false), each.plain);
        EXPECT_EQ(UsKeyText(each.key, true, false), each.shifted);
        EXPECT_EQ(UsKeyText(each.key, false, true), each.control);
        EXPECT_EQ(UsKeyText(each.key, true, true), each.both);
    }
}

} // namespace
} // namespace ostrand::test
