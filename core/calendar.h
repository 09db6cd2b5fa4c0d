// Moments as counts of 100 nanoseconds, and as calendar dates with a time of day. All times are UTC; leap seconds
// don't exist here. The calendar is the Gregorian one throughout.
#pragma once

#include "platform/export.h"

#include <cstdint>

namespace ostrand {

/// A moment: 100-nanosecond units since 1 January 1601.
struct VFileTime {
    uint64_t ticks = 0;

    bool operator==(const VFileTime&) const = default;
};

struct VCalendarTime {
    uint16_t year = 0;
    uint16_t month = 0;     ///< from 1
    uint16_t dayOfWeek = 0; ///< Sunday is 0
    uint16_t day = 0;       ///< from 1
    uint16_t hour = 0;
    uint16_t minute = 0;
    uint16_t second = 0;
    uint16_t millisecond = 0;

    bool operator==(const VCalendarTime&) const = default;
};

/// What both conversions cover. A count with its top bit set lies behind the last year.
inline constexpr uint16_t kFirstYear = 1601;
inline constexpr uint16_t kLastYear = 30827;

/// False, `out` untouched, behind the last year. What is less than a millisecond is cut off.
[[nodiscard]] OSTRAND_API bool ToCalendar(VFileTime time, VCalendarTime& out);
/// Doesn't look at the day of the week. False, `out` untouched, where a field is out of range or the month has no such
/// day.
[[nodiscard]] OSTRAND_API bool ToFileTime(const VCalendarTime& calendar, VFileTime& out);

} // namespace ostrand
