// What a time zone says of itself: the distance from UTC, and between which two moments of a year its clocks are set
// differently.
#pragma once

#include "core/calendar.h"
#include "platform/export.h"

#include <cstdint>
#include <span>

namespace ostrand {

/// UTC = local time + bias. All biases are minutes; that of a season is added to the zone's.
/// A change with year 0 is a rule for every year: the `day`-th `dayOfWeek` of the month, 5 meaning the last one, at a
/// time of day. With another year it is one date. A month of 0 means that the clocks are never changed.
struct OSTRAND_API VTimeZoneInformation {
    static constexpr unsigned kStoredSize = 44;

    int32_t bias = 0;
    int32_t standardBias = 0;
    int32_t daylightBias = 0;
    VCalendarTime standardDate; ///< standard time begins
    VCalendarTime daylightDate; ///< daylight time begins

    void Unpack(std::span<const uint8_t, kStoredSize> in);
    bool operator==(const VTimeZoneInformation&) const = default;
};

/// Whether the zone has daylight time at a moment in UTC. False also for a moment or a change that is no real date.
/// On purpose: both changes are compared with standard time, so daylight time ends by its own length too late, and a
/// rule never finds a day in the last day of a month but in the week before. Other programs' zones are evaluated in
/// this way. Held by TimeZone.ChangesAreReadAsStandardTime and TimeZone.TheLastDayOfAMonthIsNeverAChange.
bool HasDaylightTime(const VTimeZoneInformation& zone, const VCalendarTime& utc);

/// `minutes` later. False, `out` untouched, beyond what a count holds.
[[nodiscard]] bool AddMinutes(VFileTime time, int64_t minutes, VFileTime& out);

} // namespace ostrand
