// Daylight time and biases.

#include "profile/time_zones.h"
#include "tests/vectors/json_text.h"

#include <array>

namespace ostrand::vectors {

namespace {

VCalendarTime ToRule(const Json& rule)
{
    return {rule.at("year"), rule.at("month"),  rule.at("day_of_week"), rule.at("day"),
            rule.at("hour"), rule.at("minute"), rule.at("second"),      rule.at("millisecond")};
}

Json FromRule(const VCalendarTime& rule)
{
    return {{"year", rule.year},
            {"month", rule.month},
            {"day_of_week", rule.dayOfWeek},
            {"day", rule.day},
            {"hour", rule.hour},
            {"minute", rule.minute},
            {"second", rule.second},
            {"millisecond", rule.millisecond}};
}

VTimeZoneInformation ToZone(const Json& zone)
{
    VTimeZoneInformation information;
    information.bias = zone.at("bias");
    information.standardBias = zone.at("standard_bias");
    information.daylightBias = zone.at("daylight_bias");
    information.standardDate = ToRule(zone.at("standard_date"));
    information.daylightDate = ToRule(zone.at("daylight_date"));
    return information;
}

/// Year, month, day, hour, minute, second, millisecond.
VCalendarTime ToMoment(const Json& moment)
{
    return {moment.at(0), moment.at(1), 0, moment.at(2), moment.at(3), moment.at(4), moment.at(5), moment.at(6)};
}

Json FromMoment(const VCalendarTime& t) { return {t.year, t.month, t.day, t.hour, t.minute, t.second, t.millisecond}; }

Json Daylight(const Json& theCase)
{
    const VTimeZoneInformation zone = ToZone(theCase.at("zone"));
    const VCalendarTime utc = ToMoment(theCase.at("utc"));
    Json told = {{"daylight", VTimeZone::IsDaylightTime(&zone, &utc)}};
    int bias = 0;
    if (VTimeZone::GetBias(&zone, &utc, &bias))
        told["bias"] = bias;
    return told;
}

Json ToUtc(const Json& theCase)
{
    const VTimeZoneInformation zone = ToZone(theCase.at("zone"));
    VCalendarTime utc;
    if (!VTimeZone::LocalToUtc(&zone, ToMoment(theCase.at("time")), utc))
        return {{"valid", false}};
    return {{"valid", true}, {"utc", FromMoment(utc)}};
}

Json Unpack(const Json& theCase)
{
    const std::vector<uint8_t> bytes = ToBytes(theCase.at("block"));
    VTimeZoneInformation zone;
    if (bytes.size() == VTimeZoneInformation::kStoredSize) // a block of another size leaves zeros
        zone.Unpack(std::span<const uint8_t>(bytes).first<VTimeZoneInformation::kStoredSize>());
    return {{"zone",
             {{"bias", zone.bias},
              {"standard_bias", zone.standardBias},
              {"daylight_bias", zone.daylightBias},
              {"standard_date", FromRule(zone.standardDate)},
              {"daylight_date", FromRule(zone.daylightDate)}}}};
}

Json Order(const Json& theCase)
{
    VArray<VTimeZoneEntry> zones;
    for (const Json& given : theCase.at("entries")) {
        VTimeZoneEntry entry;
        entry.name = ToText(given.at("name"));
        entry.information.bias = given.at("bias");
        InsertByBias(zones, entry);
    }
    Json names = Json::array();
    for (const VTimeZoneEntry& entry : zones)
        names.push_back(FromText(entry.name));
    return {{"names", names}};
}

constexpr std::array kKinds = {
    Kind{"daylight", Daylight},
    Kind{"to utc", ToUtc},
    Kind{"unpack", Unpack},
    Kind{"order", Order},
};

} // namespace

std::span<const Kind> TimeZoneKinds() { return kKinds; }

} // namespace ostrand::vectors
