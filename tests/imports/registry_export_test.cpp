// Registry exports, and the colour schemes of sessions in them.
#include "tests/imports/import_scene.h"

#include "imports/registry_export.h"
#include "imports/terminal_theme_schemes.h"

namespace ostrand::test {
namespace {

using testing::ElementsAre;
using testing::StartsWith;

const std::string kNew = "Windows Registry Editor Version 5.00\r\n\r\n";
const std::string kOld = "REGEDIT4\n\n";

std::string ErrorOf(std::string_view bytes)
{
    std::vector<RegistryKey> keys;
    ImportFault error;
    return ReadRegistryExport(bytes, keys, error) ? "" : TextOf(error);
}

std::vector<RegistryKey> KeysOf(std::string_view bytes)
{
    std::vector<RegistryKey> keys;
    ImportFault error;
    EXPECT_TRUE(ReadRegistryExport(bytes, keys, error)) << TextOf(error);
    return keys;
}

TEST(RegistryExport, KeysAndValuesComeInTheirOrder)
{
    const std::string body = "; a comment\r\n[HKEY_CURRENT_USER\\a]b]\r\n@=\"default\"\r\n"
                             "  \"na\\\"me\\\\\" = \"t\xC3\xA9xt\" ; why not\r\n\"two\"=\"lines\r\nhere\"\r\n"
                             "\"gone\"=-\r\n\r\n[-HKEY_CURRENT_USER\\old]\r\n[empty]";
    for (const std::string& bytes : {kNew + body, kOld + body, AsUtf16(kNew + body),
                                     Replaced(kNew + body, "\r\n", "\r"), "\xEF\xBB\xBF" + kNew + body}) {
        const std::vector<RegistryKey> keys = KeysOf(bytes);
        ASSERT_EQ(keys.size(), 3u);
        EXPECT_EQ(keys[0].path, u"HKEY_CURRENT_USER\\a]b");
        EXPECT_EQ(keys[0].line, 4u);
        ASSERT_EQ(keys[0].values.size(), 4u);
        EXPECT_EQ(keys[0].values[0].name, u"");
        EXPECT_EQ(keys[0].values[1].name, u"na\"me\\");
        EXPECT_EQ(keys[0].values[1].data, RegistryData(VUnicodeString(u"t\u00E9xt")));
        EXPECT_EQ(keys[0].values[1].kind, kRegistryText);
        EXPECT_EQ(keys[0].values[3].data, RegistryData(RegistryDeletion()));
        EXPECT_EQ(keys[0].values[3].line, 9u) << "a text may hold a line end";
        EXPECT_TRUE(keys[1].isDeleted && !keys[2].isDeleted);
        EXPECT_EQ(keys[1].path, u"HKEY_CURRENT_USER\\old");
    }
    EXPECT_EQ(std::get<VUnicodeString>(KeysOf(kOld + "[a]\n\"\xE9\"=\"C:\\x\"")[0].values[0].data), u"C:\\x");
    EXPECT_EQ(KeysOf(kOld + "[a]\n\"\xE9\"=\"\"")[0].values[0].name, u"\u00E9") << "the code page";
}

TEST(RegistryExport, DataHasTheTypeOfItsKind)
{
    VStringArray list;
    list.Append(u"a");
    list.Append(u"bc");
    const struct {
        std::string_view data;
        uint32_t kind;
        RegistryData expected;
        bool isOld = false;
    } cases[] = {
        {"dword:0000fF10", 4, 0xff10u},
        {"dword:5", 4, 5u},
        {"hex:01,2, fF", 3, RegistryBytes{1, 2, 0xff}},
        {"hex:", 3, RegistryBytes{}},
        {"hex:01,\\\r\n  02,03,\\ \r\n  04", 3, RegistryBytes{1, 2, 3, 4}},
        {"hex(2):41,00,ac,20,00,00", 2, VUnicodeString(u"A\u20AC")},
        {"hex(2):41,80,00", 2, VUnicodeString(u"A\u20AC"), true},
        {"hex(1):41,00,42", 1, VUnicodeString(u"A")},
        {"hex(7):61,00,00,00,62,00,63,00,00,00,00,00", 7, list},
        {"hex(7):61,00,62,63", 7, list, true},
        {"hex(7):", 7, VStringArray()},
        {"hex(4):01,02,03,80", 4, 0x80030201u},
        {"hex(4):01", 4, RegistryBytes{1}},
        {"hex(b):01,00,00,00,00,00,00,00", 11, RegistryBytes{1, 0, 0, 0, 0, 0, 0, 0}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.data);
        const auto keys = KeysOf((c.isOld ? kOld : kNew) + "[a]\r\n\"x\"=" + std::string(c.data) + "\r\n\"y\"=-");
        ASSERT_EQ(keys[0].values.size(), 2u);
        EXPECT_EQ(keys[0].values[0].kind, c.kind);
        EXPECT_TRUE(keys[0].values[0].data == c.expected);
    }
}

TEST(RegistryExport, AFaultTellsItsLine)
{
    const struct {
        std::string bytes;
        const char* error;
    } cases[] = {
        {"", "line 1: doesn't begin as a registry export"},
        {"\n" + kOld, "line 1: doesn't begin"},
        {"REGEDIT45\n", "line 1: is an export of a version"},
        {kOld + "\"x\"=-", "line 3: stands in front of the first key"},
        {kOld + "[a", "line 3: has a key without ']'"},
        {kOld + "[-]", "line 3: has a key without a name"},
        {kOld + "[a] b", "line 3: goes on behind its value"},
        {kOld + "[a]\nx=1", "line 4: is neither a key nor a value"},
        {kOld + "[a]\n\"x\"", "line 4: has no '='"},
        {kOld + "[a]\n\"x\"=", "line 4: has data of an unknown form"},
        {kOld + "[a]\n\"x\"=\"y\nz\n", "line 4: has a text without its closing quote"},
        {kOld + "[a]\n\"x\"=\"y\" z", "line 4: goes on behind its value"},
        {kOld + "[a]\n\"x\"=dword:", "line 4: has no hexadecimal number"},
        {kOld + "[a]\n\"x\"=dword:123456789", "line 4: has no hexadecimal number"},
        {kOld + "[a]\n\"x\"=hex(:", "line 4: has no kind"},
        {kOld + "[a]\n\"x\"=hex01", "line 4: has no ':'"},
        {kOld + "[a]\n\"x\"=hex:01,\\\n", "line 5: has something other than bytes"},
        {kOld + "[a]\n\"x\"=hex:01,", "line 4: has something other than bytes"},
        {kOld + "[a]\n\"x\"=hex:\\ 01", "line 4: has a backslash"},
        {kOld + "[a]\n\"x\"=hex:001", "line 4: has something other than bytes"},
        {AsUtf16(kNew) + "x", "ends in the middle of a character"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.bytes);
        EXPECT_THAT(ErrorOf(c.bytes), StartsWith(c.error));
    }
}

const std::string kSession = "[HKEY_CURRENT_USER\\Software\\SimonTatham\\PuTTY\\Sessions\\";

std::string Session(std::string_view name, std::string_view colors)
{
    return kSession + std::string(name) + "]\n" + std::string(colors);
}
std::string Plain(std::string_view red)
{
    return "\"Colour0\"=\"" + std::string(red) + ",0,0\"\n\"colour2\"=\"0,0," + std::string(red) + "\"\n";
}

TEST(TerminalThemes, EachSessionWithColorsIsAScheme)
{
    const Imported imported = Import(
        ReadTerminalThemeSchemes, kOld + Session("Default%20Settings", "\"Port\"=dword:00000016\n") +
                                      Session("a%2Fb%c3%A9 50%", Plain("1")) + Session("x\\deeper", Plain("9")) +
                                      "[HKEY_CURRENT_USER\\Other\\Sessions\\y]\n" + Plain("9") +
                                      Session("caf%e9", "\"Colour1\"=\"5,5,5\"\n\"Colour3\"=\"6,6,6\"\n" + Plain("2")));
    ASSERT_EQ(imported.schemes.size(), 2u) << imported.error;
    EXPECT_EQ(imported.schemes[0].name, u"a/b\u00E9 50%");
    EXPECT_EQ(imported.schemes[0].scheme.foreground[1], 0x000001u);
    EXPECT_EQ(imported.schemes[0].scheme.background[1], 0x010000u);
    EXPECT_EQ(imported.schemes[1].name, u"caf\u00E9") << "the code page";
    EXPECT_EQ(imported.schemes[1].scheme.foreground[0], 0x000002u);
    EXPECT_EQ(imported.schemes[1].scheme.foreground[7], 0x050505u);
    EXPECT_EQ(imported.schemes[1].scheme.background[3], 0x060606u);
    EXPECT_FALSE(imported.schemes[1].hasAnsi);
}

TEST(TerminalThemes, LaterLinesOfAnExportWorkOnEarlierOnes)
{
    const Imported imported = Import(
        ReadTerminalThemeSchemes, kOld + Session("a", Plain("1")) + Session("b", Plain("2")) +
                                      Session("c", Plain("3")) + Session("A", "\"Colour0\"=\"7,7,7\"\n") +
                                      Replaced(Session("b", ""), "[HKEY", "[-HKEY") + Session("c", "\"Colour0\"=-\n"));
    ASSERT_EQ(imported.schemes.size(), 1u);
    EXPECT_EQ(imported.schemes[0].name, u"a");
    EXPECT_EQ(imported.schemes[0].scheme.foreground[0], 0x070707u);
    EXPECT_EQ(imported.schemes[0].scheme.background[0], 0x010000u);
    EXPECT_THAT(imported.noteTexts, testing::Contains("line 9: scheme 'c' has no foreground colour"));
}

TEST(TerminalThemes, AFaultTellsItsLine)
{
    const struct {
        std::string_view colors;
        const char* error;
    } cases[] = {
        {"", "has no session with colours"},
        {"\"Colour22\"=\"1,2,3\"\n\"Colour\"=\"1,2,3\"\n\"ColourX\"=\"1,2,3\"", "has no session with colours"},
        {"\"Colour0\"=\"1,2,256\"\n\"Colour2\"=\"1,2,3\"", "line 4: Colour0 is '1,2,256', which is no colour"},
        {"\"Colour0\"=\"1,2\"\n\"Colour2\"=\"1,2,3\"", "line 4: Colour0 is '1,2', which is no colour"},
        {"\"Colour0\"=\"1,,2\"\n\"Colour2\"=\"1,2,3\"", "line 4: Colour0 is '1,,2', which is no colour"},
        {"\"Colour0\"=\"1,2,3,\"\n\"Colour2\"=\"1,2,3\"", "line 4: Colour0 is '1,2,3,', which is no colour"},
        {"\"Colour2\"=dword:1", "line 4: Colour2 is '(no text)', which is no colour"},
        {"\"Colour0\"=\"1,2,3\"", "line 3: scheme 'a' has no background colour"},
        {"\"Colour0\"=\"1,2,3", "line 4: has a text without its closing quote"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.colors);
        EXPECT_EQ(Import(ReadTerminalThemeSchemes, kOld + Session("a", c.colors)).error, c.error);
    }
}

} // namespace
} // namespace ostrand::test
