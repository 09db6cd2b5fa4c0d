#include "core/calendar.h"

#include <algorithm>

namespace ostrand {

namespace {

// The rule of leap years repeats every 400 years, and such a cycle begins with the first year of all counts. Within
// it each century but the last, and each group of four years but the last of a century, ends with a leap year.
constexpr uint32_t kDaysOfYear = 365;
constexpr uint32_t kDaysOf4Years = 4 * kDaysOfYear + 1;
constexpr uint32_t kDaysOf100Years = 25 * kDaysOf4Years - 1;
constexpr uint32_t kDaysOf400Years = 4 * kDaysOf100Years + 1;

constexpr uint64_t kTicksOfMillisecond = 10'000;
constexpr uint64_t kMillisecondsOfDay = 86'400'000;
constexpr uint32_t kFirstDayOfWeek = 1; // 1 January 1601 was a Monday

/// Days of the year in front of each month; the second row is that of leap years.
constexpr uint16_t kDaysBefore[2][13] = {
    {0, 31, 59, 90, 120, 151, 181, 212, 243, 273, 304, 334, 365},
    {0, 31, 60, 91, 121, 152, 182, 213, 244, 274, 305, 335, 366},
};

bool IsLeap(uint32_t year) { return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0); }

uint32_t DaysBeforeYear(uint32_t year)
{
    const uint32_t past = year - kFirstYear;
    return past * kDaysOfYear + past / 4 - past / 100 + past / 400;
}

/// Takes whole periods off the days. The last period of its parent is one day longer, hence `most`.
uint32_t TakePeriods(uint32_t& days, uint32_t length, uint32_t most)
{
    const uint32_t count = std::min(days / length, most);
    days -= count * length;
    return count;
}

} // namespace

bool ToCalendar(VFileTime time, VCalendarTime& out)
{
    const uint64_t milliseconds = time.ticks / kTicksOfMillisecond;
    const auto days = static_cast<uint32_t>(milliseconds / kMillisecondsOfDay);
    if (days >= DaysBeforeYear(kLastYear + 1))
        return false;

    uint32_t rest = days;
    uint32_t year = kFirstYear + rest / kDaysOf400Years * 400;
    rest %= kDaysOf400Years;
    year += TakePeriods(rest, kDaysOf100Years, 3) * 100;
    year += TakePeriods(rest, kDaysOf4Years, 24) * 4;
    year += TakePeriods(rest, kDaysOfYear, 3);

    const auto& before = kDaysBefore[IsLeap(year)];
    const auto month = std::upper_bound(before, before + 13, rest) - before;
    const auto ofDay = static_cast<uint32_t>(milliseconds % kMillisecondsOfDay);
    out.year = static_cast<uint16_t>(year);
    out.month = static_cast<uint16_t>(month);
    out.dayOfWeek = static_cast<uint16_t>((days + kFirstDayOfWeek) % 7);
    out.day = static_cast<uint16_t>(rest - before[month - 1] + 1);
    out.hour = static_cast<uint16_t>(ofDay / 3'600'000);
    out.minute = static_cast<uint16_t>(ofDay / 60'000 % 60);
    out.second = static_cast<uint16_t>(ofDay / 1000 % 60);
    out.millisecond = static_cast<uint16_t>(ofDay % 1000);
    return true;
}

bool ToFileTime(const VCalendarTime& t, VFileTime& out)
{
    if (t.year < kFirstYear || t.year > kLastYear || t.month < 1 || t.month > 12 || t.hour > 23 || t.minute > 59 ||
        t.second > 59 || t.millisecond > 999)
        return false;
    const auto& before = kDaysBefore[IsLeap(t.year)];
    if (t.day < 1 || t.day > before[t.month] - before[t.month - 1])
        return false;
    const uint64_t days = uint64_t{DaysBeforeYear(t.year)} + before[t.month - 1] + t.day - 1u;
    const uint64_t ofDay = ((t.hour * 60u + t.minute) * 60u + t.second) * 1000u + t.millisecond;
    out.ticks = (days * kMillisecondsOfDay + ofDay) * kTicksOfMillisecond;
    return true;
}

} // namespace ostrand
