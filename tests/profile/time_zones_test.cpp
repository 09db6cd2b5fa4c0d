#include "profile/time_zones.h"

#include "profile/zone_file.h"
#include "tests/support/fake_platform.h"
#include "tests/support/temp_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace ostrand {
namespace {

using testing::ElementsAre;

constexpr uint64_t kTicksOfSecond = 10'000'000;
constexpr const char* kZones = OSTRAND_TEST_DATA "/zoneinfo";

uint64_t Ticks(const VCalendarTime& time)
{
    VFileTime ticks;
    EXPECT_TRUE(ToFileTime(time, ticks));
    return ticks.ticks;
}

/// Minutes east of UTC at a moment.
int EastAt(const VTimeZoneInformation& zone, uint64_t ticks)
{
    VCalendarTime utc;
    int bias = 9999;
    EXPECT_TRUE(ToCalendar({ticks}, utc));
    EXPECT_TRUE(VTimeZone::GetBias(&zone, &utc, &bias));
    return -bias;
}

const VTimeZoneInformation& ZoneOf(const VTimeZone& zones, std::u16string_view name)
{
    static const VTimeZoneInformation none;
    const VTimeZoneEntry* const entry = zones.Find(name);
    EXPECT_NE(entry, nullptr) << ToUtf8(name);
    return entry ? entry->information : none;
}

// Minutes east of UTC in both seasons, and the moments of the changes in 2026, as Python's zoneinfo tells them from the
// system's files. In Dublin winter is the season with its own rule.
struct KnownZone {
    std::u16string_view name;
    int standard, daylight;
    VCalendarTime begin, end; // of the season that isn't standard, UTC
};
const KnownZone kKnown[] = {
    {u"America/New_York", -300, -240, {2026, 3, 0, 8, 7, 0, 0, 0}, {2026, 11, 0, 1, 6, 0, 0, 0}},
    {u"America/St_Johns", -210, -150, {2026, 3, 0, 8, 5, 30, 0, 0}, {2026, 11, 0, 1, 4, 30, 0, 0}},
    {u"Europe/Berlin", 60, 120, {2026, 3, 0, 29, 1, 0, 0, 0}, {2026, 10, 0, 25, 1, 0, 0, 0}},
    {u"Europe/Dublin", 60, 0, {2026, 10, 0, 25, 1, 0, 0, 0}, {2026, 3, 0, 29, 1, 0, 0, 0}},
    {u"Asia/Jerusalem", 120, 180, {2026, 3, 0, 27, 0, 0, 0, 0}, {2026, 10, 0, 24, 23, 0, 0, 0}},
    {u"Asia/Gaza", 120, 180, {2026, 3, 0, 28, 0, 0, 0, 0}, {2026, 10, 0, 23, 23, 0, 0, 0}},
    {u"Antarctica/Troll", 0, 120, {2026, 3, 0, 29, 1, 0, 0, 0}, {2026, 10, 0, 25, 1, 0, 0, 0}},
    {u"America/Nuuk", -120, -60, {2026, 3, 0, 29, 1, 0, 0, 0}, {2026, 10, 0, 25, 1, 0, 0, 0}},
    {u"America/Santiago", -240, -180, {2026, 9, 0, 6, 4, 0, 0, 0}, {2026, 4, 0, 5, 3, 0, 0, 0}},
    {u"Australia/Sydney", 600, 660, {2026, 10, 0, 3, 16, 0, 0, 0}, {2026, 4, 0, 4, 16, 0, 0, 0}},
    {u"Australia/Lord_Howe", 630, 660, {2026, 10, 0, 3, 15, 30, 0, 0}, {2026, 4, 0, 4, 15, 0, 0, 0}},
    {u"Pacific/Chatham", 765, 825, {2026, 9, 0, 26, 14, 0, 0, 0}, {2026, 4, 0, 4, 14, 0, 0, 0}},
    {u"Asia/Kolkata", 330, 330, {2026, 3, 0, 29, 1, 0, 0, 0}, {2026, 10, 0, 25, 1, 0, 0, 0}},
    {u"Asia/Kathmandu", 345, 345, {2026, 3, 0, 29, 1, 0, 0, 0}, {2026, 10, 0, 25, 1, 0, 0, 0}},
    {u"UTC", 0, 0, {2026, 3, 0, 29, 1, 0, 0, 0}, {2026, 10, 0, 25, 1, 0, 0, 0}},
};

TEST(TimeZone, ChangesAreReadAsStandardTime)
{
    const VTimeZone zones(kZones);
    for (const KnownZone& known : kKnown) {
        SCOPED_TRACE(ToUtf8(known.name));
        const VTimeZoneInformation& zone = ZoneOf(zones, known.name);
        const uint64_t begin = Ticks(known.begin);
        EXPECT_EQ(EastAt(zone, begin - kTicksOfSecond), known.standard);
        EXPECT_EQ(EastAt(zone, begin), known.daylight);
        VFileTime end{Ticks(known.end)};
        EXPECT_EQ(EastAt(zone, end.ticks - 3600 * 24 * kTicksOfSecond), known.daylight);
        // The end is a moment of daylight time, but is compared with standard time: so it comes later by the
        // difference.
        ASSERT_TRUE(AddMinutes(end, known.daylight - known.standard, end));
        EXPECT_EQ(EastAt(zone, end.ticks - kTicksOfSecond), known.daylight);
        EXPECT_EQ(EastAt(zone, end.ticks), known.standard);
    }
}

TEST(TimeZone, TheLastDayOfAMonthIsNeverAChange)
{
    const VTimeZone zones(kZones);
    const VTimeZoneInformation& berlin = ZoneOf(zones, u"Europe/Berlin");
    // 31 March 2024 was a Sunday, and the clocks were set then.
    EXPECT_EQ(EastAt(berlin, Ticks({2024, 3, 0, 24, 0, 59, 59, 999})), 60);
    EXPECT_EQ(EastAt(berlin, Ticks({2024, 3, 0, 24, 1, 0, 0, 0})), 120);
    // Of four Mondays the fifth is the last; the change is the very first thing of that day.
    VTimeZoneInformation zone;
    zone.daylightBias = -60;
    zone.daylightDate = {0, 2, 1, 5, 0, 0, 0, 0};
    zone.standardDate = {0, 12, 4, 5, 0, 0, 0, 0}; // 31 December 2026 is a Thursday
    EXPECT_EQ(EastAt(zone, Ticks({2026, 2, 0, 22, 23, 59, 59, 999})), 0);
    EXPECT_EQ(EastAt(zone, Ticks({2026, 2, 0, 23, 0, 0, 0, 0})), 60);
    EXPECT_EQ(EastAt(zone, Ticks({2026, 12, 0, 23, 23, 59, 59, 999})), 60);
    EXPECT_EQ(EastAt(zone, Ticks({2026, 12, 0, 24, 0, 0, 0, 0})), 0);
}

TEST(TimeZone, RefusesWhatIsNoDate)
{
    const VTimeZone zones(kZones);
    VTimeZoneInformation zone = ZoneOf(zones, u"Europe/Berlin");
    const VCalendarTime summer = {2026, 7, 0, 1, 12, 0, 0, 0};
    EXPECT_TRUE(VTimeZone::IsDaylightTime(&zone, &summer));
    for (const VCalendarTime& change : {VCalendarTime{2026, 2, 0, 30, 0, 0, 0, 0},
                                        {0, 13, 0, 1, 0, 0, 0, 0},
                                        {0, 3, 7, 1, 0, 0, 0, 0},
                                        {0, 3, 0, 5, 24, 0, 0, 0},
                                        {0, 0, 0, 0, 0, 0, 0, 0}}) {
        VTimeZoneInformation odd = zone;
        odd.daylightDate = change;
        EXPECT_FALSE(VTimeZone::IsDaylightTime(&odd, &summer)) << change.month;
    }
    const VCalendarTime none = {2026, 2, 0, 30, 0, 0, 0, 0};
    int bias = 7;
    EXPECT_FALSE(VTimeZone::GetBias(&zone, &none, &bias));
    EXPECT_EQ(bias, 7);
    VCalendarTime out;
    EXPECT_FALSE(VTimeZone::LocalToUtc(&zone, none, out));
    EXPECT_FALSE(VTimeZone::LocalToUtc(&zone, {1601, 1, 0, 1, 0, 30, 0, 0}, out)) << "before the calendar's beginning";
    VFileTime time{5};
    EXPECT_FALSE(AddMinutes({~uint64_t{0} >> 1}, 1, time));
    EXPECT_FALSE(AddMinutes({0}, int64_t{1} << 62, time));
    EXPECT_EQ(time.ticks, 5u);
}

TEST(TimeZone, LocalTimeIsAskedAsUtc)
{
    const VTimeZone zones(kZones);
    const VTimeZoneInformation& york = ZoneOf(zones, u"America/New_York");
    VCalendarTime utc;
    ASSERT_TRUE(VTimeZone::LocalToUtc(&york, {2026, 7, 0, 1, 22, 0, 0, 0}, utc));
    EXPECT_EQ(utc, (VCalendarTime{2026, 7, 4, 2, 2, 0, 0, 0}));
    // Half past six in the morning of 8 March is daylight time there, but as UTC it lies before the change.
    ASSERT_TRUE(VTimeZone::LocalToUtc(&york, {2026, 3, 0, 8, 6, 30, 0, 0}, utc));
    EXPECT_EQ(utc.hour, 11);
    ASSERT_TRUE(VTimeZone::LocalToUtc(&york, {2026, 3, 0, 8, 7, 0, 0, 0}, utc));
    EXPECT_EQ(utc.hour, 11);
}

std::vector<std::string> NamesOf(const VTimeZone& zones)
{
    std::vector<std::string> names;
    for (int i = 0; i < zones.GetCount(); ++i)
        names.push_back(ToUtf8(zones.GetName(i)));
    return names;
}

TEST(TimeZone, TheListRunsFromWestToEast)
{
    const VTimeZone zones(kZones);
    EXPECT_THAT(NamesOf(zones), ElementsAre("America/New_York", "America/Santiago", "America/St_Johns", "America/Nuuk",
                                            "UTC", "Antarctica/Troll", "Europe/Dublin", "Europe/Berlin",
                                            "Asia/Jerusalem", "Asia/Gaza", "Asia/Kolkata", "Asia/Kathmandu",
                                            "Australia/Sydney", "Australia/Lord_Howe", "Pacific/Chatham"))
        << "of equal biases the later name comes first";
    const VTimeZoneEntry* const nuuk = zones.Find(u"AMERICA/nuuk");
    ASSERT_NE(nuuk, nullptr);
    EXPECT_EQ(nuuk->display, u"(UTC-02:00) America/Nuuk");
    EXPECT_EQ(zones.Find(u"Asia/Kathmandu")->display, u"(UTC+05:45) Asia/Kathmandu");
    EXPECT_EQ(zones.Find(u"America/St_Johns")->display, u"(UTC-03:30) America/St_Johns");
    EXPECT_EQ(nuuk->daylightName, u"-01");
    EXPECT_EQ(zones.Find(u"UTC")->daylightName, u"");
    EXPECT_EQ(zones.Find(u"Europe/Paris"), nullptr);
    for (const int index : {-1, zones.GetCount()}) {
        EXPECT_EQ(zones.GetName(index), nullptr);
        EXPECT_EQ(zones.GetDisplayName(index), nullptr);
    }
}

TEST(TimeZone, FilesThatTellNoRuleAreLeftOut)
{
    const test::TempFolder folder;
    EXPECT_EQ(VTimeZone(folder.Path()).GetCount(), 0);
    const std::string head("TZif2\0\0\0", 8);
    folder.Write("zone1970.tab",
                 "#\tx\tA/Comment\nXX\t+0\tA/Good\tand more\r\nXX\t+0\nXX\t+0\tA/Gone\nXX\t+0\tA/Version1\n"
                 "XX\t+0\tA/NoLine\nXX\t+0\tA/Cut\nXX\t+0\tA/Text\n\n\t\t\nXX\t+0\tA\nXX\t+0\tA/Last");
    folder.Write("A/Good", head + "\nCET-1CEST,M3.5.0,M10.5.0/3\n");
    folder.Write("A/Comment", head + "\nCET-1\n");
    folder.Write("A/Version1", std::string("TZif\0\0\0\0", 8) + "\nCET-1\n");
    folder.Write("A/NoLine", head + "\n\n");
    folder.Write("A/Cut", head + "\nCET-1");
    folder.Write("A/Text", "\nCET-1\n");
    folder.Write("A/Last", head + "\n<+0130>-1:30\n");
    EXPECT_THAT(NamesOf(VTimeZone(folder.Path())), ElementsAre("A/Good", "A/Last"));
}

TEST(TimeZone, RulesFollowTheirGrammarToTheEnd)
{
    const struct {
        const char* text;
        int bias, daylightBias;
        VCalendarTime daylight;
    } kGood[] = {
        {"UTC0", 0, 0, {}},
        {"<-03>+3", 180, 0, {}},
        {"ABC-24:59:59", -1499, 0, {}},
        {"CET-1CEST,M3.5.0,M10.5.0/3", -60, -60, {0, 3, 0, 5, 2, 0, 0, 0}},
        {"LHST-10:30LHDT-11,M10.1.0,M4.1.0", -630, -30, {0, 10, 0, 1, 2, 0, 0, 0}},
        {"ABC4DEF,M9.1.6/24,M4.1.6/24", 240, -60, {0, 9, 6, 1, 23, 59, 59, 999}},
        {"ABC4DEF,M3.4.4/50:30,M10.1.0", 240, -60, {0, 3, 6, 4, 2, 30, 0, 0}},
        {"ABC4DEF,M3.5.0/-1,M10.1.0", 240, -60, {0, 3, 6, 5, 23, 0, 0, 0}},
        {"ABC4DEF,M3.5.1/-24,M10.1.0", 240, -60, {0, 3, 0, 5, 0, 0, 0, 0}},
        {"ABC4DEF,M3.5.0/167:59:59,M10.1.0", 240, -60, {0, 3, 6, 5, 23, 59, 59, 0}},
        {"ABC4DEF,J60,J300/3", 240, -60, {}},
        {"ABC4DEF,0,365", 240, -60, {}},
        {"ABC4DEF", 240, -60, {}},
    };
    for (const auto& c : kGood) {
        SCOPED_TRACE(c.text);
        VZoneRule rule;
        ASSERT_TRUE(ParseZoneText(c.text, rule));
        EXPECT_EQ(rule.information.bias, c.bias);
        EXPECT_EQ(rule.information.daylightBias, c.daylightBias);
        EXPECT_EQ(rule.information.daylightDate, c.daylight);
    }
    for (const char* bad : {"",
                            "A1",
                            "ABC",
                            "ABC+",
                            "ABC25",
                            "ABC1:60",
                            "ABC1:",
                            "<A>1",
                            "<ABC1",
                            "<A_B>1",
                            "ABC-1 ",
                            "ABC1DEF,",
                            "ABC1DEF,M3.5.0",
                            "ABC1DEF,M3.5.0,",
                            "ABC1DEF,M13.5.0,M1.1.1",
                            "ABC1DEF,M1.6.0,M1.1.1",
                            "ABC1DEF,M1.5.7,M1.1.1",
                            "ABC1DEF,M1.5.0/168,M1.1.1",
                            "ABC1DEF,J0,J1",
                            "ABC1DEF,366,1",
                            "ABC1DEF,M1.1.1,M2.1.1,",
                            "ABC1DEF2:,M1.1.1,M2.1.1",
                            "ABC0001",
                            "ABC1DE,M1.1.1,M2.1.1"}) {
        VZoneRule rule;
        EXPECT_FALSE(ParseZoneText(bad, rule)) << bad;
    }
}

TEST(TimeZone, TheCurrentZoneIsThatOfTheProcessOrTheMachine)
{
    test::FakePlatform platform;
    const auto biasWith = [&platform](const char* value, const char* machine = "Asia/Kolkata") {
        platform.environment.variables.clear();
        if (value)
            platform.environment.variables["TZ"] = value;
        return CurrentZone(kZones, std::string(kZones) + "/" + machine).bias;
    };
    EXPECT_EQ(biasWith(nullptr), -330);
    EXPECT_EQ(biasWith(nullptr, "nothing"), 0);
    EXPECT_EQ(biasWith("Europe/Berlin"), -60);
    EXPECT_EQ(biasWith(":Europe/Berlin"), -60);
    EXPECT_EQ(biasWith((std::string(kZones) + "/America/Nuuk").c_str()), 120);
    EXPECT_EQ(biasWith("XYZ-3:30"), -210);
    EXPECT_EQ(biasWith(""), 0);
    EXPECT_EQ(biasWith("Nowhere/Else"), 0);

    platform.environment.variables = {{"TZDIR", kZones}, {"TZ", "Europe/Dublin"}};
    EXPECT_EQ(CurrentZone().bias, -60);
    EXPECT_EQ(VTimeZone().GetCount(), 15);
    platform.environment.variables["TZ"] = "XYZ-1XYS,M3.2.0,M11.1.0";
    platform.clock.fileTime = Ticks({2026, 7, 0, 1, 0, 0, 0, 0});
    int bias = 0;
    EXPECT_TRUE(VTimeZone::IsDaylightTime(nullptr, nullptr));
    EXPECT_TRUE(VTimeZone::GetBias(nullptr, nullptr, &bias));
    EXPECT_EQ(bias, -120);
}

} // namespace
} // namespace ostrand
