// Schemes in JSON as people keep it: alone, in lists, in settings; with comments, and with faults.
#include "tests/imports/import_scene.h"

#include "imports/relaxed_json.h"
#include "imports/windows_terminal_schemes.h"

namespace ostrand::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

Imported Read(std::string_view json) { return Import(ReadWindowsTerminalSchemes, json); }

const std::string kAnsi = R"("black":"#000001","red":"#000002","green":"#000003","yellow":"#000004","blue":"#000005",
    "purple":"#000006","cyan":"#000007","white":"#000008","brightBlack":"#000009","brightRed":"#00000a",
    "brightGreen":"#00000b","brightYellow":"#00000c","brightBlue":"#00000d","brightPurple":"#00000e",
    "brightCyan":"#00000f","brightWhite":"#000010")";

TEST(WindowsTerminalSchemes, SettingsGiveTheirSchemesAndNothingElse)
{
    const Imported imported = Read(R"(// { "schemes": 5 }
        { "foreground": "#f00", "background": "#0f0", // of no scheme
          "profiles": { "list": [ { "name": "p", "foreground": "#111", "schemes": [ {"name": "q"} ] }, ] },
          "schemes": [
            { "name": "A // no comment, ]", "foreground": "#12aBcF", "background": "#123", "cursorColor": "none", /* , */ },
            { )" + kAnsi + R"(, "name": "B", "background": "#000000", "background": "#040506", "foreground": "#fff",
              "extra": { "foreground": "#f00" } },
          ],
          "theme": "dark", })");
    ASSERT_EQ(imported.schemes.size(), 2u) << imported.error;
    EXPECT_EQ(imported.schemes[0].name, u"A // no comment, ]");
    EXPECT_EQ(imported.schemes[0].scheme.foreground[7], Rgb(0x12abcf));
    EXPECT_EQ(imported.schemes[0].scheme.background[0], Rgb(0x112233));
    EXPECT_FALSE(imported.schemes[0].hasAnsi);
    EXPECT_EQ(imported.schemes[1].scheme.background[0], Rgb(0x040506)) << "the last of two members";
    EXPECT_EQ(imported.schemes[1].scheme.foreground[0], 0xFFFFFFu);
    ASSERT_TRUE(imported.schemes[1].hasAnsi);
    for (unsigned i = 0; i < 16; ++i)
        EXPECT_EQ(imported.schemes[1].ansi[i], Rgb(i + 1));
    EXPECT_THAT(
        imported.noteTexts,
        ElementsAre("scheme 'A // no comment, ]' doesn't tell all sixteen ANSI colours, and comes without them"));
}

TEST(WindowsTerminalSchemes, OfOneNameTheLastSchemeCounts)
{
    const Imported imported = Read(R"([{"name":"a","foreground":"#100","background":"#000"},
        {"name":"b","foreground":"#200","background":"#000"},{"name":"A","foreground":"#300","background":"#000"}])");
    ASSERT_EQ(imported.schemes.size(), 2u);
    EXPECT_EQ(imported.schemes[0].name, u"A");
    EXPECT_EQ(imported.schemes[0].scheme.foreground[0], 0x33u);
    EXPECT_THAT(imported.noteTexts, testing::Contains("scheme 'A' is there more than once; the last one counts"));

    const Imported two = Read(R"({"schemes":[{"name":"a","foreground":"#1","background":"#000"}],
        "schemes":[{"name":"b","foreground":"#200","background":"#000"}]})");
    ASSERT_EQ(two.schemes.size(), 1u);
    EXPECT_EQ(two.noteTexts.size(), 1u) << "what was wrong in the first list doesn't matter";
}

TEST(WindowsTerminalSchemes, AFaultNamesItsMemberOrLine)
{
    const struct {
        std::string_view json;
        const char* error;
    } cases[] = {
        {"{\"foreground\": \"#fff\",\n\"background\" \"#000\"}", "line 2: is no JSON: "},
        {"[\n\n{\"a\": 1 /* open", "line 3: is no JSON: "},
        {"", "line 1: is no JSON: "},
        {"{\"a\": \"\xFF\"}", "line 1: is no JSON: "},
        {"[1e999]", "line 1: is no JSON: number overflow"},
        {"[,]", "line 1: is no JSON: "},
        {"5", "is neither an object nor a list"},
        {"{}", "scheme 'My theme' has no foreground colour"},
        {"[]", "has no colour schemes"},
        {R"({"schemes":[]})", "has no colour schemes"},
        {R"({"schemes":{}})", "'schemes' is no list"},
        {R"([5,[{"foreground":"#fff","background":"#fff"}]])", "[0] is no object"},
        {R"({"schemes":[{"name":"x","foreground":"#fff"}]})", "scheme 'x' has no background colour"},
        {R"({"schemes":[{"foreground":"#ffff","background":"#000"}]})",
         "schemes[0].foreground is '#ffff', which is no colour"},
        {R"({"foreground":[1],"background":"#000"})", "foreground is '(no text)', which is no colour"},
        {R"([{"foreground":"fff","background":"#00000g"}])", "[0].foreground is 'fff', which is no colour"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.json);
        EXPECT_THAT(Read(c.json).error, StartsWith(c.error));
    }
}

TEST(WindowsTerminalSchemes, OneBadSchemeDoesntCostTheOthers)
{
    const Imported imported = Read(R"({"schemes":[{"name":"x"}, 7, {"name":"y","foreground":"#fff","background":"#000",
        "red":"#ggg", )" + kAnsi.substr(0, kAnsi.find("\"red\"")) +
                                   R"("blue":"#fff"}]})");
    ASSERT_EQ(imported.schemes.size(), 1u);
    EXPECT_THAT(imported.noteTexts,
                ElementsAre("scheme 'x' has no foreground colour", "schemes[1] is no object",
                            "schemes[2].red is '#ggg', which is no colour", HasSubstr("all sixteen")));
}

TEST(WindowsTerminalSchemes, DeepAndLongDocumentsCostNothing)
{
    EXPECT_THAT(Read(std::string(1'000'000, '[')).error, StartsWith("line 1: is no JSON"));
    EXPECT_THAT(Read("{\"a\":\"" + std::string(1'000'000, 'x')).error.size(), testing::Lt(400u));
}

TEST(RelaxedJson, PlacesStay)
{
    const struct {
        std::string_view text, plain;
    } cases[] = {
        {"[1, // a,]\n]", "[1        \n]"},
        {"{\"a\\\"//\":1,/*\n*/}", "{\"a\\\"//\":1   \n  }"},
        {"[,]", "[,]"},
        {"[1,,]", "[1,,]"},
        {"[1 / 2]", "[1 / 2]"},
        {"\"a\\", "\"a\\"},
        {"/*/", "   "},
        {"//", "  "},
    };
    for (const auto& c : cases)
        EXPECT_EQ(PlainJson(c.text), c.plain);
}

} // namespace
} // namespace ostrand::test
