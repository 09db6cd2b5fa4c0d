#include "core/strings.h"

#include "core/code_page.h"
#include "core/fold.h"
#include "core/messages.h"

#include <gtest/gtest.h>

#include <thread>

namespace ostrand {
namespace {

TEST(UnicodeString, CopiesShareTheirBufferUntilOneChanges)
{
    VUnicodeString a(u"shared");
    VUnicodeString b = a;
    const VUnicodeString c = b;
    EXPECT_TRUE(a.SharesBufferWith(b));
    b.SetAt(0, u'S');
    EXPECT_FALSE(a.SharesBufferWith(b));
    EXPECT_EQ(b, u"Shared");
    EXPECT_EQ(a, u"shared");
    a += u"!";
    EXPECT_EQ(c, u"shared");
    VUnicodeString d = std::move(a);
    EXPECT_EQ(d, u"shared!");
    d = c;
    EXPECT_TRUE(d.SharesBufferWith(c));
    d.Clear();
    EXPECT_TRUE(d.IsEmpty() && c == u"shared");
}

TEST(UnicodeString, AppendsPartsOfItself)
{
    VUnicodeString text(u"abc");
    for (int i = 0; i < 6; ++i)
        text += text;
    EXPECT_EQ(text.GetLength(), 192u);
    text.Append(text.View().substr(1, 2));
    EXPECT_EQ(text.Right(5), u"abcbc");
    text = text.View().substr(0, 2);
    EXPECT_EQ(text, u"ab");
    EXPECT_EQ(text.c_str()[2], 0);
}

TEST(UnicodeString, ImmortalTextsAreCopiedOnWrite)
{
    const VUnicodeString name = VUnicodeString::Immortal(u"Max Columns");
    VUnicodeString copy = name;
    EXPECT_TRUE(copy.SharesBufferWith(name));
    copy += u"!";
    EXPECT_EQ(name, u"Max Columns");
    copy = name;
    copy.MarkSensitive();
    EXPECT_FALSE(name.IsSensitive());
    // The buffer is never freed; leak checkers find it through this.
    static VUnicodeString keep = name;
}

TEST(UnicodeString, AnIndexOutsideIsAPlatformException)
{
    VUnicodeString text(u"ab");
    EXPECT_EQ(text[1], u'b');
    for (const size_t index : {size_t{2}, size_t{1000}, VUnicodeString::npos}) {
        try {
            text.SetAt(index, u'x');
            ADD_FAILURE();
        } catch (const VPlatformException& e) {
            EXPECT_EQ(e.code, kStringIndexOutOfRange);
        }
        EXPECT_THROW(std::as_const(text)[index], VPlatformException);
    }
    EXPECT_THROW(VUnicodeString()[0], VPlatformException);
}

TEST(UnicodeString, PartsAreCutAtTheEnds)
{
    const VUnicodeString text(u"router");
    EXPECT_EQ(text.Left(2), u"ro");
    EXPECT_EQ(text.Left(99), u"router");
    EXPECT_EQ(text.Right(99), u"router");
    EXPECT_EQ(text.Right(0), u"");
    EXPECT_EQ(text.Mid(2, 3), u"ute");
    EXPECT_EQ(text.Mid(6), u"");
    EXPECT_EQ(text.Mid(7, 2), u"");
    EXPECT_EQ(VUnicodeString(u" \t a b\r\n").Trimmed(), u"a b");
    EXPECT_EQ(VUnicodeString(u" \t ").Trimmed(), u"");
}

TEST(UnicodeString, OrderStopsAtAZeroEqualityDoesNot)
{
    const VUnicodeString a(std::u16string_view(u"a\0b", 3));
    const VUnicodeString b(std::u16string_view(u"a\0c", 3));
    EXPECT_EQ(a.Compare(b), 0);
    EXPECT_NE(a, b);
    EXPECT_LT(a.Compare(std::u16string_view(u"a\0bc", 4)), 0) << "then the lengths";
    EXPECT_LT(VUnicodeString(u"B").Compare(u"a"), 0);
    EXPECT_GT(VUnicodeString(u"B").CompareNoCase(u"a"), 0);
    EXPECT_LT(VUnicodeString(u"ab").Compare(u"abc"), 0);
    EXPECT_GT(VUnicodeString(u"\xD7FF\xFFFF").Compare(u"\xD7FF\xD800"), 0) << "by code units";
}

TEST(UnicodeString, CountsAreSafeAcrossThreads)
{
    const VUnicodeString shared(u"one buffer, many owners");
    const auto work = [&shared] {
        for (int i = 0; i < 20000; ++i) {
            VUnicodeString mine = shared;
            if (i % 64 == 0)
                mine.SetAt(0, u'O');
        }
    };
    std::thread other(work);
    work();
    other.join();
    EXPECT_EQ(shared, u"one buffer, many owners");
}

TEST(Fold, IgnoresCaseInTheScriptsOfTheTable)
{
    const struct {
        std::u16string_view a, b;
        bool same;
    } kCases[] = {
        {u"Tessaly", u"tESSALY", true},
        {u"\u00C0\u00DE", u"\u00E0\u00FE", true},
        {u"\u00D7", u"\u00F7", false}, // signs, not letters
        {u"\u00DF", u"SS", false},
        {u"\u0178", u"\u00FF", true},
        {u"\u0130", u"i", false}, // never by locale
        {u"\u0141\u017D", u"\u0142\u017E", true},
        {u"\u03A9\u0386\u038F", u"\u03C9\u03AC\u03CE", true},
        {u"\u0416\u0401\u04C0\u04C1", u"\u0436\u0451\u04CF\u04C2", true},
        {u"a", u"a ", false},
        {u"", u"", true},
    };
    for (const auto& c : kCases) {
        SCOPED_TRACE(ToUtf8(c.a));
        EXPECT_EQ(EqualNoCase(c.a, c.b), c.same);
        EXPECT_EQ(CompareNoCase(c.a, c.b) == 0, c.same);
        if (c.same) {
            EXPECT_EQ(HashNoCase(c.a), HashNoCase(c.b));
        }
    }
    for (unsigned c = 0; c <= 0xFFFF; ++c) {
        const auto unit = static_cast<char16_t>(c);
        ASSERT_EQ(FoldCase(FoldCase(unit)), FoldCase(unit)) << c;
        ASSERT_EQ(FoldCase(UpperCase(unit)), FoldCase(unit)) << c;
    }
}

TEST(Utf8, TakesEveryCharacterThereAndBack)
{
    std::u16string all;
    for (char32_t c = 1; c < 0x10FFFF; c += c < 0x11000 ? 1 : 0x3FF) {
        if (c >= 0xD800 && c < 0xE000)
            continue;
        if (c >= 0x10000) {
            all.push_back(static_cast<char16_t>(0xD800 + ((c - 0x10000) >> 10)));
            all.push_back(static_cast<char16_t>(0xDC00 + (c & 0x3FF)));
        } else {
            all.push_back(static_cast<char16_t>(c));
        }
    }
    std::string bytes;
    VUnicodeString back;
    EXPECT_TRUE(ToUtf8(all, bytes));
    EXPECT_TRUE(FromUtf8(bytes, back));
    EXPECT_EQ(back, all);
}

TEST(Utf8, RefusesWhatIsNone)
{
    std::string bytes;
    EXPECT_FALSE(ToUtf8(std::u16string_view(u"a\xD800z", 3), bytes));
    EXPECT_EQ(bytes, "a?z");
    EXPECT_FALSE(ToUtf8(std::u16string_view(u"\xDC00\xD800", 2), bytes)) << "a pair the wrong way round";
    for (const char* const bad : {"\x80", "\xC0\x80", "\xC1\xBF", "\xE0\x80\x80", "\xED\xA0\x80", "\xF0\x80\x80\x80",
                                  "\xF4\x90\x80\x80", "\xFF", "\xC3", "\xE2\x82", "\xC3\x28"}) {
        VUnicodeString text;
        EXPECT_FALSE(FromUtf8(std::string("ok") + bad + "later", text));
        EXPECT_EQ(text, u"ok") << "what stands before comes out";
    }
}

TEST(CodePage, EveryByteComesBack)
{
    std::string all;
    for (int b = 0; b < 256; ++b)
        all.push_back(static_cast<char>(b));
    const VUnicodeString text = FromCodePage(all);
    EXPECT_EQ(ToCodePage(text), all);
    EXPECT_EQ(text.Mid(0x80, 5), u"\u20AC\u0081\u201A\u0192\u201E");
    EXPECT_EQ(text.Mid(0x9D, 3), u"\u009D\u017E\u0178");
    EXPECT_EQ(text[0xE4], u'\u00E4');
}

TEST(CodePage, WhatItLacksIsAQuestionMarkAndNoLookAlike)
{
    EXPECT_EQ(ToCodePage(u"\u0142\u0080\u2126\uFF21a"), "????a");
    EXPECT_EQ(ToCodePage(u"\xD83D\xDE00"), "??") << "one for each half of a pair";
}

} // namespace
} // namespace ostrand
