// path and timezone: commands that open no store.
#include "tests/tools/tool_runner.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

namespace ostrand::test {
namespace {

using nlohmann::json;
using testing::ContainsRegex;
using testing::HasSubstr;
using testing::StartsWith;

TEST(ToolPath, PrintsWhatTheLibraryMakes)
{
    const struct {
        std::vector<std::string> words;
        std::string out;
        json told;
    } kCases[] = {
        {{"join", "C:\\Temp", "a"}, "C:\\Temp\\a\n", {{"path", "C:\\Temp\\a"}}},
        {{"join", "/home", "ann"}, "/home/ann\n", {{"path", "/home/ann"}}},
        {{"join", "", "x"}, "\\x\n", {{"path", "\\x"}}},
        {{"split", "/home/Zürich/"}, "folder  /home\nname    Zürich\n", {{"folder", "/home"}, {"name", "Zürich"}}},
        {{"split", "C:"}, "folder\nname\n", {{"folder", ""}, {"name", ""}}},
        {{"check", "C:/a"}, "C:\\a\n", {{"path", "C:\\a"}}},
        {{"executable", "\"C:\\a b.exe\" -x"}, "C:\\a b.exe\n", {{"path", "C:\\a b.exe"}}},
        {{"expand", "%base%\\%S@%H%%", "--host", "fe80::1", "--session", ""},
         "/srv\\@fe80__1%\n",
         {{"path", "/srv\\@fe80__1%"}}},
    };
    for (const auto& c : kCases) {
        SCOPED_TRACE(testing::PrintToString(c.words));
        std::vector<std::string> words = c.words;
        words.insert(words.begin(), "path");
        const ToolRun run = RunTool(words, {"BASE=/srv"});
        EXPECT_EQ(run.code, 0);
        EXPECT_EQ(run.err, "");
        EXPECT_EQ(run.out, c.out);
        words.emplace_back("--json");
        EXPECT_EQ(json::parse(RunTool(words, {"BASE=/srv"}).out), c.told);
    }
    EXPECT_THAT(RunTool({"path", "expand", "%Y-%M-%DT%h:%m:%s.%t"}).out,
                ContainsRegex("^20[0-9][0-9]-[0-9][0-9]-[0-9][0-9]T[0-9:]+\\.[0-9][0-9][0-9]\n$"));
}

TEST(ToolPath, RefusalsAreOneLine)
{
    const struct {
        std::vector<std::string> words;
        int code;
        std::string err;
    } kCases[] = {
        {{"path", "expand", "a%"}, 1, "'a%': a % stands at the end; %% stands for a percent sign\n"},
        {{"path", "expand", "%H"}, 1, "'%H': there is no token '%H' here; see path expand --help\n"},
        {{"path", "check", "C:\\a*b"}, 1, "'C:\\a*b': '*' can't stand at character 5\n"},
        {{"path", "executable", "foo bar"}, 1, "'foo bar': names no executable in quotes or with .exe\n"},
        {{"path", "split", "\xFF"}, 1, "which isn't UTF-8\n"},
        {{"path", "join", "a"}, 2, "TAIL is required"},
        {{"timezone", "bias", "Europe/Berlni", "2026-07-01"},
         1,
         "no time zone is named 'Europe/Berlni'; did you mean 'Europe/Berlin'?\n"},
        {{"timezone", "bias", "Nowhere at all", "2026-07-01"}, 1, "no time zone is named 'Nowhere at all'\n"},
        {{"timezone", "bias", "UTC", "2026-02-30"}, 1, "'2026-02-30' is no time such as 2026-03-29T01:00:00Z\n"},
        {{"timezone", "bias", "UTC", "2026-02-03T1:00"}, 1, "'2026-02-03T1:00' is no time"},
        {{"timezone", "bias", "UTC", "2026-02-03T01:00:00.5"}, 1, "is no time"},
        {{"timezone", "bias", "UTC", "2026-02-03Zx"}, 1, "is no time"},
        {{"timezone", "bias", "UTC", "2026-02-+3"}, 1, "is no time"},
    };
    for (const auto& c : kCases) {
        SCOPED_TRACE(testing::PrintToString(c.words));
        const ToolRun run = RunTool(c.words, {"TZDIR=" OSTRAND_TEST_DATA "/zoneinfo"});
        EXPECT_EQ(run.code, c.code);
        EXPECT_EQ(run.out, "");
        EXPECT_THAT(run.err, StartsWith("ostrandcfg: "));
        EXPECT_THAT(run.err, HasSubstr(c.err));
    }
}

TEST(ToolTimeZone, ListsZonesAndTellsBiases)
{
    const std::vector<std::string> zones = {"TZDIR=" OSTRAND_TEST_DATA "/zoneinfo"};
    EXPECT_THAT(RunTool({"timezone", "list"}, zones).out,
                ContainsRegex("\nEurope/Berlin +-60 +-120 +\\(UTC\\+01:00\\) Europe/Berlin\n"));
    const json list = json::parse(RunTool({"timezone", "list", "--json"}, zones).out);
    ASSERT_EQ(list.size(), 15u);
    EXPECT_EQ(list[0]["name"], "America/New_York");
    EXPECT_EQ(list[0]["daylightBegins"]["month"], 3);
    EXPECT_EQ(list[4]["name"], "UTC");
    EXPECT_TRUE(list[4]["daylightBegins"].is_null());
    EXPECT_EQ(RunTool({"timezone", "list", "--json"}, {"TZDIR=/nonexistent"}).out, "[]\n");

    const struct {
        const char *time, *bias;
    } kCases[] = {
        {"2026-03-29T00:59:59.999Z", "-60\n"}, {"2026-03-29T01:00", "-120\n"},    {"2026-03-29", "-60\n"},
        {"2026-10-25 01:59:59", "-120\n"},     {"2026-10-25T02:00:00Z", "-60\n"},
    };
    for (const auto& c : kCases)
        EXPECT_EQ(RunTool({"timezone", "bias", "europe/berlin", c.time}, zones).out, c.bias) << c.time;
    EXPECT_EQ(json::parse(RunTool({"timezone", "bias", "Europe/Dublin", "2026-12-01", "--json"}, zones).out),
              json({{"zone", "Europe/Dublin"}, {"bias", 0}, {"daylight", true}}));
}

} // namespace
} // namespace ostrand::test
