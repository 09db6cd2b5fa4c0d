#include "core/calendar.h"

#include <gtest/gtest.h>

#include <chrono>

namespace ostrand {
namespace {

constexpr uint64_t kTicksOfDay = 864'000'000'000;

TEST(Calendar, EveryDayAgreesWithAnotherCalendar)
{
    using namespace std::chrono;
    const sys_days begin = year{kFirstYear} / January / 1;
    uint64_t days = 0;
    for (sys_days day = begin; day < sys_days{year{2801} / January / 1}; day += std::chrono::days{1}, ++days) {
        const year_month_day expected{day};
        const uint64_t ticks = days * kTicksOfDay + days % 1000 * 10'000;
        VCalendarTime calendar;
        ASSERT_TRUE(ToCalendar({ticks}, calendar));
        ASSERT_EQ(calendar.year, static_cast<int>(expected.year())) << days;
        ASSERT_EQ(calendar.month, static_cast<unsigned>(expected.month())) << days;
        ASSERT_EQ(calendar.day, static_cast<unsigned>(expected.day())) << days;
        ASSERT_EQ(calendar.dayOfWeek, weekday{day}.c_encoding()) << days;
        VFileTime back;
        ASSERT_TRUE(ToFileTime(calendar, back));
        ASSERT_EQ(back.ticks, ticks) << days;
    }
}

TEST(Calendar, CutsBelowTheMillisecond)
{
    VCalendarTime calendar;
    ASSERT_TRUE(ToCalendar({10'000 * 1000 - 1}, calendar));
    EXPECT_EQ(calendar, (VCalendarTime{1601, 1, 1, 1, 0, 0, 0, 999}));
}

TEST(Calendar, EndsWithItsLastYear)
{
    VFileTime last;
    ASSERT_TRUE(ToFileTime({30827, 12, 0, 31, 23, 59, 59, 999}, last));
    VCalendarTime calendar;
    ASSERT_TRUE(ToCalendar({last.ticks + 9'999}, calendar));
    EXPECT_EQ(calendar, (VCalendarTime{30827, 12, 5, 31, 23, 59, 59, 999}));
    for (const uint64_t behind : {last.ticks + 10'000, uint64_t{1} << 63, ~uint64_t{0}})
        EXPECT_FALSE(ToCalendar({behind}, calendar)) << behind;
}

TEST(Calendar, RefusesDatesThatDoNotExist)
{
    const VCalendarTime bad[] = {
        {1600, 12, 0, 31, 0, 0, 0, 0}, {30828, 1, 0, 1, 0, 0, 0, 0},   {2024, 0, 0, 1, 0, 0, 0, 0},
        {2024, 13, 0, 1, 0, 0, 0, 0},  {2024, 1, 0, 0, 0, 0, 0, 0},    {2024, 1, 0, 32, 0, 0, 0, 0},
        {2024, 2, 0, 30, 0, 0, 0, 0},  {2023, 2, 0, 29, 0, 0, 0, 0},   {1900, 2, 0, 29, 0, 0, 0, 0},
        {2024, 4, 0, 31, 0, 0, 0, 0},  {2024, 1, 0, 1, 24, 0, 0, 0},   {2024, 1, 0, 1, 0, 60, 0, 0},
        {2024, 1, 0, 1, 0, 0, 60, 0},  {2024, 1, 0, 1, 0, 0, 0, 1000},
    };
    for (const VCalendarTime& date : bad) {
        VFileTime time{7};
        EXPECT_FALSE(ToFileTime(date, time)) << date.year << ' ' << date.month << ' ' << date.day;
        EXPECT_EQ(time.ticks, 7u);
    }
    VFileTime time;
    EXPECT_TRUE(ToFileTime({2000, 2, 6, 29, 0, 0, 0, 0}, time)) << "the day of the week isn't looked at";
}

} // namespace
} // namespace ostrand
