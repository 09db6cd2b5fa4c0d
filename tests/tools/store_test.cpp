// store dump, schema, and what every command does with folders and files that can't be read or written.
#include "tests/support/temp_folder.h"
#include "tests/tools/tool_runner.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <filesystem>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace ostrand::test {
namespace {

using nlohmann::json;
using testing::AllOf;
using testing::HasSubstr;
using testing::StartsWith;

TEST(ToolDump, ShowsEveryKindOfValueBelowAKey)
{
    const TempFolder folder;
    folder.Write("%root.ini", "Here = 1\n");
    folder.Write("Sessions.ini", "");
    folder.Write("Sessions/Router 1.ini",
                 "Port = 0x16\nHost = \"r\\u00E9\"\nAll = [\"a\", \"\"]\nRaw = hex:00FF\nNew = kind9:x\nbad\n");
    ToolRun run = RunTool({"store", "dump", "--json", "--config", folder.Path()});
    EXPECT_EQ(run.code, 0);
    EXPECT_EQ(run.err, "ostrandcfg: warning: " + folder.Path("Sessions/Router 1.ini") +
                           ":6: the line doesn't parse, and reads as missing\n");
    EXPECT_EQ(json::parse(run.out), json::parse(R"([
        {"key": "", "values": [{"name": "Here", "type": "dword", "value": 1}]},
        {"key": "Sessions", "values": []},
        {"key": "Sessions\\Router 1", "values": [
            {"name": "Port", "type": "dword", "value": 22},
            {"name": "Host", "type": "string", "value": "ré"},
            {"name": "All", "type": "strings", "value": ["a", ""]},
            {"name": "Raw", "type": "block", "value": "00ff"},
            {"name": "New", "type": "unknown", "value": null}]}])"));
    run = RunTool({"store", "dump", "sessions\\router 1", "--config", folder.Path()});
    EXPECT_EQ(run.out, "[sessions\\router 1]\nPort = 22\nHost = \"ré\"\nAll = [\"a\", \"\"]\nRaw = hex:00ff\n"
                       "New = (of a kind that this version doesn't know)\n");
    run = RunTool({"store", "dump", "Nowhere", "--config", folder.Path()});
    EXPECT_EQ(run.code, 1);
    EXPECT_THAT(run.err, HasSubstr("there is no key 'Nowhere'"));
}

TEST(ToolDump, LoneSurrogatesStayEscapes)
{
    const TempFolder folder;
    folder.Write("Global.ini", "\"a\\uDC00\" = [\"\\uD800\", \"\\uD83D\\uDE00\"]\n");
    EXPECT_THAT(RunTool({"store", "dump", "--json", "--config", folder.Path()}).out,
                HasSubstr(R"({"name": "a\uDC00", "type": "strings", "value": ["\uD800", ")"
                          "\U0001F600"
                          R"("]})"));
}

TEST(ToolFolders, WhatIsNoFolderEndsWithThree)
{
    const TempFolder folder;
    folder.Write("file", "x");
    const std::vector<std::vector<std::string>> reading = {{"global", "list"},
                                                           {"global", "get", "MRU Count"},
                                                           {"global", "diff"},
                                                           {"global", "merge", "Policy"},
                                                           {"store", "dump"}};
    const std::vector<std::vector<std::string>> writing = {{"global", "set", "MRU Count", "5"},
                                                           {"global", "reset", "MRU Count"},
                                                           {"global", "save"},
                                                           {"global", "save", "--force"}};
    const auto expectThree = [&](std::vector<std::string> words, const std::string& path) {
        words.insert(words.end(), {"--config", path});
        const ToolRun run = RunTool(words);
        SCOPED_TRACE(words[1] + " " + path);
        EXPECT_EQ(run.code, 3);
        EXPECT_EQ(run.out, "");
        EXPECT_THAT(run.err, StartsWith("ostrandcfg: " + path + ": "));
        EXPECT_EQ(std::count(run.err.begin(), run.err.end(), '\n'), 1);
    };
    for (const auto& words : reading)
        expectThree(words, folder.Path("missing"));
    for (const std::string& path : {folder.Path("file"), folder.Path("file/below")}) {
        for (const auto& words : reading)
            expectThree(words, path);
        for (const auto& words : writing)
            expectThree(words, path);
    }
    EXPECT_FALSE(folder.Exists("missing"));
    EXPECT_EQ(folder.Read("file"), "x");
}

TEST(ToolFolders, WithoutAFolderTheApplicationsOwnIsMeant)
{
    const TempFolder home;
    ToolRun run = RunTool({"global", "set", "MRU Count", "5"}, {"XDG_CONFIG_HOME=" + home.Path("xdg")});
    EXPECT_EQ(run.code, 0) << run.err;
    EXPECT_EQ(home.Read("xdg/hollowmere/Config/Global.ini"), "MRU Count = 5\n");
    run = RunTool({"global", "get", "MRU Count"}, {"HOME=" + home.Path("user")});
    EXPECT_EQ(run.out, "4\n") << "one that isn't there yet is empty";
    home.Write("user/.config/hollowmere/Config/Global.ini", "MRU Count = 6\n");
    EXPECT_EQ(RunTool({"global", "get", "MRU Count"}, {"HOME=" + home.Path("user")}).out, "6\n");
    run = RunTool({"global", "list"}, {"HOME="});
    EXPECT_EQ(run.code, 3);
    EXPECT_THAT(run.err, HasSubstr("--config"));
}

TEST(ToolFolders, AFileThatCannotBeReadEndsWithThree)
{
    const TempFolder folder;
    std::filesystem::create_directories(folder.Path("Global.ini"));
    for (const auto& words :
         {std::vector<std::string>{"global", "list"}, {"global", "set", "MRU Count", "5"}, {"global", "save"}}) {
        std::vector<std::string> all = words;
        all.insert(all.end(), {"--config", folder.Path() + "/"});
        const ToolRun run = RunTool(all);
        EXPECT_EQ(run.code, 3) << words[1];
        EXPECT_THAT(run.err, StartsWith("ostrandcfg: " + folder.Path("Global.ini") + ": "));
    }
}

TEST(ToolFolders, ALockedStoreIsLeftAsItWas)
{
    const TempFolder folder;
    folder.Write("Global.ini", "MRU Count = 3\n");
    folder.Write("%lock", "");
    const int lock = open(folder.Path("%lock").c_str(), O_RDWR | O_CLOEXEC);
    ASSERT_EQ(flock(lock, LOCK_EX), 0);
    const ToolRun run = RunTool({"global", "set", "MRU Count", "5", "--config", folder.Path()});
    close(lock);
    EXPECT_EQ(run.code, 3);
    EXPECT_EQ(run.out, "");
    EXPECT_THAT(run.err, StartsWith("ostrandcfg: " + folder.Path("Global.ini") + ": "));
    EXPECT_EQ(std::count(run.err.begin(), run.err.end(), '\n'), 1);
    EXPECT_EQ(folder.Read("Global.ini"), "MRU Count = 3\n");
    EXPECT_EQ(RunTool({"global", "get", "MRU Count", "--config", folder.Path()}).out, "3\n");
}

TEST(ToolFolders, AnyBytesAreListedWithWarningsAndSetAsideByASave)
{
    const TempFolder folder;
    std::string bytes;
    for (unsigned i = 0; i < 4096; ++i)
        bytes += static_cast<char>(i * 2654435761u >> 13);
    bytes += "\nMRU Count = 7\n";
    folder.Write("Global.ini", bytes);
    const ToolRun run = RunTool({"global", "list", "--json", "--config", folder.Path()});
    EXPECT_EQ(run.code, 0);
    EXPECT_EQ(json::parse(run.out).size(), 214u);
    EXPECT_THAT(run.err, AllOf(HasSubstr("warning: " + folder.Path("Global.ini") + ":1: "),
                               HasSubstr(" more lines like these\n")));
    EXPECT_LE(std::count(run.err.begin(), run.err.end(), '\n'), 7);
    ASSERT_EQ(RunTool({"global", "save", "--config", folder.Path()}).code, 0);
    std::vector<std::string> aside;
    for (const auto& entry : std::filesystem::directory_iterator(folder.Path()))
        if (const std::string name = entry.path().filename().string(); name.starts_with("Global.ini.damaged-"))
            aside.push_back(folder.Read(name));
    EXPECT_THAT(aside, testing::ElementsAre(bytes));
    EXPECT_THAT(folder.Read("Global.ini"), HasSubstr("MRU Count = 7\n"));
    EXPECT_EQ(RunTool({"store", "check", "--config", folder.Path()}).code, 0);
}

TEST(ToolUsage, WrongUsageEndsWithTwo)
{
    const std::vector<std::vector<std::string>> wrong = {{},
                                                         {"global"},
                                                         {"nonsense"},
                                                         {"global", "nonsense"},
                                                         {"global", "get"},
                                                         {"global", "get", "a", "b"},
                                                         {"--config"},
                                                         {"--app", "word", "global", "list"},
                                                         {"global", "list", "--force"},
                                                         {"global", "set", "MRU Count", "-x"},
                                                         {"schema", "global", "--json", "--markdown"},
                                                         {"store", "dump", "a", "b"}};
    for (const auto& words : wrong) {
        const ToolRun run = RunTool(words);
        SCOPED_TRACE(run.err);
        EXPECT_EQ(run.code, 2);
        EXPECT_EQ(run.out, "");
        EXPECT_THAT(run.err, AllOf(StartsWith("ostrandcfg: "), testing::EndsWith("see ostrandcfg --help\n")));
        EXPECT_EQ(std::count(run.err.begin(), run.err.end(), '\n'), 1);
    }
}

TEST(ToolUsage, OutputThatCannotBeWrittenFails)
{
    const ToolRun run = RunProgram("/bin/sh", {"-c", "'" + ToolPath() + "' schema global > /dev/full"});
    EXPECT_EQ(run.code, 1);
    EXPECT_THAT(run.err, HasSubstr("can't be written"));
}

TEST(ToolSchema, TellsNamesBoundsAndMeanings)
{
    const json list = json::parse(RunTool({"schema", "global", "--json"}).out);
    ASSERT_EQ(list.size(), 214u);
    const auto entry = [&](const char* name) {
        return *std::find_if(list.begin(), list.end(), [&](const json& e) { return e["name"] == name; });
    };
    EXPECT_EQ(entry("Show Toolbar")["nameInOrvane"], "Show Toolbar OVN");
    EXPECT_EQ(entry("MRU Count")["minimum"], 0);
    EXPECT_EQ(entry("MRU Count")["maximum"], 9);
    EXPECT_EQ(entry("MRU Count")["default"], 4);
    EXPECT_EQ(entry("Min Tab Width")["minimum"], 20);
    EXPECT_TRUE(entry("Min Tab Width")["maximum"].is_null());
    EXPECT_TRUE(entry("Quillo Update Prompt Date")["default"].is_null());
    EXPECT_EQ(entry("Line Send Delay")["saved"], false);
    EXPECT_EQ(entry("Alpha Transparency")["merged"], false);
    EXPECT_EQ(entry("Show Chat Window")["oldNames"], json({"Chat Window"}));
    EXPECT_EQ(std::count_if(list.begin(), list.end(), [](const json& e) { return e["meaning"] == ""; }), 0);
}

} // namespace
} // namespace ostrand::test
