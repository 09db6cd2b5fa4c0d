// firewall, filter, scheme and sync: definitions in a folder that a person wrote by hand.
#include "tests/support/temp_folder.h"
#include "tests/tools/tool_runner.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <filesystem>
#include <fstream>

namespace ostrand::test {
namespace {

using nlohmann::json;
using testing::HasSubstr;
using testing::Not;

class ToolDefinitions : public testing::Test {
protected:
    ToolRun Run(std::vector<std::string> words, const std::string& input = {}) const
    {
        words.insert(words.end(), {"--config", m_folder.Path()});
        return RunTool(words, {}, input);
    }
    json RunJson(std::vector<std::string> words) const
    {
        words.emplace_back("--json");
        return json::parse(Run(words).out);
    }
    /// The bytes of all files below the folder.
    std::string AllBytes() const
    {
        std::string all;
        for (const auto& entry : std::filesystem::recursive_directory_iterator(m_folder.Path()))
            if (entry.is_regular_file()) {
                std::ifstream in(entry.path(), std::ios::binary);
                all.append(std::istreambuf_iterator<char>(in), {});
            }
        return all;
    }

    TempFolder m_folder;
};

TEST_F(ToolDefinitions, AFirewallGoesThroughItsLife)
{
    m_folder.Write("Firewalls/Gate.ini", "; ours\nIs Session = 1\nFirewall Type = \"SOCKSv5\"\nTeam = \"noc\"\n");
    m_folder.Write("Firewalls/Notes.ini", "Firewall Type = \"HTTP\"\n");
    EXPECT_EQ(Run({"firewall", "list"}).out, "NAME  FIREWALL TYPE  FIREWALL ADDRESS  FIREWALL PORT\n"
                                             "None  None                             1080\n"
                                             "Gate  SOCKSv5                          1080\n");
    EXPECT_EQ(RunJson({"firewall", "list"})[1]["name"], "Gate");
    ToolRun run = Run({"firewall", "set", "gate", "firewall type=HTTP", "Firewall Address=10.0.0.1"});
    EXPECT_EQ(run.code, 0) << run.err;
    EXPECT_EQ(m_folder.Read("Firewalls/Gate.ini").substr(0, 75),
              "; ours\nIs Session = 1\nFirewall Type = \"HTTP\"\nTeam = \"noc\"\nFirewall Address ");
    EXPECT_EQ(RunJson({"firewall", "show", "Gate"})["Firewall Port"], 8080) << "the type brings its port along";
    EXPECT_EQ(RunJson({"firewall", "new", "Other", "Firewall Port=99", "Firewall Type=SOCKSv4"})["Firewall Port"], 99);
    EXPECT_EQ(Run({"firewall", "rename", "Gate", "Main gate"}).out, "Renamed firewall 'Gate' to 'Main gate'.\n");
    EXPECT_THAT(m_folder.Read("Firewalls/Main gate.ini"), HasSubstr("Team = \"noc\"\n"));
    EXPECT_EQ(Run({"firewall", "delete", "other"}).out, "Deleted firewall 'other'.\n");
    EXPECT_EQ(RunJson({"firewall", "list"}).size(), 2u);
    EXPECT_EQ(Run({"complete", "firewalls"}).out, "None\nMain gate\n");
}

TEST_F(ToolDefinitions, APasswordComesFromStandardInputAndIsSeenByNobody)
{
    const std::string secret = "hunter2secret";
    ASSERT_EQ(Run({"firewall", "new", "Gate", "Firewall Type=HTTP_BASICAUTH"}).code, 0);
    std::string told;
    for (const auto& words : std::vector<std::vector<std::string>>{
             {"firewall", "set", "Gate", "Firewall Password=-"},
             {"firewall", "set", "Gate", "Firewall Password=" + secret},
             {"firewall", "show", "Gate"},
             {"firewall", "show", "Gate", "--json"},
             {"firewall", "list", "--json"},
             {"store", "dump"},
             {"store", "check"},
             {"history", "show", "Firewalls\\Gate", "1"},
             {"history", "diff", "Firewalls\\Gate", "1", "2"},
             {"firewall", "rename", "Gate", "Door"},
         }) {
        const ToolRun run = Run(words, secret + "\n");
        told += run.out + run.err;
    }
    EXPECT_THAT(told, HasSubstr("Firewall Password  <set>"));
    EXPECT_THAT(told, Not(HasSubstr(secret)));
    EXPECT_THAT(AllBytes(), Not(HasSubstr(secret)));
    EXPECT_THAT(Run({"firewall", "show", "Door", "--reveal"}).out, HasSubstr("Firewall Password  " + secret + "\n"));
    ASSERT_EQ(Run({"firewall", "set", "Door", "Firewall Password="}).code, 0);
    EXPECT_EQ(RunJson({"firewall", "show", "Door"})["Firewall Password"], "<empty>");
}

TEST_F(ToolDefinitions, AFilterTakesItsTextsAsPeopleWriteThem)
{
    const json made = RunJson({"filter", "new", "Sources", "filter type=exclude", "Filter Criteria= *.c;*.h ; "});
    EXPECT_EQ(made, json::parse(R"({"name": "Sources", "Filter Type": "Exclude", "Filter Criteria": ["*.c", "*.h"],
                                   "Match Filter Case": false, "Apply Filter to Folders": false})"));
    EXPECT_EQ(m_folder.Read("Filters/Sources.ini"),
              "Filter Type = 1\nFilter Criteria = [\"*.c\", \"*.h\"]\nMatch Filter Case = 0\n"
              "Apply Filter to Folders = 0\nIs Session = 1\n");
    EXPECT_EQ(RunJson({"filter", "set", "SOURCES", "Filter Criteria="})["Filter Criteria"], json::array());
    EXPECT_EQ(Run({"filter", "delete", "Sources"}).code, 0);
    EXPECT_EQ(RunJson({"filter", "list"}), json::array());
}

TEST_F(ToolDefinitions, SchemesKeepTheirListWhole)
{
    ToolRun run = Run({"scheme", "new", "Night", "foreground=#c0c0c0", "background=#000020", "foreground.bold=#ffffff",
                       "advanced=true"});
    EXPECT_EQ(run.code, 0) << run.err;
    EXPECT_EQ(RunJson({"scheme", "list"}).size(), 9u) << "the built-in ones were saved along";
    EXPECT_THAT(m_folder.Read("Color Schemes.ini"), HasSubstr("Night = hex:01010101c0c0c000ffffff00c0c0c000"));
    const json night = RunJson({"scheme", "show", "night"});
    EXPECT_EQ(night["background"], "#000020");
    EXPECT_EQ(night["foreground"]["bold"], "#ffffff");
    EXPECT_EQ(night["foreground"]["blink-bold-underline"], "#c0c0c0");
    ASSERT_EQ(Run({"scheme", "rename", "Night", "NIGHT"}).code, 0);
    ASSERT_EQ(Run({"scheme", "rename", "Traditional", "Green"}).code, 0);
    EXPECT_THAT(m_folder.Read("Color Schemes.ini"), HasSubstr("\nNIGHT = "));
    EXPECT_EQ(RunJson({"global", "get", "Color Schemes"})["value"].size(), 9u);
    ASSERT_EQ(Run({"scheme", "delete", "green"}).code, 0);
    EXPECT_EQ(RunJson({"scheme", "list"}).size(), 8u);
    run = Run({"global", "set", "Color Schemes", "x"});
    EXPECT_THAT(run.err, HasSubstr("changes by the commands scheme set, new, rename and delete"));
}

TEST_F(ToolDefinitions, RealThemeFilesOfThreeKindsAreImported)
{
    const std::string data = OSTRAND_TEST_DATA "/schemes/";
    ToolRun run =
        Run({"scheme", "import", data + "Adventure.json", data + "Solarized.Xresources", data + "Belafonte Day.reg"});
    EXPECT_EQ(run.out, "Added 'Adventure'.\nAdded 'Solarized'.\nAdded 'Belafonte Day'.\n") << run.err;
    EXPECT_EQ(RunJson({"scheme", "show", "Solarized"})["background"], "#002b36");
    EXPECT_EQ(RunJson({"scheme", "show", "Adventure"})["foreground"], "#feffff");
    const json told = RunJson({"scheme", "import", "--ansi", data + "Adventure.Xresources"});
    EXPECT_EQ(told, json::parse(R"({"schemes": [{"name": "Adventure", "replaced": true, "hasAnsi": true}],
                                    "ansi": true})"));
    EXPECT_EQ(RunJson({"global", "get", "ANSI Color RGB"})["value"]["color1"], 0x334ad8);
    EXPECT_EQ(RunJson({"scheme", "show", "Adventure"})["foreground"]["bold"], "#ffffff") << "colorBD";

    const std::string before = AllBytes();
    m_folder.Write("bad.json", "{\"name\": \"x\",\n \"foreground\": \"#12\"}");
    const struct {
        std::vector<std::string> words;
        std::string error;
    } kRefused[] = {
        {{data + "Adventure.json", m_folder.Path("bad.json")}, "bad.json"},
        {{m_folder.Path("missing.reg")}, "missing.reg: "},
        {{"--ansi", data + "Adventure.json", data + "Solarized.Xresources"}, "--ansi takes the colours of one scheme"},
    };
    for (const auto& c : kRefused) {
        std::vector<std::string> words = {"scheme", "import"};
        words.insert(words.end(), c.words.begin(), c.words.end());
        run = Run(words);
        EXPECT_EQ(run.code, 1) << run.out;
        EXPECT_THAT(run.err, HasSubstr(c.error));
    }
    std::filesystem::remove(m_folder.Path("bad.json"));
    EXPECT_EQ(AllBytes(), before);
}

TEST_F(ToolDefinitions, RefusalsAreOneLineAndWriteNothing)
{
    m_folder.Write("Firewalls/Gate.ini", "Is Session = 1\n");
    const struct {
        std::vector<std::string> words;
        int code;
        std::string error;
    } kCases[] = {
        {{"firewall", "show", "Gat"}, 1, "there is no firewall 'Gat'; did you mean 'Gate'?\n"},
        {{"firewall", "set", "None", "Firewall Port=1"}, 1, "firewall 'None' is built in"},
        {{"firewall", "new", "None"}, 1, "firewall 'None' is built in"},
        {{"firewall", "new", "gate"}, 1, "The firewall name 'gate' already exists.\n"},
        {{"firewall", "new", ""}, 1, "The firewall name must be specified.\n"},
        {{"firewall", "new", "a\\b"}, 1, "illegal character"},
        {{"firewall", "set", "Gate", "Firewall Port=65536"}, 1, "takes an int from 0 to 65535, not '65536'\n"},
        {{"firewall", "set", "Gate", "Firewall Type=Http"}, 1, "'Firewall Type' takes one of 'None', 'Generic Proxy'"},
        {{"firewall", "set", "Gate", "Colour=red"}, 1, "no field is named 'Colour'; there are Firewall Type, "},
        {{"firewall", "set", "Gate", "Firewall Port"}, 2, "'Firewall Port' is no FIELD=VALUE"},
        {{"firewall", "set", "Gate", "Firewall Password=plain"}, 2, "'Firewall Password' is a secret"},
        {{"firewall", "rename", "Gate", "None"}, 1, "'None' is already in use.\n"},
        {{"firewall", "delete", "None"}, 1, "firewall 'None' is built in"},
        {{"filter", "show", "x"}, 1, "there is no filter 'x'\n"},
        {{"filter", "new", "x", "Filter Type=Maybe"}, 1, "takes Include or Exclude, not 'Maybe'\n"},
        {{"scheme", "set", "Windows", "foreground=red"}, 1, "'foreground' takes a colour such as #ff8000, not 'red'\n"},
        {{"scheme", "set", "Windows", "foreground.x=#000000"}, 1, "no attribute is named 'x'; there are normal, bold"},
        {{"scheme", "set", "Windows", "advanced=maybe"}, 1, "'advanced' takes a bool"},
        {{"scheme", "delete", "Monochrome"}, 1, "scheme 'Monochrome' is built in"},
        {{"scheme", "rename", "Windows", "monochrome"}, 1, "The scheme name 'monochrome' already exists.\n"},
        {{"scheme", "import"}, 2, "FILE"},
    };
    for (const auto& c : kCases) {
        const ToolRun run = Run(c.words);
        SCOPED_TRACE(run.err);
        EXPECT_EQ(run.code, c.code);
        EXPECT_EQ(run.out, "");
        EXPECT_THAT(run.err, HasSubstr(c.error));
        EXPECT_EQ(std::count(run.err.begin(), run.err.end(), '\n'), 1);
    }
    EXPECT_EQ(AllBytes(), "Is Session = 1\n");
}

TEST_F(ToolDefinitions, SynchronizeTasksAreShown)
{
    EXPECT_EQ(Run({"sync", "show"}).out, "last synchronized  never\nfilter             none\n");
    m_folder.Write("QuickSync.ini", "Last Sync Time V2 = \"2024:02:29:12:34:56:789\"\nFilter = \"Sources\"\n"
                                    "Task[0].Name = \"Site\"\nTask[0].Type = 2\nTask[0].MasterOverwrites = 1\n"
                                    "Task[0].Source[0].Session = \"\"\nTask[0].Source[0].Path = \"/home/ann/site\"\n"
                                    "Task[0].Source[0].Recurse = 1\nTask[0].Target[0].Session = \"Web\"\n"
                                    "Task[0].Target[0].Path = \"/srv\"\n");
    EXPECT_EQ(Run({"sync", "show"}).out, "last synchronized  2024-02-29T12:34:56.789Z\nfilter             Sources\n"
                                         "\nSite\n  type  2, the master overwrites\n"
                                         "  from  /home/ann/site, with subfolders\n  to    Web: /srv\n");
    const json shown = RunJson({"sync", "show"});
    EXPECT_EQ(shown["lastSync"], "2024-02-29T12:34:56.789Z");
    EXPECT_EQ(shown["tasks"][0]["targets"][0]["session"], "Web");
}

} // namespace
} // namespace ostrand::test
