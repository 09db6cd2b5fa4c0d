// history and store check.
#include "tests/support/temp_folder.h"
#include "tests/tools/tool_runner.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <filesystem>

namespace ostrand::test {
namespace {

using nlohmann::json;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::MatchesRegex;

/// Runs the tool on one folder, at a place two hours ahead of UTC.
class ToolHistory : public testing::Test {
protected:
    ToolRun Run(std::vector<std::string> words) const
    {
        words.insert(words.end(), {"--config", m_folder.Path()});
        return RunTool(words, {"TZ=EET-2"});
    }
    json RunJson(std::vector<std::string> words) const
    {
        words.emplace_back("--json");
        return json::parse(Run(words).out);
    }

    TempFolder m_folder;
};

class ToolCheck : public ToolHistory {};

TEST_F(ToolHistory, EveryVersionCanBeSeenComparedAndBroughtBack)
{
    const std::string first = "; by hand\nMRU Count = 4\nOther = \"x\"\n";
    m_folder.Write("Global.ini", first);
    for (const char* const count : {"7", "8"})
        ASSERT_EQ(Run({"global", "set", "MRU Count", count}).code, 0);
    m_folder.Write("Global.ini", "MRU Count = 0x8\nNew = [\"y\"]\n");

    ToolRun run = Run({"history", "list", "Global"});
    EXPECT_EQ(run.code, 0) << run.err;
    EXPECT_THAT(run.out, MatchesRegex("VERSION  TIME +BY +NOTES\n"
                                      "1 +....-..-..T..:..:..[+]02:00 +.other means.\n"
                                      "2 +....-..-..T..:..:..[+]02:00 +ostrandcfg\n"
                                      "3 +....-..-..T..:..:..[+]02:00 +ostrandcfg\n"
                                      "4 +....-..-..T..:..:..[+]02:00 +.other means.\n"));
    const json list = RunJson({"history", "list", "Global"});
    ASSERT_EQ(list.size(), 4u);
    EXPECT_THAT(list[1]["time"].get<std::string>(), MatchesRegex("....-..-..T..:..:...*Z"));
    for (const json& version : list) {
        EXPECT_EQ(version["deleted"], false);
        EXPECT_EQ(version["conflicts"], json::array());
    }
    EXPECT_EQ(list[0]["by"], json());
    EXPECT_EQ(list[2]["by"], "ostrandcfg");

    EXPECT_EQ(Run({"history", "show", "Global", "1"}).out, first);
    EXPECT_EQ(RunJson({"history", "show", "Global", "1"})["text"], first);
    EXPECT_EQ(Run({"history", "diff", "Global", "1"}).out, "changed  MRU Count = 4 -> 7\n");
    EXPECT_EQ(Run({"history", "diff", "Global", "2", "4"}).out,
              "changed  MRU Count = 7 -> 0x8\nadded    New = [\"y\"]\nremoved  Other = \"x\"\n");
    EXPECT_EQ(Run({"history", "diff", "Global", "3", "3"}).out, "Nothing changed.\n");
    EXPECT_EQ(RunJson({"history", "diff", "Global", "3"}),
              json::parse(R"({"from": 3, "to": 4, "changes": [{"name": "New", "before": null, "after": "[\"y\"]"},
                                                              {"name": "Other", "before": "\"x\"", "after": null}]})"));

    EXPECT_EQ(Run({"history", "restore", "Global", "1"}).out, "Restored version 1 of key 'Global' as version 5.\n");
    EXPECT_EQ(m_folder.Read("Global.ini"), first);
    EXPECT_EQ(Run({"history", "restore", "Global", "1"}).out, "Nothing to do: key 'Global' is as in version 1.\n");
    EXPECT_EQ(RunJson({"history", "restore", "Global", "4"}), json::parse(R"({"restored": 4, "version": 6})"));
    EXPECT_EQ(RunJson({"history", "list", "global"}).size(), 6u);
}

TEST_F(ToolHistory, WhatIsntThereIsTold)
{
    EXPECT_EQ(Run({"history", "list"}).out, "No versions are kept.\n");
    m_folder.Write("%root.ini", "A = 1\n");
    EXPECT_EQ(RunJson({"history", "list"}).size(), 1u);
    struct {
        std::vector<std::string> words;
        int code;
        const char* error;
    } const cases[] = {
        {{"list", "Nowhere"}, 1, "there is no key 'Nowhere'"},
        {{"list", "\xFF"}, 1, "there is no key"},
        {{"show", "", "2"}, 1, "the root has no version 2; kept are 1 to 1"},
        {{"diff", "", "1"}, 1, "the root has no version after 1; name another one"},
        {{"diff", "", "1", "9"}, 1, "the root has no version 9"},
        {{"restore", "", "0"}, 1, "the root has no version 0"},
        {{"show", "", "one"}, 2, "'one' is no number of a version"},
        {{"show", "", "99999999999"}, 2, "is no number of a version"},
        {{"show", ""}, 2, "VERSION"},
    };
    for (const auto& c : cases) {
        std::vector<std::string> words = {"history"};
        words.insert(words.end(), c.words.begin(), c.words.end());
        const ToolRun run = Run(words);
        SCOPED_TRACE(run.err);
        EXPECT_EQ(run.code, c.code);
        EXPECT_EQ(run.out, "");
        EXPECT_THAT(run.err, HasSubstr(c.error));
    }
    EXPECT_EQ(m_folder.Read("%root.ini"), "A = 1\n");
}

TEST_F(ToolCheck, NamesEveryFaultWithItsPlace)
{
    m_folder.Write("Global.ini", "MRU Count = 4\n");
    m_folder.Write("%store.ini", "History Versions = 5\n");
    ToolRun run = Run({"store", "check"});
    EXPECT_EQ(run.code, 0);
    EXPECT_EQ(run.out, "No faults in 1 file.\n");
    EXPECT_EQ(RunJson({"store", "check"}), json::parse(R"({"checked": 1, "files": [], "strays": []})"));

    m_folder.Write("Sessions/Router 1.ini", "A = oops\nB = 1\nB = 2\nC = 3");
    m_folder.Write("Sessions/router 1/Below.ini", "");
    m_folder.Write("Sessions/%41.ini", "");
    m_folder.Write("Sessions/Old.INI", "");
    m_folder.Write("Sessions/notes.txt", "");
    m_folder.Write(".git/config.ini", "");
    run = Run({"store", "check"});
    EXPECT_EQ(run.code, 1);
    const std::string folder = m_folder.Path("Sessions/");
    EXPECT_EQ(run.out, folder + "Router 1.ini:1: 'A' doesn't parse, and reads as missing\n" + folder +
                           "Router 1.ini:2: 'B' has a name that a later line repeats; that line counts\n" + folder +
                           "Router 1.ini:4: the line has no line end, and may have been cut\n" + folder +
                           "%41.ini: isn't named as the store names a key's file\n" + folder +
                           "Old.INI: isn't named as the store names a key's file\n" + folder +
                           "router 1: differs in case alone from " + folder + "Router 1\n");
    EXPECT_EQ(Run({"store", "check", "Global"}).code, 0);
    EXPECT_EQ(Run({"store", "check", "Sessions"}).out, run.out);
    EXPECT_EQ(Run({"store", "check", "Nowhere"}).code, 1);
    EXPECT_EQ(RunJson({"store", "check", "Sessions"})["files"][0]["faults"][0],
              json::parse(R"({"line": 1, "name": "A", "fault": "unparseable", "damage": false})"));
}

TEST_F(ToolCheck, RepairKeepsWhatIsWholeAndTheDamagedFile)
{
    m_folder.Write("Global.ini", "; mine\nMRU Count = 4\nFirst = 1\nLast = \"z\"\n");
    ASSERT_EQ(Run({"global", "set", "MRU Count", "7"}).code, 0);
    const std::string damaged = "; mine\nMRU Count = 8\nFir" + std::string(4, '\0') + "Last = \"z\"\nBad\n";
    m_folder.Write("Global.ini", damaged);
    const std::string file = m_folder.Path("Global.ini");

    ToolRun run = Run({"store", "check"});
    EXPECT_EQ(run.code, 1);
    EXPECT_EQ(run.out, file + ":3: the line holds a zero byte\n" + file +
                           ":4: the line doesn't parse, and reads as missing\n" + file +
                           ": is damaged; a repair drops 1 line and puts back 'First', 'Last'\n");
    EXPECT_EQ(m_folder.Read("Global.ini"), damaged) << "a look changes nothing";

    const json checked = RunJson({"store", "check", "--repair"});
    EXPECT_EQ(m_folder.Read("Global.ini"), "; mine\nMRU Count = 8\nFirst = 1\nLast = \"z\"\nBad\n");
    const json& repaired = checked["files"][0];
    EXPECT_EQ(repaired["damaged"], true);
    EXPECT_EQ(repaired["dropped"], 1);
    EXPECT_EQ(repaired["putBack"], json::parse(R"(["First", "Last"])"));
    EXPECT_EQ(repaired["faults"].size(), 1u) << "what is no damage stays";
    const std::string aside = repaired["aside"];
    EXPECT_THAT(aside, MatchesRegex(".*/Global.ini.damaged-........-......"));
    EXPECT_EQ(m_folder.Read(std::filesystem::path(aside).filename().string()), damaged);

    m_folder.Write("Global.ini", "MRU Count = 8\nBroken\xFF\n");
    run = Run({"store", "check", "--repair"});
    EXPECT_EQ(run.code, 0) << "nothing is left to do";
    EXPECT_THAT(run.out, HasSubstr("was damaged; the repair dropped 1 line and put back 'First', 'Last'; "));
    EXPECT_EQ(Run({"store", "check", "--repair"}).out, "No faults in 1 file.\n");
}

} // namespace
} // namespace ostrand::test
