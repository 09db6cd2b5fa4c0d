#include "core/paths/executable_text.h"
#include "core/paths/path_text.h"

#include <gtest/gtest.h>

namespace ostrand {
namespace {

TEST(PathText, JoinsWithOneSeparator)
{
    const struct {
        std::u16string_view a, b, path;
    } kCases[] = {
        {u"C:\\", u"\\x", u"C:\\x"},
        {u"C:", u"x", u"C:\\x"},
        {u"", u"x", u"\\x"},
        {u"", u"", u"\\"},
        {u"a", u"", u"a\\"},
        {u"a\\", u"b", u"a\\b"},
        {u"a", u"\\b", u"a\\b"},
        {u"\\", u"\\", u"\\"},
        {u"a\\\\", u"\\b", u"a\\\\b"},
        {u"a/", u"/b", u"a/\\/b"},
        {u"/", u"x", u"/x"},
        {u"/home/ann", u"x", u"/home/ann/x"},
        {u"/home/ann/", u"/x", u"/home/ann/x"},
        {u"/home/ann\\", u"x", u"/home/ann\\x"},
        {u"/home/ann", u"\\keymaps\\", u"/home/ann\\keymaps\\"},
        {u"/", u"\\x", u"/x"},
        {u"/a", u"", u"/a/"},
    };
    for (const auto& c : kCases)
        EXPECT_EQ(JoinPath(c.a, c.b), c.path) << ToUtf8(c.a) << " and " << ToUtf8(c.b);
}

TEST(PathText, SplitsBehindTheLastSeparator)
{
    const struct {
        std::u16string_view path, folder, name;
    } kCases[] = {
        {u"C:\\dir\\file.txt", u"C:\\dir", u"file.txt"},
        {u"file.txt", u"", u"file.txt"},
        {u"C:\\", u"", u""},
        {u"C:", u"", u""},
        {u"\\", u"", u""},
        {u"/", u"", u""},
        {u"", u"", u""},
        {u"\\x", u"\\", u"x"},
        {u"/x", u"/", u"x"},
        {u"a/b\\c", u"a/b", u"c"},
        {u"C:\\dir\\", u"C:", u"dir"},
        {u"C:\\x", u"C:", u"x"},
        {u"C:/", u"", u"C:"},
        {u"/home/ann//", u"/home", u"ann"},
        {u"//", u"/", u""},
        {u"\\\\srv\\share\\f", u"\\\\srv\\share", u"f"},
    };
    for (const auto& c : kCases) {
        SCOPED_TRACE(ToUtf8(c.path));
        VUnicodeString name(u"old");
        EXPECT_EQ(SplitPath(c.path, name), c.folder);
        EXPECT_EQ(name, c.name);
        VUnicodeString both(c.path);
        EXPECT_EQ(SplitPath(both, both), c.folder) << "the path's own string takes the name";
        EXPECT_EQ(both, c.name);
    }
}

TEST(PathText, ADriveIsALetterAndAColon)
{
    const struct {
        std::u16string_view path;
        char16_t letter;
    } kCases[] = {
        {u"C:", u'C'}, {u"c:\\", u'c'}, {u"1:", u'1'}, {u"::", 0},     {u"C:\\x", 0},
        {u"C:/", 0},   {u"C", 0},       {u"", 0},      {u"C:\\\\", 0}, {u"x:y", 0},
    };
    for (const auto& c : kCases) {
        SCOPED_TRACE(ToUtf8(c.path));
        char16_t letter = u'?';
        EXPECT_EQ(IsDriveRoot(c.path, &letter), c.letter != 0);
        EXPECT_EQ(letter, c.letter);
    }
}

TEST(PathText, SyntaxAllowsWhatTheStrictestSystemDoes)
{
    const struct {
        std::u16string_view path, checked;
        int badIndex;
    } kCases[] = {
        {u"C:\\a\\b", u"C:\\a\\b", -1},
        {u"C:/a/b", u"C:\\a\\b", -1},
        {u"/home/ann/", u"\\home\\ann\\", -1},
        {u"\\\\?\\x", u"\\\\?\\x", -1},
        {u"", u"", -1},
        {u"Zürich \U0001F600", u"Zürich \U0001F600", -1},
        {u"\\\\?\\C:\\x", {}, 5},
        {u"a*b", {}, 1},
        {u"C::", {}, 2},
        {u"1:x", {}, 1},
        {u":", {}, 0},
        {u"a/b:c", {}, 3},
        {u"a\"b:c", {}, 1},
        {u"\\a?", {}, 2},
        {u"a\tb", {}, 1},
        {u"a\x1F", {}, 1},
        {u"a|", {}, 1},
        {u"<a", {}, 0},
    };
    for (const auto& c : kCases) {
        SCOPED_TRACE(ToUtf8(c.path));
        VUnicodeString path(c.path);
        int badIndex = 99;
        EXPECT_EQ(CheckPathSyntax(path, &badIndex), c.badIndex == -1);
        EXPECT_EQ(badIndex, c.badIndex);
        EXPECT_EQ(path, c.badIndex == -1 ? c.checked : c.path) << "a refused path stays";
    }
}

TEST(PathText, NamesAreCheckedInTheOrderOfTheList)
{
    const struct {
        std::u16string_view name;
        char16_t found;
    } kCases[] = {
        {u"router", 0}, {u"a:b", u':'}, {u"|/", u'/'}, {u"a?b*", u'*'}, {u">\\", u'\\'}, {u"", 0},
    };
    for (const auto& c : kCases) {
        char16_t found = u'x';
        EXPECT_EQ(HasIllegalNameCharacter(c.name, &found), c.found != 0) << ToUtf8(c.name);
        EXPECT_EQ(found, c.found) << ToUtf8(c.name);
    }
    for (const std::u16string_view name : {u"con", u"LPT9", u"Clock$", u"nul"})
        EXPECT_TRUE(IsReservedDeviceName(name)) << ToUtf8(name);
    for (const std::u16string_view name : {u"COM10", u"nul.txt", u"COM0", u"", u"PRN,AUX"})
        EXPECT_FALSE(IsReservedDeviceName(name)) << ToUtf8(name);
}

TEST(ExecutableText, IsTakenOutOfQuotesOrUpToItsSuffix)
{
    const struct {
        const char16_t* line;
        int result;
        std::u16string_view path;
    } kCases[] = {
        {u"\"C:\\Program Files\\a.exe\" -x", 1, u"C:\\Program Files\\a.exe"},
        {u"c:\\tools\\a.exe -x", 1, u"c:\\tools\\a.exe"},
        {u" \"C:\\x y\\a -b ", 1, u"C:\\x y\\a -b"},
        {u"\"\"", 1, u""},
        {u"\"", 1, u""},
        {u"\t a.tool.ExE ", 1, u"a.tool.ExE"},
        {u"a.exed", 1, u"a.exe"},
        {u"", 0, u""},
        {u" \r\n", 0, u""},
    };
    for (const auto& c : kCases) {
        SCOPED_TRACE(ToUtf8(c.line));
        VUnicodeString line(c.line);
        EXPECT_EQ(ExtractExecutable(line), c.result);
        EXPECT_EQ(line, c.path);
        EXPECT_EQ(ExtractExecutablePath(c.line), c.path);
    }
}

TEST(ExecutableText, AnUnusableLineIsTrimmed)
{
    VUnicodeString line(u" foo bar ");
    EXPECT_EQ(ExtractExecutable(line), 0);
    EXPECT_EQ(line, u"foo bar");
    EXPECT_EQ(ExtractExecutablePath(u" foo bar "), u"foo bar");
    EXPECT_EQ(ExtractExecutablePath(nullptr), u"");
}

} // namespace
} // namespace ostrand
