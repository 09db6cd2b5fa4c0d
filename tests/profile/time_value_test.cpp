#include "profile/time_value.h"
#include "tests/profile/value_store.h"

#include <gtest/gtest.h>

namespace ostrand {
namespace {

constexpr const char16_t* kName = u"Last Sync Time";

TEST(TimeText, IsSevenNumbersThatMakeADate)
{
    struct {
        const char16_t* text;
        bool valid;
        uint64_t ticks;
    } const cases[] = {
        {u"1601:01:01:00:00:00:000", true, 0},
        {u"2024:02:29:12:34:56:789", true, 133536836967890000},
        {u"2024:2:29:12:34:56:789", true, 133536836967890000},
        {u"0000000000000002024:02:29:12:34:56:789", true, 133536836967890000},
        {u"30827:12:31:23:59:59:999", true, 9223149887999990000},
        {u"2024:02:30:00:00:00:000", false, 0},
        {u"2024:01:01:00:00:00", false, 0},
        {u"2024:01:01:00:00:00:000:", false, 0},
        {u"2024:01:01:00:00:00:000:0", false, 0},
        {u"2024:01::00:00:00:000", false, 0},
        {u"2024:12a:01:00:00:00:000", false, 0},
        {u"2024: 1:01:00:00:00:000", false, 0},
        {u"2024:+1:01:00:00:00:000", false, 0},
        {u"4294969320:01:01:00:00:00:000", false, 0}, // 2024 + 2^32
        {u"2024:01:01:00:00:00:00\u0660", false, 0},  // a digit, but not one of ours
        {u"", false, 0},
        {u"::::::", false, 0},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(ToUtf8(c.text));
        VFileTime time{7};
        EXPECT_EQ(ParseTimeText(c.text, time), c.valid);
        EXPECT_EQ(time.ticks, c.valid ? c.ticks : 7);
    }
}

TEST(TimeText, IsWrittenWithFixedWidths)
{
    ValueStore store;
    VProfileTime time;
    time.SetName(kName);
    VUnicodeString text;
    for (const auto& [ticks, expected] : {std::pair{10'000ull, u"1601:01:01:00:00:00:001"},
                                          std::pair{133536836967899999ull, u"2024:02:29:12:34:56:789"},
                                          std::pair{9223149887999990000ull, u"30827:12:31:23:59:59:999"}}) {
        time = VFileTime{ticks};
        time.Save(&store.Key(), true);
        ASSERT_TRUE(store.Key().ReadString(kName, text));
        EXPECT_EQ(ToUtf8(text), ToUtf8(expected));
    }
}

TEST(ProfileTime, OneThatHasNoTextCountsAsSaved)
{
    ValueStore store;
    VProfileTime time;
    time.SetName(kName);
    time.Load(&store.Key(), VFileTime{uint64_t{1} << 63});
    time.Save(&store.Key(), true);
    EXPECT_FALSE(time.IsDirty());
    EXPECT_FALSE(time.IsModified());
    EXPECT_TRUE(store.TakeWrites().empty());
}

TEST(ProfileTime, AnUnreadableTextCountsAsMissing)
{
    ValueStore store;
    store.Key().WriteString(kName, u"yesterday");
    VProfileTime time;
    time.SetName(kName);
    time.Load(&store.Key(), VFileTime{10'000});
    EXPECT_EQ(time.ticks, 10'000u);
    EXPECT_TRUE(time.IsDirty());
}

TEST(ProfileTime, TextAndAutomationValueNeedNoParser)
{
    VProfileTime time;
    time.SetName(kName);
    VReportMessageParams report;
    EXPECT_TRUE(time.Parse(u"1601:1:1:0:0:0:1", nullptr, report));
    EXPECT_EQ(time.ticks, 10'000u);
    EXPECT_FALSE(time.IsModified());
    EXPECT_FALSE(time.Parse(u"1601:1:1:0:0:0", nullptr, report));

    VVariant variant;
    ASSERT_TRUE(time.GetVariant(&variant, report));
    time = VFileTime{};
    ASSERT_TRUE(time.SetVariant(&variant, report));
    EXPECT_EQ(time.ticks, 10'000u);
    EXPECT_EQ(time.saved.ticks, 10'000u);
    const VVariant word{VUnicodeString(u"now")};
    EXPECT_FALSE(time.SetVariant(&word, report));
    EXPECT_EQ(time.ticks, 10'000u);
}

} // namespace
} // namespace ostrand
