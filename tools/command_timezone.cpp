// timezone list, timezone bias
#include "tools/commands.h"

#include "profile/time_zones.h"
#include "tools/iso_time.h"
#include "tools/json_writer.h"
#include "tools/output.h"
#include "tools/suggest.h"

namespace ostrand::tool {

namespace {

Json ChangeJson(const VCalendarTime& change)
{
    if (change.month == 0)
        return {};
    return {{"month", change.month}, {"week", change.day},      {"dayOfWeek", change.dayOfWeek},
            {"hour", change.hour},   {"minute", change.minute}, {"second", change.second}};
}

Json ZoneJson(const VTimeZoneEntry& zone)
{
    const VTimeZoneInformation& information = zone.information;
    return {{"name", Lossless(zone.name)},
            {"display", Lossless(zone.display)},
            {"standardName", Lossless(zone.standardName)},
            {"daylightName", Lossless(zone.daylightName)},
            {"bias", information.bias},
            {"daylightBias", information.daylightBias},
            {"daylightBegins", ChangeJson(information.daylightDate)},
            {"standardBegins", ChangeJson(information.standardDate)}};
}

bool HasSeasons(const VTimeZoneEntry& zone) { return zone.information.daylightDate.month > 0; }

std::vector<std::string> ZoneNames(const VTimeZone& zones)
{
    std::vector<std::string> names;
    for (const VTimeZoneEntry& zone : zones.zones)
        names.push_back(Lossless(zone.name));
    return names;
}

Exit FailUnknown(const VTimeZone& zones, const std::string& typed)
{
    const std::string nearest = NearestName(typed, ZoneNames(zones));
    return Fail(Exit::Failed, "no time zone is named " + Cited(typed) +
                                  (nearest.empty() ? "" : "; did you mean " + Cited(nearest) + "?"));
}

} // namespace

Exit ListTimeZones(const Request& request)
{
    const VTimeZone zones;
    Json list = Json::array();
    std::vector<std::vector<std::string>> rows = {{"NAME", "BIAS", "IN DAYLIGHT TIME", "SHOWN AS"}};
    for (const VTimeZoneEntry& zone : zones.zones) {
        const int daylight = zone.information.bias + zone.information.daylightBias;
        list.push_back(ZoneJson(zone));
        rows.push_back({Lossless(zone.name), std::to_string(zone.information.bias),
                        HasSeasons(zone) ? std::to_string(daylight) : "", Lossless(zone.display)});
    }
    return Print(request.asJson ? WriteJson(list) : Table(rows));
}

Exit BiasOfTimeZone(const Request& request)
{
    const VTimeZone zones;
    VUnicodeString name;
    const VTimeZoneEntry* const zone = FromUtf8(request.zone, name) ? zones.Find(name) : nullptr;
    if (!zone)
        return FailUnknown(zones, request.zone);
    VCalendarTime utc;
    int bias = 0;
    if (!ReadIsoTime(request.time, utc) || !VTimeZone::GetBias(&zone->information, &utc, &bias))
        return Fail(Exit::Failed, Cited(request.time) + " is no time such as 2026-03-29T01:00:00Z");
    if (!request.asJson)
        return Print(std::to_string(bias) + "\n");
    return Print(WriteJson({{"zone", Lossless(zone->name)},
                            {"bias", bias},
                            {"daylight", VTimeZone::IsDaylightTime(&zone->information, &utc)}}));
}

Exit CompleteZones(const Request&)
{
    std::string text;
    for (const std::string& name : ZoneNames(VTimeZone()))
        text += name + "\n";
    return Print(text);
}

} // namespace ostrand::tool
