// X resources as people keep them: colours, keys, definitions, conditions, and what is wrong in them.
#include "tests/imports/import_scene.h"

#include "imports/color_text.h"
#include "imports/x_defines.h"
#include "imports/xresources_schemes.h"

namespace ostrand::test {
namespace {

using testing::ElementsAre;
using testing::StartsWith;

Imported Read(std::string_view text) { return Import(ReadXresourcesSchemes, text); }

TEST(XColors, AllForms)
{
    const struct {
        std::string_view text;
        uint32_t color; // ~0 for none
    } cases[] = {
        {"#3a7", 0x30a070},
        {"#fff", 0xf0f0f0},
        {"#12abEF", 0x12abef},
        {"#123456789", 0x124578},
        {"#12ff34ff56ff", 0x123456},
        {"rgb:f/80/ffff", 0xff80ff},
        {"rgb:0/7ff/1", 0x007f11},
        {"rgba:0000/1111/ff00/80", 0x0011fe},
        {"[90]#010203", 0x010203},
        {"[5] rgb:1/2/3", 0x112233},
        {"Dark Red", 0x8b0000},
        {"gray", 0xbebebe},
        {"#", ~0u},
        {"#12", ~0u},
        {"#1234567890abcde", ~0u},
        {"#12345g", ~0u},
        {"#+1-2+3", ~0u},
        {"rgb:1/2", ~0u},
        {"rgb:1/2/3/4", ~0u},
        {"rgb:12345/0/0", ~0u},
        {"rgb://", ~0u},
        {"rgba:1/2/3", ~0u},
        {"reddish", ~0u},
        {"", ~0u},
        {"[", ~0u},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.text);
        uint32_t color = ~0u;
        EXPECT_EQ(ReadXColor(c.text, color), c.color != ~0u);
        EXPECT_EQ(color, c.color == ~0u ? ~0u : Rgb(c.color));
    }
}

TEST(Xresources, OnlyKeysOfTerminalsCount)
{
    const struct {
        std::string_view line;
        bool counts;
    } cases[] = {
        {"*foreground: #123456", true},
        {"foreground: #123456", true},
        {".foreground:\t#123456", true},
        {"*.Foreground : #123456 ", true},
        {"URxvt*foreground: #123456", true},
        {"xterm.vt100.foreground: #123456", true},
        {"XTerm*VT100*foreground: #123456", true},
        {"*vt100.foreground: #123456", true},
        {"Emacs.foreground: #123456", false},
        {"XTerm*scrollBar.foreground: #123456", false},
        {"*foreground.x: #123456", false},
        {"*pointerForeground: #123456", false},
        {"! *foreground: #123456", false},
        {"*foreground #123456", false},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.line);
        const Imported imported = Read("*background: #000\n" + std::string(c.line));
        ASSERT_EQ(imported.schemes.size(), c.counts ? 1u : 0u);
        if (c.counts) {
            EXPECT_EQ(imported.schemes[0].scheme.foreground[3], Rgb(0x123456));
        } else {
            EXPECT_EQ(imported.error, "scheme 'My theme' has no foreground colour");
        }
    }
}

TEST(Xresources, ALineForAProgramGoesBeforeOneForAll)
{
    const Imported imported = Read("*foreground: #000000\nURxvt*foreground: #010101\n*foreground: #020202\n"
                                   "*background: #030303\n*background: #040404\n*colorBD: #050505\nfoo.color3: red\n"
                                   "*color03: red\n*color16: red\n*color: red\n");
    ASSERT_EQ(imported.schemes.size(), 1u) << imported.error;
    EXPECT_EQ(imported.schemes[0].scheme.foreground[0], 0x010101u);
    EXPECT_EQ(imported.schemes[0].scheme.foreground[5], 0x050505u);
    EXPECT_EQ(imported.schemes[0].scheme.background[0], 0x040404u);
    EXPECT_FALSE(imported.schemes[0].hasAnsi);
}

TEST(Xresources, DefinitionsAndConditionsWorkAsInThePreprocessor)
{
    // Each ends in a foreground of 1 where it does what it should.
    const std::string_view cases[] = {
        "#define A B\n#define B #000001\n*foreground: A\n#undef B\n",
        "#define A #000001 \n*foreground: A\n#define A #000002\n",
        "#define A #000002\n#define A #000001\n*foreground: A\n",
        "# define A 0x10\n#if A == 16 && !defined(C) || B\n*foreground: #000001\n#endif",
        "#define A\n#if A\n*foreground: #000001\n#else\n*foreground: #000002\n#endif",
        "#if 0\n*foreground: #000002\n#elif (1 < 2)\n*foreground: #000001\n#elif 1\n*foreground: #000002\n#else\n"
        "*foreground: #000003\n#endif",
        "#ifndef A\n#ifdef A\n#define B\n#else\n*foreground: #000001\n#endif\n#endif\n#ifdef B\n*foreground: "
        "red\n#endif",
        "#if 0\n#if nonsense +\n#else\n*foreground: #000002\n#endif\n#define C C\n#endif\n*foreground: #000001",
        "*fore\\\nground: \\\r\n#000001\\",
        "/* *foreground: red\n*foreground: red */ *foreground: /* x */ #000001 /* y */\n*path: /usr/*\n",
        "*foreground: #000001\n! *foreground: red \\\n*foreground: red\n",
    };
    for (const std::string_view text : cases) {
        SCOPED_TRACE(text);
        const Imported imported = Read("*background: #000000\n" + std::string(text));
        ASSERT_EQ(imported.schemes.size(), 1u) << imported.error;
        EXPECT_EQ(imported.schemes[0].scheme.foreground[0], Rgb(0x000001));
    }
}

TEST(Xresources, AFaultTellsItsLine)
{
    std::string chain;
    for (int i = 0; i <= 65; ++i)
        chain += "#define A" + std::to_string(i) + " A" + std::to_string(i + 1) + "\n";
    std::string deep = "#if " + std::string(60, '(') + "1" + std::string(60, ')');
    const struct {
        std::string text;
        const char* error;
    } cases[] = {
        {"#define A B\n#define B C\n#define C B\n*color1: A", "line 4: names are defined by each other: B, C, B"},
        {"#define red red\n*color1: red", "line 2: names are defined by each other: red, red"},
        {"#define A A\n#if A", "line 2: names are defined by each other: A, A"},
        {chain + "*color0: A0", "line 67: 'A0' is defined through more than 64 other names"},
        {"\n#if 1\n#if 1\n#endif\n", "line 2: has an '#if' that isn't closed"},
        {"\\\n\\\n#else", "line 1: has an '#else' without an '#if'"},
        {"#if 1\n#else\n#else", "line 3: has an '#else' behind an '#else'"},
        {"#if 1 +\n#endif", "line 1: '1 +' is no condition that is known here"},
        {"#if\n#endif", "line 1: '' is no condition that is known here"},
        {deep, "line 1: '((((("},
        {"#ifdef\n", "line 1: has an '#ifdef' without a name"},
        {"#define\n", "line 1: has a '#define' without a name"},
        {"*a: b\n/* open\n*foreground: red", "line 2: has a comment that isn't closed"},
        {"*foreground: red\n*background: blackish", "line 2: background is 'blackish', which is no colour"},
        {"*foreground: red", "scheme 'My theme' has no background colour"},
        {"*a: b", "has no colours of a terminal"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.text);
        EXPECT_THAT(Read(c.text).error, StartsWith(c.error));
    }
}

TEST(Xresources, WhatIsPassedOverIsNoted)
{
    const Imported imported = Read("#include \"colors\"\n#pragma x\n#define F(x) x\nnothing\n*foreground: red\n"
                                   "*background: black\n*color4: blu\n");
    ASSERT_EQ(imported.schemes.size(), 1u);
    EXPECT_THAT(imported.noteTexts,
                ElementsAre("line 1: includes \"colors\", which isn't read",
                            "line 2: '#pragma x' is no directive that is known here",
                            "line 3: 'F' is defined with arguments, and passed over",
                            "line 4: 'nothing' is no resource", "line 7: color4 is 'blu', which is no colour",
                            "scheme 'My theme' doesn't tell all sixteen ANSI colours, and comes without them"));
}

} // namespace
} // namespace ostrand::test
