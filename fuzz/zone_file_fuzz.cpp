// Zone files and texts of TZ: whatever was read gives a zone that can be asked at any time, and whose rules are in
// their ranges.
#include "profile/zone_file.h"

#include <cstdint>
#include <cstdlib>

using namespace ostrand;

namespace {

void CheckChange(const VCalendarTime& change)
{
    const bool isRule = change.month >= 1 && change.month <= 12 && change.day >= 1 && change.day <= 5;
    if (change.year != 0 || (change.month != 0 && !isRule) || change.dayOfWeek > 6 || change.hour > 23)
        std::abort();
}

void CheckZone(const VZoneRule& rule)
{
    const VTimeZoneInformation& zone = rule.information;
    CheckChange(zone.daylightDate);
    CheckChange(zone.standardDate);
    if (std::abs(zone.bias) >= 25 * 60 || std::abs(zone.daylightBias) >= 50 * 60 || rule.standardName.size() < 3)
        std::abort();
    for (const uint16_t year : {kFirstYear, uint16_t{2024}, kLastYear})
        for (uint16_t month = 1; month <= 12; ++month)
            HasDaylightTime(zone, {year, month, 0, 1, 0, 0, 0, 0});
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    for (const std::string_view text : {bytes, LastLineOfZoneFile(bytes)})
        if (VZoneRule rule; ParseZoneText(text, rule))
            CheckZone(rule);
    return 0;
}
