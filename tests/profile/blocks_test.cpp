// Records that are stored as blocks: their bytes, blocks of other sizes, and the two forms of fonts.
#include "profile/color_values.h"
#include "profile/log_font.h"
#include "profile/margins.h"
#include "profile/window_placement.h"
#include "tests/profile/value_store.h"

#include <gtest/gtest.h>

#include <limits>
#include <vector>

namespace ostrand {
namespace {

using Bytes = std::vector<uint8_t>;

Bytes Joined(std::initializer_list<Bytes> parts)
{
    Bytes all;
    for (const Bytes& part : parts)
        all.insert(all.end(), part.begin(), part.end());
    return all;
}

template <class R>
Bytes Packed(const R& record)
{
    Bytes block(R::kStoredSize);
    record.Pack(std::span<uint8_t, R::kStoredSize>(block));
    return block;
}

template <class R>
R Unpacked(const Bytes& block)
{
    R record;
    record.Unpack(std::span<const uint8_t, R::kStoredSize>(block));
    return record;
}

template <class R>
void ExpectBlock(const R& record, const Bytes& block)
{
    EXPECT_EQ(Packed(record), block);
    EXPECT_EQ(Unpacked<R>(block), record);
}

/// The part of both font forms in front of the face.
const Bytes kFontFront = {0xF3, 0xFF, 0xFF, 0xFF, 1, 0, 0, 0, 2, 0,   0, 0, 3,  0,
                          0,    0,    0xBC, 2,    0, 0, 4, 5, 6, 238, 8, 9, 10, 49};

VLogFont FontWith(std::u16string_view face)
{
    return VLogFont(-13, 1, 2, 3, 700, 4, 5, 6, 238, 8, 9, 10, 49, face, 100);
}

Bytes OldFont(std::string_view face)
{
    Bytes narrow(face.begin(), face.end());
    narrow.resize(32);
    return Joined({kFontFront, narrow, {100, 0, 0, 0}});
}

TEST(Blocks, FieldsStandInOrderWithoutGaps)
{
    ExpectBlock(VWindowPlacement{{44, 2, 1, -1, 4, -4, 6, 7, 8, 9, 0x01020304}},
                {44,  0,   0, 0, 2, 0, 0, 0, 1, 0, 0, 0, 255, 255, 255, 255, 4, 0, 0, 0, 252, 255,
                 255, 255, 6, 0, 0, 0, 7, 0, 0, 0, 8, 0, 0,   0,   9,   0,   0, 0, 4, 3, 2,   1});
    ExpectBlock(VMarginData{.left = 0.5, .right = 1, .top = -2, .bottom = 0},
                {0, 0, 0, 0, 0, 0, 0xE0, 0x3F, 0, 0, 0, 0, 0, 0, 0xF0, 0x3F,
                 0, 0, 0, 0, 0, 0, 0,    0xC0, 0, 0, 0, 0, 0, 0, 0,    0});
    CustomColors colors{};
    colors[0] = 0x00FF8040;
    colors[15] = 0x01020304;
    ExpectBlock(colors, Joined({{0x40, 0x80, 0xFF, 0}, Bytes(56), {4, 3, 2, 1}}));
    ExpectBlock(FontWith(u"A\u20AC"), Joined({kFontFront, {'A', 0, 0xAC, 0x20}, Bytes(60), {100, 0, 0, 0}}));
}

TEST(Blocks, AShortBlockFillsTheFrontAndALongOneIsNotRead)
{
    VProfileWindowPlacement placement;
    placement.SetName(u"Window Placement");
    const auto Read = [&placement](size_t size) {
        ValueStore store;
        store.Key().WriteBinary(u"Window Placement", Bytes(size, 1).data(), static_cast<unsigned>(size));
        placement = VWindowPlacement{{44, 0, 1, -4, -4, -4, -4, 0, 0, 0, 0}};
        return placement.ReadValue(&store.Key());
    };
    EXPECT_TRUE(Read(10));
    EXPECT_EQ(placement.flags, 0x01010101u);
    EXPECT_EQ(placement.showCommand, 0x00000101u);
    EXPECT_EQ(placement.minPositionX, -4);
    EXPECT_TRUE(Read(44));
    EXPECT_EQ(placement.normalBottom, 0x01010101);
    EXPECT_FALSE(Read(45));
    EXPECT_EQ(placement.flags, 0u);
}

TEST(Margins, WhatIsNoNumberIsNotAChange)
{
    VProfile2<VMarginData, VProfileBinary> margins;
    margins.Load(nullptr, {std::numeric_limits<double>::quiet_NaN(), 0.5, 0.5, 0.5});
    EXPECT_FALSE(margins.IsModified());
    margins.left = 0.5;
    EXPECT_TRUE(margins.IsModified());
}

TEST(LogFont, PointSizeFollowsFromTheHeight)
{
    for (const auto& [size, points] : {std::pair{13, 97}, {12, 90}, {-12, 90}, {96, 720}, {0, 0}}) {
        SCOPED_TRACE(size);
        const VLogFont font(size, u"Terminal");
        EXPECT_EQ(font.height, -size);
        EXPECT_EQ(font.pointSize, points);
        EXPECT_EQ(VLogFont(static_cast<const LOGFONTW&>(font)), font);
    }
    EXPECT_EQ(VLogFont(12, u"Terminal"), VLogFont(-12, 0, 0, 0, 400, 0, 0, 0, 1, 0, 0, 0, 1, u"Terminal", 90));
}

TEST(LogFont, AFaceHas32CharactersAtMost)
{
    const std::u16string full(32, u'F');
    EXPECT_EQ(VLogFont(12, full + u"G").GetFace(), full);
    EXPECT_EQ(VLogFont(12, std::u16string(u"A\0B", 3)).GetFace(), u"A");
    VLogFont font(12, full);
    font.SetFace(u"x");
    EXPECT_EQ(font, VLogFont(12, u"x")) << "the rest is zero";
}

TEST(ProfileLogFont, TakesTheOldFormOverFromTheOldName)
{
    const Bytes current = Packed(FontWith(u"Current"));
    const Bytes old = OldFont("Old \x80");
    const VLogFont oldFont = FontWith(u"Old \u20AC");
    VLogFont cut; // of 30 bytes: the fields in front and two characters
    cut = FontWith(u"Ol");
    cut.pointSize = 0;

    struct {
        const char* what;
        const char16_t* name;
        std::vector<std::pair<const char16_t*, Bytes>> stored;
        const VLogFont* expected; // null: missing
    } const cases[] = {
        {"current hides old",
         u"Normal Font v2",
         {{u"Normal Font v2", Packed(oldFont)}, {u"Normal Font", OldFont("x")}},
         &oldFont},
        {"old name", u"Normal Font v2", {{u"Normal Font", old}}, &oldFont},
        {"old form under the current name", u"Normal Font v2", {{u"Normal Font v2", old}}, &oldFont},
        {"longer than the old form", u"Normal Font v2", {{u"Normal Font v2", Joined({old, Bytes(31, 7)})}}, &oldFont},
        {"cut old form", u"Normal Font v2", {{u"Normal Font", Bytes(old.begin(), old.begin() + 30)}}, &cut},
        {"current form under the old name", u"Normal Font v2", {{u"Normal Font", current}}, nullptr},
        {"too long", u"Normal Font v2", {{u"Normal Font v2", Joined({current, {0}})}}, nullptr},
        {"neither", u"Normal Font v2", {}, nullptr},
        {"a name without an older one", u"Normal Font", {{u"Normal", old}}, nullptr},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        ValueStore store;
        for (const auto& [name, block] : c.stored)
            store.Key().WriteBinary(name, block.data(), static_cast<unsigned>(block.size()));
        VProfileLogFont font;
        font.SetName(c.name);
        font.pointSize = -1;
        EXPECT_EQ(font.ReadValue(&store.Key()), c.expected != nullptr);
        if (c.expected)
            EXPECT_EQ(font.Value(), *c.expected);
        else
            EXPECT_EQ(font.pointSize, -1);
    }
}

TEST(ProfileLogFont, IsSavedUnderTheCurrentNameOnly)
{
    ValueStore store;
    const Bytes old = OldFont("Old");
    store.Key().WriteBinary(u"Normal Font", old.data(), 64);
    VProfileLogFont font;
    font.SetName(u"Normal Font v2");
    font.Load(&store.Key(), VLogFont());
    store.TakeWrites();
    font.Save(&store.Key(), false);
    EXPECT_TRUE(store.TakeWrites().empty()) << "a font that was taken over is no change";
    font.Save(&store.Key(), true);
    EXPECT_EQ(store.TakeWrites(), std::vector<std::u16string>{u"Normal Font v2"});
    Bytes written(96);
    unsigned size = 96;
    ASSERT_TRUE(store.Key().ReadBinary(u"Normal Font v2", written.data(), &size));
    EXPECT_EQ(written, Packed(FontWith(u"Old")));
}

} // namespace
} // namespace ostrand
