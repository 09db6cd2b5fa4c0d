#include "stores/file_format.h"
#include "stores/file_names.h"
#include "stores/file_render.h"

#include <gtest/gtest.h>

#include <optional>
#include <random>
#include <string>

namespace ostrand {
namespace {

constexpr auto kDword = VProfileValueType::Dword;
constexpr auto kText = VProfileValueType::String;
constexpr auto kBlock = VProfileValueType::Binary;
constexpr auto kList = VProfileValueType::MultiSz;
constexpr auto kOther = VProfileValueType::Other;

TEST(FileFormat, AValueHasTheKindThatItsSpellingTells)
{
    struct Case {
        std::string_view value;
        std::optional<VProfileValueType> kind;
    };
    const Case cases[] = {
        {"0", kDword},
        {"4294967295", kDword},
        {"4294967296", {}},
        {"99999999999999999999999999", {}},
        {"007", kDword},
        {"0x00FF80", kDword},
        {"0Xffffffff", kDword},
        {"0x100000000", {}},
        {"0x", {}},
        {"-1", {}},
        {"1.5", {}},
        {"12a", {}},
        {"1 2", {}},
        {"1 ; no comment here", {}},
        {"7 \t", kDword},
        {R"("")", kText},
        {R"("a\"b")", kText},
        {R"("ends in \\")", kText},
        {R"("open)", {}},
        {R"("open\")", {}},
        {R"("a" b)", {}},
        {R"("bad \x escape")", {}},
        {R"("short \u12")", {}},
        {R"("\u0041\uD800")", kText},
        {"\"tab\there\"", kText},
        {"\"bell\x07\"", {}},
        {std::string_view("\"zero\0\"", 7), {}},
        {"\"\xC3\xA9\"", kText},
        {"\"cut \xC3\"", {}},
        {"\"surrogate \xED\xA0\x80\"", {}},
        {"'single'", {}},
        {"hex:", kBlock},
        {"hex:00fFaB", kBlock},
        {"hex:0", {}},
        {"hex:0011223344556677 8", {}},
        {"hex:00112233445566gg", {}},
        {"hex: 00", {}},
        {"[]", kList},
        {"[ ]", kList},
        {R"(["a"])", kList},
        {R"( ["a" ,"b", ""] )", {}}, // the blank in front belongs to the line, not to the value
        {R"(["a" ,"b",	""] )", kList},
        {R"(["a",])", {}},
        {R"(["a" "b"])", {}},
        {R"([a])", {}},
        {R"(["a")", {}},
        {R"(["a"] x)", {}},
        {"qword:12", kOther},
        {"time2:2024-01-01 [x]", kOther},
        {"qword", {}},
        {":x", {}},
        {"2x:1", {}},
        {"tag:\x01", {}},
        {"tag:\xFF", {}},
        {"true", {}},
        {"", {}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(std::string(c.value));
        EXPECT_EQ(KindOfValue(c.value), c.kind);
        const std::string line = std::string(c.value) + "\r\nNext = 1\n";
        EXPECT_EQ(KindOfValue(line), c.kind) << "the line's end ends the value";
    }
}

TEST(FileFormat, ALineIsCutAtItsName)
{
    struct Case {
        std::string_view line;
        std::optional<std::u16string> name;
        std::string_view value = {};
    };
    const Case cases[] = {
        {"A = 1", u"A", "1"},
        {"  Show  Toolbar\t=  \"x\"", u"Show  Toolbar", "\"x\""},
        {"A=1=2", u"A", "1=2"},
        {"A =", u"A", ""},
        {"\"a = \\\"b\\\"\" = 1", u"a = \"b\"", "1"},
        {"\"\" = 1", u"", "1"},
        {"\"\\u003b\\ud800\"=1", std::u16string{u';', 0xD800}, "1"},
        {"\xC3\xA4 = 1", u"\u00E4", "1"},
        {"back\\slash = 1", u"back\\slash", "1"},
        {"; A = 1", {}},
        {"  # A = 1", {}},
        {"[A] = 1", {}},
        {"= 1", {}},
        {"  = 1", {}},
        {"A", {}},
        {"", {}},
        {"\"A = 1", {}},
        {"\"A\" B = 1", {}},
        {"A\"B = 1", {}},
        {"A\x02 = 1", {}},
        {"\xFF = 1", {}},
        {"\"\\q\" = 1", {}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(std::string(c.line));
        ValueParts parts;
        std::u16string name;
        const bool isValue = CutLine(c.line, parts) && DecodeName(parts.name, name);
        ASSERT_EQ(isValue, c.name.has_value());
        if (isValue) {
            EXPECT_EQ(name, *c.name);
            EXPECT_EQ(parts.value, c.value);
        }
    }
}

TEST(FileFormat, RenderedFormsAreForPeople)
{
    const char16_t lone[] = {u'a', 0xDFFF, 0};
    EXPECT_EQ(RenderDword(16711680), "16711680");
    EXPECT_EQ(RenderText(u"say \"h\u00E9\" \\ \t\r\n\x1B\x7F"),
              "\"say \\\"h\xC3\xA9\\\" \\\\ \\t\\r\\n\\u001b\\u007f\"");
    EXPECT_EQ(RenderText(lone), "\"a\\udfff\"");
    EXPECT_EQ(RenderBlock("\x00\xAB\x7F", 3), "hex:00ab7f");
    VStringArray list;
    EXPECT_EQ(RenderList(list), "[]");
    list.Append(u"a");
    list.Append(u"");
    EXPECT_EQ(RenderList(list), "[\"a\", \"\"]");
    EXPECT_EQ(RenderName(u"Show Toolbar V2"), "Show Toolbar V2");
    EXPECT_EQ(RenderName(u"a;b#c[d]\\"), "a;b#c[d]\\");
    for (const char16_t* const quoted :
         {u"", u" a", u"a ", u"a=b", u"a\"b", u";a", u"#a", u"[a", u"a\tb", u"\uFEFFa", lone}) {
        const std::string name = RenderName(quoted);
        EXPECT_TRUE(name.starts_with('"') && name.ends_with('"')) << name;
    }
}

TEST(FileFormat, SpellingDoesNotChangeAValue)
{
    struct Case {
        const char* spelled;
        const char* rendered;
        bool isSame;
    };
    const Case cases[] = {
        {"0x10", "16", true},
        {"0016 ", "16", true},
        {"17", "16", false},
        {"\"16\"", "16", false},
        {"\"\\u0041\"", "\"A\"", true},
        {"\"\t\"", "\"\\t\"", true},
        {"\"\\u000A\"", "\"\\n\"", true},
        {"\"\\uD83D\\uDE00\"", "\"\xF0\x9F\x98\x80\"", true},
        {"\"a\"", "\"A\"", false},
        {"hex:AbCdEf0123", "hex:abcdef0123", true},
        {"hex:ab", "hex:abcd", false},
        {"[\"a\",\"b\"]", "[\"a\", \"b\"]", true},
        {"[ \"\\u0061\" , \"b\" ]", "[\"a\", \"b\"]", true},
        {"[\"a b\"]", "[\"ab\"]", false},
        {"[\"a\\\"\", \"b\"]", "[\"a\\\", \\\"b\"]", false},
        {"[\"ab\"]", "[\"a\", \"b\"]", false},
        {"[\"\"]", "[]", false},
        {"[\"1\"]", "\"1\"", false},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.spelled);
        EXPECT_EQ(SameValue(c.spelled, c.rendered), c.isSame);
        EXPECT_EQ(HashValue(c.spelled) == HashValue(c.rendered), c.isSame);
        EXPECT_EQ(HashValue(std::string(c.spelled) + "\r\nB = 1\n"), HashValue(c.spelled));
    }
}

TEST(FileFormat, BlocksOfAllLengthsDecode)
{
    std::mt19937 random(7);
    std::string bytes;
    for (int size = 0; size < 40; ++size) {
        const std::string rendered = RenderBlock(bytes.data(), bytes.size());
        std::string_view digits;
        ASSERT_EQ(ParseBlock(rendered, digits), ReadOutcome::Good);
        std::string back(digits.size() / 2, '\0');
        DecodeBlock(digits, back.data());
        EXPECT_EQ(back, bytes);
        bytes += static_cast<char>(random());
    }
    for (size_t i = 0; i < 16; ++i) // one bad digit at each place of a word
        for (const char bad : {'/', ':', '@', 'G', '`', 'g', '\x10', '\xB0', ' '}) {
            std::string rendered = "hex:0123456789abcdef";
            rendered[4 + i] = bad;
            std::string_view digits;
            EXPECT_EQ(ParseBlock(rendered, digits), ReadOutcome::Broken) << rendered;
        }
}

TEST(FileNames, EachKeyHasOneFileName)
{
    struct Case {
        std::u16string name;
        std::string file;
    };
    const Case cases[] = {
        {u"Router 1", "Router 1"},
        {u"\u00DCber\U0001F600", "\xC3\x9C"
                                 "ber\xF0\x9F\x98\x80"},
        {u"100%", "100%25"},
        {u"a/b", "a%2Fb"},
        {u".", "%2E"},
        {u"..", "%2E%2E"},
        {u".a.b", "%2Ea.b"},
        {u"a.", "a%2E"},
        {u"a ", "a%20"},
        {u" a", " a"},
        {u"a. .", "a. %2E"},
        {u"x.ini", "x%2Eini"},
        {u"x.INI", "x%2EINI"},
        {u"x.ini.y", "x.ini.y"},
        {u".ini", "%2Eini"},
        {u"a\nb\x7F", "a%0Ab%7F"},
        {std::u16string{u'a', 0xD800}, "a%ED%A0%80"},
        {std::u16string{0xDFFF, u'b'}, "%ED%BF%BFb"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.file);
        std::u16string back;
        EXPECT_EQ(EncodeKeyName(c.name), c.file);
        EXPECT_TRUE(DecodeKeyName(c.file, back));
        EXPECT_EQ(back, c.name);
    }
    std::u16string name;
    for (const char* const foreign : {"", "%root", "%lock", "%tmp-12", ".hidden", "a.", "a ", "100%", "%2", "%2e",
                                      "%41", "\xFF", "a\\b", "x.ini", "%ED%A0%80%ED%B0%80", "%ED%80%80", "%ED%A0"})
        EXPECT_FALSE(DecodeKeyName(foreign, name)) << foreign;
}

TEST(FileNames, AnyNameComesBackFromItsFileName)
{
    std::mt19937 random(11);
    const std::u16string units =
        std::u16string(u"ab.. %/ini\x01\x7F\u00E9I\u65E5:") + std::u16string{0xD800, 0xDC00, 0xDBFF, 0xDFFF};
    for (int round = 0; round < 20000; ++round) {
        std::u16string name(1 + random() % 9, u'x');
        for (char16_t& c : name)
            c = units[random() % units.size()];
        const std::string file = EncodeKeyName(name);
        std::u16string back;
        ASSERT_TRUE(DecodeKeyName(file, back)) << file;
        ASSERT_EQ(back, name) << file;
        ASSERT_FALSE(file.starts_with('.') || file.ends_with('.') || file.ends_with(' ') || file.ends_with(".ini") ||
                     file.find('/') != std::string::npos)
            << file;
    }
}

} // namespace
} // namespace ostrand
