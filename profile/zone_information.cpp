#include "profile/zone_information.h"

#include "profile/block.h"

#include <limits>

namespace ostrand {

namespace {

constexpr uint64_t kTicksOfDay = 864'000'000'000;
constexpr int64_t kTicksOfMinute = 600'000'000;

/// The date that a rule means in a year; false for one that doesn't exist.
bool DateOfRule(const VCalendarTime& rule, uint16_t year, VCalendarTime& out)
{
    const bool isDecember = rule.month == 12;
    VFileTime first, next;
    if (!ToFileTime({year, rule.month, 0, 1, 0, 0, 0, 0}, first) ||
        !ToFileTime({static_cast<uint16_t>(year + isDecember), static_cast<uint16_t>(isDecember ? 1 : rule.month + 1),
                     0, 1, 0, 0, 0, 0},
                    next))
        return false;
    const uint64_t days = (next.ticks - first.ticks) / kTicksOfDay;
    int count = 0;
    // Not to the last day: see HasDaylightTime.
    for (uint64_t i = 0; i + 1 < days && (count == 0 || count != rule.day); ++i) {
        VCalendarTime day;
        if (!ToCalendar({first.ticks + i * kTicksOfDay}, day) || day.dayOfWeek != rule.dayOfWeek)
            continue;
        out = day;
        ++count;
    }
    return count > 0;
}

/// The moment of a change, in the zone's own time.
bool MomentOf(const VCalendarTime& change, uint16_t year, VFileTime& out)
{
    VCalendarTime date = change;
    if (change.year == 0) {
        if (!DateOfRule(change, year, date))
            return false;
        date.hour = change.hour;
        date.minute = change.minute;
        date.second = change.second;
        date.millisecond = change.millisecond;
    }
    return ToFileTime(date, out);
}

auto FieldsOf(VCalendarTime& t)
{
    return std::tie(t.year, t.month, t.dayOfWeek, t.day, t.hour, t.minute, t.second, t.millisecond);
}

} // namespace

void VTimeZoneInformation::Unpack(std::span<const uint8_t, kStoredSize> in)
{
    UnpackFields(
        in, std::tuple_cat(std::tie(bias, standardBias, daylightBias), FieldsOf(standardDate), FieldsOf(daylightDate)));
}

bool HasDaylightTime(const VTimeZoneInformation& zone, const VCalendarTime& utc)
{
    if (zone.standardDate.month == 0 || zone.daylightDate.month == 0)
        return false;
    VFileTime local, begin, end;
    VCalendarTime calendar;
    if (!ToFileTime(utc, local) || !AddMinutes(local, -(int64_t{zone.bias} + zone.standardBias), local) ||
        !ToCalendar(local, calendar) || !MomentOf(zone.daylightDate, calendar.year, begin) ||
        !MomentOf(zone.standardDate, calendar.year, end))
        return false;
    if (begin.ticks <= end.ticks)
        return begin.ticks <= local.ticks && local.ticks < end.ticks;
    return !(end.ticks <= local.ticks && local.ticks < begin.ticks);
}

bool AddMinutes(VFileTime time, int64_t minutes, VFileTime& out)
{
    constexpr int64_t kMost = std::numeric_limits<int64_t>::max();
    // A count with its top bit set is no moment, so both summands are signed ones.
    if (time.ticks > static_cast<uint64_t>(kMost) || minutes > kMost / kTicksOfMinute ||
        minutes < -(kMost / kTicksOfMinute))
        return false;
    const int64_t delta = minutes * kTicksOfMinute;
    const auto ticks = static_cast<int64_t>(time.ticks);
    if (delta > 0 ? ticks > kMost - delta : ticks < -delta)
        return false;
    out.ticks = static_cast<uint64_t>(ticks + delta);
    return true;
}

} // namespace ostrand
