// Values and texts: what Parse makes of them, and texts of several lines.
#include "core/messages.h"
#include "profile/multi_line.h"
#include "profile/values.h"
#include "profile/window_placement.h"

#include <gtest/gtest.h>

#include <climits>

namespace ostrand {
namespace {

/// Answers as it is told to, and remembers the flag.
class ScriptedParser : public IProfileValueParser {
public:
    bool ParseStringArray(VStringArray* out, const VUnicodeString& text, IReportMessageParams& report,
                          bool flag) override
    {
        VUnicodeString element;
        out->RemoveAll();
        const bool answer = ParseString(&element, text, report, flag);
        out->Append(element);
        return answer;
    }
    bool ParseString(VUnicodeString* out, const VUnicodeString& text, IReportMessageParams& report, bool flag) override
    {
        lastFlag = flag;
        *out = VUnicodeString(u"parsed ") += text;
        return code == 0 || Fail(report, code, text);
    }
    bool ParseReserved(void*, const VUnicodeString&, IReportMessageParams&) override { return false; }
    bool ParseBool(bool* out, const VUnicodeString& text) override
    {
        *out = text == u"yes";
        return code == 0;
    }

    unsigned code = 0;
    bool lastFlag = false;
};

template <class T>
void ExpectParsed(const char16_t* text, int radix, T expected)
{
    VProfile<T> number;
    number.dirty = true;
    number.radix = radix;
    VReportMessageParams report;
    EXPECT_TRUE(number.Parse(text, nullptr, report));
    EXPECT_EQ(number.value, expected) << ToUtf8(text);
    EXPECT_EQ(number.saved, expected);
    EXPECT_FALSE(number.dirty);
}

TEST(ParseNumber, ReadsTheBytesUpToTheFirstZero)
{
    ExpectParsed<int>(u"7", 10, 7);
    ExpectParsed<int>(u"12", 10, 1);
    ExpectParsed<int>(u"-5", 10, 0);
    ExpectParsed<int>(u"x", 10, 0);
    ExpectParsed<int>(u"", 10, 0);
    ExpectParsed<int>(u"f", 16, 15);
    ExpectParsed<int>(u"8", 8, 0);
    ExpectParsed<int>(u"\u3231\u3433\u0035\u3636", 10,
                      12345); // two digits in each character, up to the one with a zero
    ExpectParsed<int>(u"\u3100", 10, 0);
    ExpectParsed<int>(u"\u3939\u3939\u3939", 10, 999999);
    ExpectParsed<int>(u"\u3939\u3939\u3939\u3939\u3939", 10, INT_MAX);
    ExpectParsed<int>(u"\u392D\u3939\u3939\u3939\u3939\u3939", 10, INT_MIN);
    ExpectParsed<unsigned>(u"\u312D", 10, UINT_MAX);
    ExpectParsed<unsigned long>(u"\u312D", 10, 0xFFFFFFFFul);
    ExpectParsed<VTriState>(u"2", 10, VTriState::Undetermined);
}

TEST(ParseText, FailureLeavesTheValueUnlessTheParserHasNoOpinion)
{
    struct {
        unsigned code;
        bool result;
        const char16_t* value;
        unsigned codeBehind;
    } const cases[] = {
        {0, true, u"parsed text", 0},
        {kParserHasNoOpinion, true, u"text", 0},
        {kNameInUse, false, u"before", kNameInUse},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.code);
        ScriptedParser parser;
        parser.code = c.code;
        VReportMessageParams report;
        VProfile2<VUnicodeString, VProfileSz> value;
        value.Load(nullptr, u"before");
        EXPECT_EQ(value.Parse(u"text", &parser, report), c.result);
        EXPECT_EQ(value.Value(), c.value);
        EXPECT_EQ(value.IsDirty(), !c.result);
        EXPECT_FALSE(value.IsModified());
        EXPECT_EQ(report.GetCode(), c.codeBehind);
        EXPECT_EQ(report.GetArgumentCount(), c.codeBehind ? 1 : 0);
        EXPECT_TRUE(parser.lastFlag);
    }
}

TEST(ParseText, OtherClasses)
{
    ScriptedParser parser;
    VReportMessageParams report;
    VProfile<bool> flag;
    EXPECT_TRUE(flag.Parse(u"yes", &parser, report));
    EXPECT_TRUE(flag.value && flag.saved);
    parser.code = kNameInUse;
    EXPECT_FALSE(flag.Parse(u"no", &parser, report));
    EXPECT_TRUE(flag.value);

    parser.code = 0;
    VProfile2<VStringArray, VProfileMultiSz> list;
    for (const bool option : {true, false}) {
        list.parserOption = option;
        EXPECT_TRUE(list.Parse(u"text", &parser, report));
        EXPECT_EQ(parser.lastFlag, !option);
    }
    EXPECT_EQ(list[0], u"parsed text");
    EXPECT_FALSE(list.IsModified());

    VProfileWindowPlacement placement;
    EXPECT_FALSE(placement.Parse(u"text", &parser, report)) << "records have no text";
}

TEST(MultiLine, SplitsAtLineEndsAndJoinsWithBothCharacters)
{
    struct {
        const char16_t* text;
        std::vector<const char16_t*> lines;
        const char16_t* joined;
    } const cases[] = {
        {u"a\r\nb\nc\r", {u"a", u"b", u"c"}, u"a\r\nb\r\nc"},
        {u"one", {u"one"}, u"one"},
        {u"a\n", {u"a", u""}, u"a\r\n"},
        {u"\r\r\n\rb", {u"\r", u"\rb"}, u"\r\r\n\rb"},
        {u"", {u""}, u""},
        {nullptr, {u""}, u""},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.text ? ToUtf8(c.text) : "null");
        VProfileMultiLineString value;
        value.SetText(u"of\nbefore");
        value.SetText(c.text);
        ASSERT_EQ(value.GetCount(), c.lines.size());
        for (size_t i = 0; i < c.lines.size(); ++i)
            EXPECT_EQ(value[i], c.lines[i]);
        EXPECT_EQ(value.GetText(), c.joined);
    }
    EXPECT_EQ(VProfileMultiLineString().GetText(), u"");
}

} // namespace
} // namespace ostrand
