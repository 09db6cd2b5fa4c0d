#include "profile/time_zones.h"

#include "core/fold.h"
#include "core/format.h"
#include "platform/error_codes.h"
#include "platform/platform.h"
#include "profile/zone_file.h"

#include <algorithm>
#include <cstdlib>
#include <set>

namespace ostrand {

namespace {

constexpr const char* kListFile = "/zone1970.tab";
constexpr size_t kLargestList = size_t{1} << 20;
constexpr size_t kNameColumn = 2; // behind the countries and the coordinates
constexpr const char* kUtc = "UTC";

/// The piece of a line at this place, tabs between the pieces.
std::string_view Column(std::string_view line, size_t number)
{
    for (; number > 0; --number) {
        const size_t tab = line.find('\t');
        line.remove_prefix(tab == line.npos ? line.size() : tab + 1);
    }
    return line.substr(0, line.find('\t'));
}

/// Names in the order of their bytes.
std::set<std::string> ZoneNames(const std::string& folder)
{
    std::set<std::string> names = {kUtc};
    std::string text;
    VFileInfo info;
    if (Platform().files->ReadWhole(folder + kListFile, kLargestList, text, info) != kErrorSuccess)
        return names;
    for (std::string_view rest = text; !rest.empty();) {
        const size_t length = std::min(rest.find('\n'), rest.size());
        const std::string_view line = rest.substr(0, length);
        if (!line.starts_with('#') && !Column(line, kNameColumn).empty())
            names.emplace(Column(line, kNameColumn));
        rest.remove_prefix(std::min(length + 1, rest.size()));
    }
    return names;
}

/// "(UTC+01:00) Europe/Berlin", by standard time.
VUnicodeString DisplayName(const VUnicodeString& name, const VTimeZoneInformation& zone)
{
    const int east = -(zone.bias + zone.standardBias);
    return Format(u"(UTC%1%2!02d!:%3!02d!) %4", east < 0 ? u"-" : u"+", std::abs(east) / 60, std::abs(east) % 60, name);
}

bool ReadEntry(const std::string& folder, const std::string& name, VTimeZoneEntry& entry)
{
    VZoneRule rule;
    if (!FromUtf8(name, entry.name) || !ReadZoneFile(folder + "/" + name, rule))
        return false;
    FromUtf8(rule.standardName, entry.standardName);
    FromUtf8(rule.daylightName, entry.daylightName);
    entry.information = rule.information;
    entry.display = DisplayName(entry.name, entry.information);
    return true;
}

VCalendarTime Now()
{
    VCalendarTime now;
    // A clock behind the calendar's end gives no real date, which the callers refuse.
    static_cast<void>(ToCalendar({Platform().clock->FileTime()}, now));
    return now;
}

/// TZ names a file, in the folder or by a full path, or is a rule itself.
bool ZoneOfVariable(std::string value, const std::string& folder, VZoneRule& rule)
{
    if (value.starts_with(':'))
        value.erase(0, 1);
    const std::string file = value.starts_with('/') ? value : folder + "/" + value;
    return !value.empty() && (ReadZoneFile(file, rule) || ParseZoneText(value, rule));
}

} // namespace

std::string ZoneFolder()
{
    std::string folder;
    const bool isNamed = Platform().environment->Get("TZDIR", folder) && !folder.empty();
    return isNamed ? folder : kZoneFolder;
}

VTimeZone::VTimeZone(const std::string& folder)
{
    for (const std::string& name : ZoneNames(folder)) {
        VTimeZoneEntry entry;
        if (ReadEntry(folder, name, entry))
            InsertByBias(zones, std::move(entry));
    }
}

const char16_t* VTimeZone::GetName(int index) const
{
    return index >= 0 && index < GetCount() ? zones[static_cast<size_t>(index)].name.c_str() : nullptr;
}

const char16_t* VTimeZone::GetDisplayName(int index) const
{
    return index >= 0 && index < GetCount() ? zones[static_cast<size_t>(index)].display.c_str() : nullptr;
}

const VTimeZoneEntry* VTimeZone::Find(std::u16string_view name) const
{
    const VTimeZoneEntry* const found = std::find_if(
        zones.begin(), zones.end(), [name](const VTimeZoneEntry& entry) { return EqualNoCase(entry.name, name); });
    return found == zones.end() ? nullptr : found;
}

bool VTimeZone::IsDaylightTime(const VTimeZoneInformation* zone, const VCalendarTime* utc)
{
    return HasDaylightTime(zone ? *zone : CurrentZone(), utc ? *utc : Now());
}

bool VTimeZone::GetBias(const VTimeZoneInformation* zone, const VCalendarTime* utc, int* bias)
{
    const VTimeZoneInformation rules = zone ? *zone : CurrentZone();
    const VCalendarTime time = utc ? *utc : Now();
    VFileTime ticks;
    if (!ToFileTime(time, ticks))
        return false;
    const int64_t season = HasDaylightTime(rules, time) ? rules.daylightBias : rules.standardBias;
    *bias = static_cast<int>(rules.bias + season);
    return true;
}

bool VTimeZone::LocalToUtc(const VTimeZoneInformation* zone, const VCalendarTime& time, VCalendarTime& out)
{
    int bias = 0;
    VFileTime ticks;
    return GetBias(zone, &time, &bias) && ToFileTime(time, ticks) && AddMinutes(ticks, bias, ticks) &&
           ToCalendar(ticks, out);
}

void InsertByBias(VArray<VTimeZoneEntry>& zones, VTimeZoneEntry entry)
{
    const auto* const place = std::find_if(zones.begin(), zones.end(), [&entry](const VTimeZoneEntry& other) {
        return other.information.bias <= entry.information.bias;
    });
    zones.InsertAt(static_cast<size_t>(place - zones.begin()), std::move(entry));
}

VTimeZoneInformation CurrentZone(const std::string& folder, const std::string& machineFile)
{
    VZoneRule rule;
    std::string value;
    const bool isRead = Platform().environment->Get("TZ", value) ? ZoneOfVariable(value, folder, rule)
                                                                 : ReadZoneFile(machineFile, rule);
    return isRead ? rule.information : VTimeZoneInformation();
}

} // namespace ostrand
