#include "core/format.h"

#include "core/scan.h"
#include "platform/error_codes.h"

#include <gtest/gtest.h>

#include <cstdio>

namespace ostrand {
namespace {

TEST(Format, FillsNumberedInserts)
{
    EXPECT_EQ(Format(u"no inserts here"), u"no inserts here");
    EXPECT_EQ(Format(u""), u"");
    EXPECT_EQ(Format(u"%2 before %1, %1", u"a", VUnicodeString(u"b")), u"b before a, a");
    EXPECT_EQ(Format(u"%1\t%2!-6s!|%2!6s!|%2!.1s!", u"AS", u"VK"), u"AS\tVK    |    VK|V");
    EXPECT_EQ(Format(u"%1!02x!%2!02x! 0x%3!X!", 5, 255, 220), u"05ff 0xDC");
    EXPECT_EQ(Format(u"%1!c!%1!4c!%1!-3c!|", u'z'), u"z   zz  |");
    EXPECT_EQ(Format(u"%1!hs! %1!ls!", u"narrow"), u"narrow narrow");
    EXPECT_EQ(Format(u"%1", static_cast<const char16_t*>(nullptr)), u"");
    EXPECT_EQ(Format(u"%10%11%1", u"a", u"b", u"c", u"d", u"e", u"f", u"g", u"h", u"i", u"j", u"k"), u"jka");
    EXPECT_EQ(Format(u"%100", u"a", u"b", u"c", u"d", u"e", u"f", u"g", u"h", u"i", u"j"), u"j0")
        << "two digits at most";
}

TEST(Format, KnowsTheEscapes)
{
    const struct {
        std::u16string_view format, text;
    } kCases[] = {
        {u"100%% of it", u"100% of it"},
        {u"%%%%", u"%%"},
        {u"a%nb%rc", u"a\r\nb\rc"},
        {u"a%tb%bc", u"a\tb c"},
        {u"stop%!%.", u"stop!."},
        {u"seen%0unseen", u"seen"},
        {u"%0", u""},
        {u"a % b", u"a  b"},
        {u"lone%", u"lone%"},
        {u"%%1", u"%1"},
    };
    for (const auto& c : kCases) {
        SCOPED_TRACE(ToUtf8(c.format));
        EXPECT_EQ(Format(c.format), c.text);
        EXPECT_EQ(FormatIgnoringInserts(c.format), c.text) << "the escapes work without inserts, too";
    }
}

TEST(Format, WhatDoesntFitLeavesTheInsertsAsTyped)
{
    const VFormatArgument text[] = {u"one"};
    const VFormatArgument number[] = {1};
    const struct {
        std::u16string_view format;
        std::span<const VFormatArgument> arguments;
        std::u16string_view text;
    } kCases[] = {
        {u"%1 and %2", text, u"%1 and %2"},
        {u"%1 100%%%n", {}, u"%1 100%\r\n"},
        {u"%1!d! files", text, u"%1!d! files"},
        {u"%1!s!", number, u"%1!s!"},
        {u"%1", number, u"%1"},
        {u"Hello %1!", text, u"Hello %1!"},
        {u"%1!!", text, u"%1!!"},
        {u"%1!q!", number, u"%1!q!"},
        {u"%1!*d!", number, u"%1!*d!"},
        {u"%1!dd!", number, u"%1!dd!"},
        {u"%99!d!%%", number, u"%99!d!%"},
        {u"%1!4097d!", number, u"%1!4097d!"},
        {u"%1!.99999999999999999999d!", number, u"%1!.99999999999999999999d!"},
        {u"%1!s! %2!+d!", text, u"%1!s! %2!+d!"},
    };
    for (const auto& c : kCases) {
        SCOPED_TRACE(ToUtf8(c.format));
        VUnicodeString out(u"untouched");
        EXPECT_EQ(FormatMessageText(c.format, c.arguments, VFormatLines::Keep, out), kErrorInvalidParameter);
        EXPECT_EQ(out, u"untouched");
        EXPECT_EQ(FormatList(c.format, c.arguments), c.text);
    }
    EXPECT_EQ(Format(u"%1!4096d!", 7).GetLength(), 4096u);
}

TEST(Format, OneLineTurnsLineBreaksOfTheTemplateIntoBlanks)
{
    const VFormatArgument arguments[] = {u"x\r\ny"};
    VUnicodeString out;
    ASSERT_EQ(FormatMessageText(u"a\r\nb\rc\n\r\n%1%nd", arguments, VFormatLines::AsBlanks, out), kErrorSuccess);
    EXPECT_EQ(out, u"a b c  x\r\ny\r\nd") << "arguments and written line ends stay";
    EXPECT_EQ(FormatIgnoringInserts(u"a\r\n\r\n%1", VFormatLines::AsBlanks), u"a  %1");
    ASSERT_EQ(FormatMessageText(u"a\r\nb\rc\n", {}, VFormatLines::Keep, out), kErrorSuccess);
    EXPECT_EQ(out, u"a\r\nb\rc\n");
}

// The C library is the measure for flags, width and precision.
TEST(Format, NumbersComeOutAsPrintfWritesThem)
{
    constexpr long long kValues[] = {
        0, 1, -1, 8, 42, 255, -4000, 2147483647, -2147483648LL, 0x7FFFFFFFFFFFFFFF, -0x7FFFFFFFFFFFFFFF - 1};
    for (const char* const flags : {"", "-", "0", "+", " ", "#", "-0", "+0", " #", "#0", "-#", "+-"})
        for (const char* const width : {"", "1", "7", "24"})
            for (const char* const precision : {"", ".", ".0", ".1", ".5", ".23"})
                for (const char conversion : {'d', 'i', 'u', 'x', 'X', 'o'}) {
                    const std::string spec = std::string(flags) + width + precision;
                    const std::string own = "%1!" + spec + conversion + "!";
                    SCOPED_TRACE(own);
                    for (const long long value : kValues) {
                        char whole[64];
                        std::snprintf(whole, sizeof whole, ("%" + spec + "ll" + conversion).c_str(), value);
                        const std::u16string format(own.begin(), own.end());
                        EXPECT_EQ(ToUtf8(Format(format, value)), whole);
                        std::snprintf(whole, sizeof whole, ("%" + spec + conversion).c_str(), static_cast<int>(value));
                        EXPECT_EQ(ToUtf8(Format(format, static_cast<int>(value))), whole);
                    }
                }
}

TEST(Format, LongIsThirtyTwoBits)
{
    EXPECT_EQ(Format(u"%1!ld! %1!lu! %1!lx!", int64_t{-1}), u"-1 4294967295 ffffffff");
    EXPECT_EQ(Format(u"%1!x!", int64_t{-1}), u"ffffffffffffffff");
    EXPECT_EQ(Format(u"%1!d! %1!u!", static_cast<short>(-2)), u"-2 4294967294");
    EXPECT_EQ(Format(u"%1!d! %2!d!", static_cast<unsigned char>(200), 4000000000u), u"200 -294967296");
}

TEST(Scanner, ReadsNumbersAsTheCLibraryDoes)
{
    const struct {
        std::u16string_view text;
        bool read;
        int value;
        std::u16string_view rest;
    } kCases[] = {
        {u"12,3", true, 12, u",3"},
        {u" \t\n-7x", true, -7, u"x"},
        {u"+5", true, 5, u""},
        {u"2147483648", true, -2147483647 - 1, u""},
        {u"4294967297 1", true, 1, u" 1"},
        {u"99999999999999999999999999", true, -469762049, u""},
        {u"", false, 0, u""},
        {u"  x", false, 0, u"x"},
        {u"-", false, 0, u"-"},
        {u"- 1", false, 0, u"- 1"},
        {u"--1", false, 0, u"--1"},
    };
    for (const auto& c : kCases) {
        SCOPED_TRACE(ToUtf8(c.text));
        VScanner in(c.text);
        int value = 0;
        EXPECT_EQ(in.Int(value), c.read);
        EXPECT_EQ(value, c.value);
        EXPECT_EQ(in.Rest(), c.rest);
    }
}

TEST(Scanner, WalksAListOfFields)
{
    VScanner in(u"0,-1  name with,4294967295,");
    int number = 7;
    uint32_t large = 0;
    std::u16string_view word;
    EXPECT_TRUE(in.Int(number) && number == 0);
    EXPECT_FALSE(in.Literal(u';'));
    EXPECT_TRUE(in.Literal(u','));
    EXPECT_TRUE(in.UnsignedLong(large) && large == 4294967295u);
    EXPECT_TRUE(in.Word(word) && word == u"name");
    EXPECT_FALSE(in.Literal(u'w')) << "a literal skips no blanks";
    EXPECT_TRUE(in.Word(word) && word == u"with,4294967295,");
    EXPECT_FALSE(in.Word(word));
    EXPECT_EQ(word, u"with,4294967295,");
    EXPECT_FALSE(in.Int(number));
}

} // namespace
} // namespace ostrand
