// The table of value classes from the inside: what no global value has yet, and the texts around it.
#include "profile/schema.h"
#include "profile/time_value.h"
#include "tools/suggest.h"
#include "tools/text.h"
#include "tools/value_json.h"
#include "tools/words.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>

namespace ostrand::tool {
namespace {

VSchemaEntry EntryOf(VValueClass type)
{
    VSchemaEntry entry;
    entry.type = type;
    return entry;
}

TEST(ValueWords, TriStatesHaveThree)
{
    const VSchemaEntry entry = EntryOf(VValueClass::TriState);
    VProfile<VTriState> value;
    std::string problem;
    const auto set = [&](const std::string& word) { return SetFromWords(entry, value, std::array{word}, problem); };
    EXPECT_TRUE(set("undetermined"));
    EXPECT_EQ(ValueToJson(entry.type, value), Json());
    EXPECT_EQ(ValueToText(Json()), "undetermined");
    EXPECT_TRUE(set("1"));
    EXPECT_EQ(ValueToJson(entry.type, value), true);
    EXPECT_FALSE(set("2"));
    EXPECT_THAT(problem, testing::HasSubstr("true, false or undetermined, not '2'"));
}

TEST(ValueWords, TimesAreTheirText)
{
    const VSchemaEntry entry = EntryOf(VValueClass::Time);
    VProfileTime value;
    std::string problem;
    EXPECT_TRUE(SetFromWords(entry, value, std::array<std::string, 1>{"2024:02:29:12:34:56:789"}, problem));
    EXPECT_EQ(ValueToJson(entry.type, value), "2024:02:29:12:34:56:789");
    EXPECT_FALSE(SetFromWords(entry, value, std::array<std::string, 1>{"2023:02:29:12:34:56:789"}, problem));
}

TEST(ValueWords, AFailedSetLeavesEveryField)
{
    const VSchemaEntry entry = EntryOf(VValueClass::Margins);
    VProfileMargins value;
    std::string problem;
    EXPECT_FALSE(SetFromWords(entry, value, std::array<std::string, 2>{"left=1", "top=x"}, problem));
    EXPECT_EQ(value.left, 0);
}

TEST(ValueWords, ColumnsBehindTheCountAreNotShown)
{
    VProfileListViewState value;
    value = VUnicodeString(u"1,2,3,4,1,100");
    value.columns.Append({});
    EXPECT_EQ(ValueToText(ValueToJson(VValueClass::ListView, value)),
              "first=true second=2 third=3 fourth=4 columns=100:true:0");
}

TEST(Words, ReadNumbersWhole)
{
    const auto none = std::optional<int64_t>();
    for (const auto& [word, number] : {std::pair("0", std::optional<int64_t>(0)),
                                       {"-7", -7},
                                       {"+7", 7},
                                       {"0x1F", 31},
                                       {"-0X10", -16},
                                       {"9223372036854775807", 9223372036854775807},
                                       {"9223372036854775808", none},
                                       {"", none},
                                       {"-", none},
                                       {"--1", none},
                                       {"+-1", none},
                                       {"0x", none},
                                       {"0x-1", none},
                                       {" 1", none},
                                       {"1 ", none},
                                       {"1.0", none}})
        EXPECT_EQ(ReadNumber(word), number) << word;
    EXPECT_EQ(ReadReal("1e2"), 100);
    for (const char* word : {"", "inf", "nan", "1x", "1e999"})
        EXPECT_EQ(ReadReal(word), std::nullopt) << word;
    EXPECT_EQ(ReadBlock("hex:"), std::vector<uint8_t>());
    for (const char* word : {"", "00", "hex:0", "hex:0g", "hex:-1", "HEX:00"})
        EXPECT_EQ(ReadBlock(word), std::nullopt) << word;
}

TEST(Texts, NeverLoseNorShowWhatATerminalMustNotGet)
{
    const std::u16string wild = u"a\"\\\n\t\x1B\x7F\x9B\xE9\xDC00x\xD800y\xD83D\xDE00";
    EXPECT_EQ(Quoted(Lossless(wild)), "\"a\\\"\\\\\\n\\t\\u001B\\u007F\\u009Bé\\uDC00x\\uD800y\U0001F600\"");
    EXPECT_EQ(Plain(Lossless(wild)).substr(0, 5), "a\"\\\n\t");
    EXPECT_EQ(Cited("a\xC3"), "'a', which isn't UTF-8");
    EXPECT_EQ(Cited(std::string(100, 'n')).size(), 65u);
}

TEST(Suggestions, AreNearOrNone)
{
    const std::array<std::string, 3> names = {"MRU Count", "Max Columns", "Log File"};
    EXPECT_EQ(NearestName("mru cuont", names), "MRU Count");
    EXPECT_EQ(NearestName("LogFile", names), "Log File");
    EXPECT_EQ(NearestName("Columns", names), "");
    EXPECT_EQ(NearestName("", names), "");
    EXPECT_EQ(NearestName(std::string(10'000, 'm'), names), "");
}

} // namespace
} // namespace ostrand::tool
