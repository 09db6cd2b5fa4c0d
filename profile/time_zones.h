// The time zones that the system knows, from the greatest bias (the west) to the least, and conversions with them.
//
//     const VTimeZone zones;
//     const VTimeZoneEntry* const berlin = zones.Find(u"Europe/Berlin");
//     int bias = 0;
//     if (berlin && VTimeZone::GetBias(&berlin->information, &utc, &bias)) ...
#pragma once

#include "core/array.h"
#include "platform/places.h"
#include "profile/zone_information.h"

#include <string>
#include <string_view>

namespace ostrand {

struct VTimeZoneEntry {
    VUnicodeString name; ///< identifies the zone, such as "Europe/Berlin"
    VUnicodeString standardName;
    VUnicodeString daylightName; ///< empty for a zone without daylight time
    VUnicodeString display;      ///< "(UTC+01:00) Europe/Berlin"
    VTimeZoneInformation information;
};

/// Where the zone files lie: TZDIR, or else the system's usual place.
OSTRAND_API std::string ZoneFolder();

/// The list, read from the system's zone files when it is made; empty where there are none. A zone has the rules that
/// hold from now on, and is told by them for the past, too.
class OSTRAND_API VTimeZone {
public:
    /// The folder holds zone1970.tab, which names the zones, and a file for each; the zone UTC comes in addition.
    explicit VTimeZone(const std::string& folder = ZoneFolder());
    virtual ~VTimeZone() = default;

    int GetCount() const { return static_cast<int>(zones.GetCount()); }
    /// Null for an index outside the list.
    const char16_t* GetName(int index) const;
    const char16_t* GetDisplayName(int index) const;
    /// In any case; null for an unknown name.
    const VTimeZoneEntry* Find(std::u16string_view name) const;

    /// A null zone is that of this process: TZ, or else the machine's. A null time is now.
    static bool IsDaylightTime(const VTimeZoneInformation* zone, const VCalendarTime* utc);
    /// Minutes that local time lacks to UTC at that time. False, `bias` untouched, for a time that is no real date.
    [[nodiscard]] static bool GetBias(const VTimeZoneInformation* zone, const VCalendarTime* utc, int* bias);
    /// On purpose: whether daylight time holds is asked with the local time as though it were UTC, as former releases
    /// did. Held by TimeZone.LocalTimeIsAskedAsUtc.
    [[nodiscard]] static bool LocalToUtc(const VTimeZoneInformation* zone, const VCalendarTime& time,
                                         VCalendarTime& out);

    VArray<VTimeZoneEntry> zones;
};

/// Puts an entry in front of the first one whose bias isn't greater.
OSTRAND_API void InsertByBias(VArray<VTimeZoneEntry>& zones, VTimeZoneEntry entry);

/// The zone that TZ names, or else that of the machine's file; UTC where neither can be read.
OSTRAND_API VTimeZoneInformation CurrentZone(const std::string& folder = ZoneFolder(),
                                             const std::string& machineFile = kLocalZoneFile);

} // namespace ostrand
