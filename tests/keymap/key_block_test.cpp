// Key maps as blocks of bytes: the way there and back, and blocks that are damaged or lie.
#include "keymap/function_names.h"
#include "keymap/key_block.h"
#include "tests/keymap/keymap_scene.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace ostrand {
namespace {

using namespace std::string_literals;

const std::string kEntries = "\0\0\0\x41\xEF\xBB\xBFSEND\0\xEF\xBB\xBFx\0"      // 17 bytes
                             "\0\0\x02\x42\xEF\xBB\xBFVT_PF1\0\xEF\xBB\xBF\0"s; // 18

std::vector<uint8_t> Block(const std::string& bytes) { return {bytes.begin(), bytes.end()}; }

TEST(KeyBlock, AMapIsReadAsItWasWritten)
{
    for (unsigned seed = 1; seed <= 10; ++seed) {
        SCOPED_TRACE(seed);
        const Keymap written = test::RandomKeymap(seed, u"aZ09\\\")\r\n;\t\u20AC\u00E4\u65E5\uFEFF");
        Keymap back;
        EXPECT_EQ(ReadKeyBlock(WriteKeyBlock(written.OwnBindings()), back), KeyBlockEnd::Whole);
        EXPECT_EQ(test::Show(back.OwnBindings()), test::Show(written.OwnBindings()));
    }
    Keymap odd;
    odd.SetFunction(1, kFunctionSend);
    odd.SetString(1, std::u16string_view(u"\xD83D\xDE00 \xDE00\0y", 6)); // a pair, half a pair, a zero
    odd.SetFunction(2, 999);
    Keymap back;
    ReadKeyBlock(WriteKeyBlock(odd.OwnBindings()), back);
    EXPECT_EQ(test::Show(back.OwnBindings()), u"001 1 '\xD83D\xDE00 ?'\n") << "and the next entry isn't disturbed";
}

TEST(KeyBlock, CountsMayLie)
{
    const struct {
        std::string count;
        size_t entries;
    } cases[] = {{"\0\0\0\0"s, 0}, {"\0\0\0\x1"s, 1}, {"\0\0\0\x3"s, 2}, {"\xFF\xFF\xFF\xFF"s, 2}, {"\x80\0\0\0"s, 2}};
    for (const auto& c : cases) {
        Keymap keymap;
        EXPECT_EQ(ReadKeyBlock(Block(c.count + kEntries), keymap), KeyBlockEnd::Whole);
        const std::u16string shown = test::Show(keymap.OwnBindings());
        EXPECT_EQ(std::count(shown.begin(), shown.end(), u'\n'), static_cast<std::ptrdiff_t>(c.entries));
    }
}

TEST(KeyBlock, ACutCostsWhatLiesBehindIt)
{
    const std::vector<uint8_t> whole = Block("\0\0\0\x2"s + kEntries);
    ASSERT_EQ(whole.size(), 39u);
    for (size_t size = 0; size < whole.size(); ++size) {
        SCOPED_TRACE(size);
        // Of its own, so that a read beyond it is seen.
        const std::vector<uint8_t> cut(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size));
        Keymap keymap;
        const KeyBlockEnd end = ReadKeyBlock(cut, keymap);
        const bool inIndex = (size > 4 && size < 8) || (size > 21 && size < 25);
        EXPECT_EQ(end, size < 4 ? KeyBlockEnd::NoCount : inIndex ? KeyBlockEnd::InAnIndex : KeyBlockEnd::Whole);
        EXPECT_EQ(keymap.GetFunction(0x41), size >= 15 ? kFunctionSend : kFunctionNone);
        EXPECT_EQ(keymap.GetString(0x41), size >= 20   ? u"x"
                                          : size == 19 ? u"\u00EF\u00BB\u00BF" // three bytes alone are no mark
                                          : size == 18 ? u"\u00EF\u00BB"
                                          : size == 17 ? u"\u00EF"
                                                       : u"");
        EXPECT_EQ(keymap.GetFunction(0x242), size >= 34 ? 119u : kFunctionNone);
    }
}

TEST(KeyBlock, AnyByteMayBeWrong)
{
    std::vector<uint8_t> block = Block("\0\0\0\x2"s + kEntries);
    for (uint8_t& byte : block) {
        const uint8_t kept = byte;
        for (unsigned wrong = 0; wrong < 256; ++wrong) {
            byte = static_cast<uint8_t>(wrong);
            Keymap keymap;
            ReadKeyBlock(block, keymap);
            Keymap back; // whatever was read is as good as any other map
            EXPECT_EQ(ReadKeyBlock(WriteKeyBlock(keymap.OwnBindings()), back), KeyBlockEnd::Whole);
            EXPECT_TRUE(back.OwnBindings() == keymap.OwnBindings());
        }
        byte = kept;
    }
}

TEST(KeyBlock, EntriesThatMeanNothingAreSkipped)
{
    const std::string good = "\0\0\0\x42VT_HELP\0\xE4\0"s;
    for (const std::string& bad :
         {"\0\0\x10\x41SEND\0x\0"s, "\xFF\xFF\xFF\xFFSEND\0x\0"s, "\0\0\0\x41NONE\0x\0"s, "\0\0\0\x41\0x\0"s,
          "\0\0\0\x41SEND\xFF\0x\0"s, "\0\0\0\x41\xEF\xBB\xBFSEND\xFF\0x\0"s}) {
        Keymap keymap;
        ReadKeyBlock(Block("\0\0\0\x2"s + bad + good), keymap);
        EXPECT_EQ(test::Show(keymap.OwnBindings()), u"042 153 '\u00E4'\n");
    }
    Keymap keymap;
    ReadKeyBlock(Block("\0\0\0\x1\0\0\0\x41SEND\0\xEF\xBB\xBFz\xC3\xBC\xFFy\xE2\x82\0"s), keymap);
    EXPECT_EQ(keymap.GetString(0x41), u"z\u00FC\uFFFDy\uFFFD\uFFFD");
}

} // namespace
} // namespace ostrand
