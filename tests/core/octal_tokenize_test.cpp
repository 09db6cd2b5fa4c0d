#include "core/messages.h"
#include "core/octal.h"
#include "core/tokenize.h"

#include <gtest/gtest.h>

#include <limits>
#include <vector>

namespace ostrand {
namespace {

constexpr unsigned kAll = std::numeric_limits<unsigned>::max();

TEST(Octal, ChecksDigitsThenSizeThenMaximum)
{
    const struct {
        std::u16string text;
        unsigned maximum;
        unsigned code;
        unsigned value;
    } kCases[] = {
        {u"", 0, 0, 0},
        {u"0", 0, 0, 0},
        {u"377", 255, 0, 255},
        {u"400", 255, kOctalAboveMaximum, 0},
        {u"0644", 511, 0, 420},
        {u"37777777777", kAll, 0, kAll},
        {u"40000000000", kAll, kOctalOverflow, 0},
        {u"40000000000", 5, kOctalOverflow, 0},
        {std::u16string(500, u'0') + u"17", 15, 0, 15},
        {std::u16string(500, u'7'), kAll, kOctalOverflow, 0},
        {std::u16string(500, u'7') + u"8", kAll, kOctalInvalidDigit, 0},
        {u"8", 255, kOctalInvalidDigit, 0},
        {u"7a", 0, kOctalInvalidDigit, 0},
        {u"-1", 255, kOctalInvalidDigit, 0},
        {u" 7", 255, kOctalInvalidDigit, 0},
        {u"\u0667", 255, kOctalInvalidDigit, 0},
    };
    for (const auto& c : kCases) {
        SCOPED_TRACE(ToUtf8(c.text));
        VReportMessageParams report;
        unsigned value = 99;
        EXPECT_EQ(ParseOctal(c.text, c.maximum, &value, report), c.code == 0);
        EXPECT_EQ(report.GetCode(), c.code);
        EXPECT_EQ(value, c.code == 0 ? c.value : 99);
    }
}

using Pieces = std::vector<std::u16string>;

Pieces AsVector(const VStringArray& list)
{
    Pieces pieces;
    for (const VUnicodeString& piece : list)
        pieces.emplace_back(piece.View());
    return pieces;
}

TEST(Tokenize, GivesAPieceBetweenAnyTwoSeparators)
{
    VStringArray out;
    out.Append(u"from before");
    Tokenize(u"a,b,c", out, u',');
    EXPECT_EQ(AsVector(out), (Pieces{u"a", u"b", u"c"}));
    Tokenize(u",a,,b,", out, u',');
    EXPECT_EQ(AsVector(out), (Pieces{u"", u"a", u"", u"b", u""}));
    Tokenize(u"", out, u',');
    EXPECT_EQ(AsVector(out), (Pieces{u""}));
    Tokenize(u"\"a,b\"", out, u',');
    EXPECT_EQ(AsVector(out), (Pieces{u"\"a", u"b\""})) << "the short form knows no quotes";
}

TEST(Tokenize, FullerFormKnowsQuotesAndLongSeparators)
{
    constexpr std::u16string_view kSeparators[] = {u"", u"::", u" ", u":"};
    constexpr std::u16string_view kQuotes[] = {u"\"\"", u"()", u"x"};
    const struct {
        std::u16string_view text;
        bool dropEmpty, stripQuotes, closed;
        Pieces pieces;
    } kCases[] = {
        {u"a \"b c\" d", false, true, true, {u"a", u"b c", u"d"}},
        {u"a \"b c\" d", false, false, true, {u"a", u"\"b c\"", u"d"}},
        {u"a::b:c", false, true, true, {u"a", u"b", u"c"}},
        {u" a  b ", true, true, true, {u"a", u"b"}},
        {u" a  b ", false, true, true, {u"", u"a", u"", u"b", u""}},
        {u"pre\"in side\"post", false, true, true, {u"prein sidepost"}},
        {u"(a (b) c", false, true, true, {u"a (b", u"c"}}, // quotes don't nest
        {u"(a\" \")", false, true, true, {u"a\" \""}},     // nor mix
        {u"a \"b c", false, true, false, {u"a", u"b c"}},
        {u"a)b", false, true, true, {u"a)b"}},
        {u"\"\" \"\"", true, true, true, {}},
        {u"\"\" \"\"", true, false, true, {u"\"\"", u"\"\""}},
        {u"", true, true, true, {}},
    };
    for (const auto& c : kCases) {
        SCOPED_TRACE(ToUtf8(c.text));
        VStringArray out;
        EXPECT_EQ(
            Tokenize(
                c.text, out,
                {.separators = kSeparators, .quotes = kQuotes, .dropEmpty = c.dropEmpty, .stripQuotes = c.stripQuotes}),
            c.closed);
        EXPECT_EQ(AsVector(out), c.pieces);
    }
}

} // namespace
} // namespace ostrand
