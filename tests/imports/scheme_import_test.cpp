// Real files in all forms, encodings and line ends; and the guess which form a file has.
#include "tests/imports/import_scene.h"

namespace ostrand::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// Typed from the published themes.
constexpr uint32_t kAdventure[] = {0x040404, 0xd84a33, 0x5da602, 0xeebb6e, 0x417ab3, 0xe5c499, 0xbdcfe5, 0xdbded8,
                                   0x685656, 0xd76b42, 0x99b52c, 0xffb670, 0x97d7ef, 0xaa7900, 0xbdcfe5, 0xe4d5c7};

void ExpectAdventure(const Imported& imported, uint32_t bold)
{
    ASSERT_EQ(imported.error, "");
    EXPECT_THAT(imported.noteTexts, IsEmpty());
    ASSERT_EQ(imported.schemes.size(), 1u);
    const ImportedScheme& scheme = imported.schemes[0];
    EXPECT_EQ(scheme.name, u"Adventure");
    ASSERT_TRUE(scheme.hasAnsi);
    for (size_t i = 0; i < 16; ++i)
        EXPECT_EQ(scheme.ansi[i], Rgb(kAdventure[i])) << i;
    for (size_t i = 0; i < 8; ++i) {
        EXPECT_EQ(scheme.scheme.foreground[i], Rgb(i % 2 == 0 ? 0xfeffff : bold)) << i;
        EXPECT_EQ(scheme.scheme.background[i], Rgb(0x040404)) << i;
    }
    EXPECT_EQ(scheme.scheme.advanced, 0);
    EXPECT_EQ(scheme.scheme.enableBlink, 1);
}

TEST(SchemeImport, OneThemeIsTheSameInEveryFormAndEncoding)
{
    const struct {
        const char* file;
        uint32_t bold;
        bool isUtf16Too;
    } themes[] = {
        {"Adventure.json", 0xfeffff, false}, // knows no bold colour
        {"Adventure.Xresources", 0xffffff, false},
        {"Adventure.reg", 0xffffff, true},
    };
    for (const auto& theme : themes) {
        SCOPED_TRACE(theme.file);
        const std::string bytes = ReadTheme(theme.file);
        const std::u16string path = std::filesystem::path("C:\\Themes\\" + std::string(theme.file)).u16string();
        const std::string crLf = Replaced(bytes, "\n", "\r\n");
        for (const std::string& variant : {bytes, crLf, "\xEF\xBB\xBF" + bytes})
            ExpectAdventure(Import(ImportSchemes, variant, path), theme.bold);
        if (theme.isUtf16Too) {
            ExpectAdventure(Import(ImportSchemes, AsUtf16(crLf), u"x"), theme.bold);
            const std::string old = Replaced(crLf, "Windows Registry Editor Version 5.00", "REGEDIT4");
            ExpectAdventure(Import(ImportSchemes, old, u"x"), theme.bold);
        }
    }
}

TEST(SchemeImport, AThemeOfSeveralWordsKeepsItsName)
{
    for (const char* const file : {"Belafonte Day.json", "Belafonte Day.Xresources", "Belafonte Day.reg"}) {
        SCOPED_TRACE(file);
        const Imported imported = Import(ImportSchemes, ReadTheme(file), std::filesystem::path(file).u16string());
        ASSERT_EQ(imported.schemes.size(), 1u) << imported.error;
        EXPECT_EQ(imported.schemes[0].name, u"Belafonte Day");
        EXPECT_EQ(imported.schemes[0].scheme.foreground[0], Rgb(0x45373c));
        EXPECT_EQ(imported.schemes[0].scheme.background[0], Rgb(0xd5ccba));
        EXPECT_TRUE(imported.schemes[0].hasAnsi);
    }
}

TEST(SchemeImport, SolarizedTakesTheBranchOfItsSwitch)
{
    const std::string dark = ReadTheme("Solarized.Xresources");
    const struct {
        std::string bytes;
        uint32_t foreground, background;
    } cases[] = {
        {dark, 0x839496, 0x002b36},
        {Replaced(dark, "#define USE_DARK 1", "#define USE_DARK 0"), 0x657b83, 0xfdf6e3},
        {Replaced(dark, "#define USE_DARK 1", ""), 0x657b83, 0xfdf6e3},
    };
    for (const auto& c : cases) {
        const Imported imported = Import(ImportSchemes, c.bytes, u"themes/Solarized.Xresources");
        ASSERT_EQ(imported.schemes.size(), 1u) << imported.error;
        EXPECT_THAT(imported.noteTexts, IsEmpty());
        EXPECT_EQ(imported.schemes[0].name, u"Solarized");
        EXPECT_EQ(imported.schemes[0].scheme.foreground[1], Rgb(c.foreground));
        EXPECT_EQ(imported.schemes[0].scheme.background[0], Rgb(c.background));
        EXPECT_EQ(imported.schemes[0].ansi[13], Rgb(0x6c71c4));
        EXPECT_EQ(imported.schemes[0].ansi[8], imported.schemes[0].scheme.background[0]);
    }
}

TEST(SchemeImport, TheFormIsGuessedByContentThenByName)
{
    const struct {
        std::string_view bytes;
        std::u16string_view name;
        int form; // place in the table, -1 for none
    } cases[] = {
        {"REGEDIT4\n", u"a.json", 0},
        {"", u"A.REG", 0},
        {"// a {\n/* b */ [", u"a.Xresources", 1},
        {"", u"a.jsonc", 1},
        {"/* a */\n\nURxvt.foreground: red", u"a", 2},
        {"#define A", u"a", 2},
        {"Just a text: with a colon.", u"a", -1},
        {"text", u".Xresources", 2},
        {"text", u"b.xdefaults", 2},
        {"", u"", -1},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.bytes);
        const SchemeForm* const form = GuessSchemeForm({c.bytes, c.name});
        EXPECT_EQ(form ? static_cast<int>(form - SchemeForms().data()) : -1, c.form);
    }
    EXPECT_EQ(Import(ImportSchemes, "text").error, "is of no form of colour schemes that is known here");
}

TEST(SchemeImport, NamesFitAValue)
{
    const struct {
        std::string_view name;
        std::u16string_view file;
        std::u16string_view expected;
    } cases[] = {
        {" A\\n\\u0000B ", u"f", u"A  B"},
        {"", u"C:\\x\\My theme.v2.json", u"My theme.v2"},
        {"\\t", u"/a/.Xresources", u"Xresources"},
        {"", u"", u"Imported"},
        {"\u20AC\U0001F600", u"", u"\u20AC\U0001F600"},
    };
    for (const auto& c : cases) {
        const std::string json =
            R"({"name": ")" + std::string(c.name) + R"(", "foreground": "#fff", "background": "#000"})";
        const Imported imported = Import(ImportSchemes, json, c.file);
        ASSERT_EQ(imported.schemes.size(), 1u) << imported.error;
        EXPECT_EQ(imported.schemes[0].name, c.expected);
    }
}

TEST(SchemeImport, SizesThatNobodyHasAreRefused)
{
    std::string tooLarge(kMaxImportBytes + 1, ' ');
    tooLarge[0] = '{';
    EXPECT_EQ(Import(ImportSchemes, tooLarge).error, "is larger than any file of this kind");
    std::string tooMany = "[";
    for (size_t i = 0; i <= SchemeCollector::kMaxSchemes; ++i)
        tooMany += R"({"name":")" + std::to_string(i) + R"(","foreground":"#fff","background":"#000"},)";
    EXPECT_EQ(Import(ImportSchemes, tooMany).error, "has more than 4096 colour schemes");
}

} // namespace
} // namespace ostrand::test
