// global diff and merge, on the example that is shipped and on small folders.
#include "tests/support/temp_folder.h"
#include "tests/tools/tool_runner.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <filesystem>

namespace ostrand::test {
namespace {

using nlohmann::json;
using testing::AllOf;
using testing::ContainsRegex;
using testing::HasSubstr;
using testing::Not;

class ToolOnExample : public testing::Test {
protected:
    ToolOnExample()
    {
        std::filesystem::copy(OSTRAND_SOURCE "/examples/Config", m_folder.Path(),
                              std::filesystem::copy_options::recursive);
    }

    ToolRun Global(std::vector<std::string> words)
    {
        words.insert(words.begin(), {"global"});
        words.insert(words.end(), {"--config", m_folder.Path()});
        return RunTool(words);
    }
    /// The line of the example's file that begins like this, from 1.
    size_t LineOf(const std::string& start) const
    {
        const std::string text = "\n" + m_folder.Read("Global.ini");
        const size_t at = text.find("\n" + start);
        return at == std::string::npos ? 0
                                       : static_cast<size_t>(std::count(
                                             text.begin(), text.begin() + static_cast<std::ptrdiff_t>(at) + 1, '\n'));
    }

    TempFolder m_folder;
};

json EntryOf(const json& list, const std::string& name)
{
    for (const json& entry : list)
        if (entry["name"] == name)
            return entry;
    return {};
}

TEST_F(ToolOnExample, DiffTellsWhereEachValueCameFrom)
{
    const ToolRun run = Global({"diff", "--json"});
    EXPECT_EQ(run.err, "") << "the example is clean";
    const json list = json::parse(run.out);
    struct {
        const char* name;
        const char* from;
        const char* line;
        json value;
    } const cases[] = {
        {"Show Toolbar", "stored", "Show Toolbar =", false},
        {"Log File", "stored", "Log File =", "/var/log/transfer/Zürich.log"},
        {"Line Send Delay", "stored", "Line Send Delay =", 20},
        {"Show Chat Window", "old name", "Chat Window =", true},
        {"MRU Count", "corrected", "MRU Count =", 9},
        {"Use Printer Port", "corrected", "Use Printer Port =", 0},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        const json entry = EntryOf(list, c.name);
        EXPECT_EQ(entry["from"], c.from);
        EXPECT_EQ(entry["value"], c.value);
        EXPECT_EQ(entry["file"], m_folder.Path("Global.ini"));
        EXPECT_EQ(entry["line"], LineOf(c.line));
    }
    EXPECT_EQ(EntryOf(list, "Printer Font v2")["from"], "old name");
    EXPECT_THAT(EntryOf(list, "MRU Count")["detail"].get<std::string>(), AllOf(HasSubstr("12"), HasSubstr("0 to 9")));
    EXPECT_THAT(EntryOf(list, "Use Printer Port")["detail"].get<std::string>(), HasSubstr("Raw mode"));
    EXPECT_TRUE(EntryOf(list, "Show Menu Bar").is_null()) << "stored as the default";
    EXPECT_TRUE(EntryOf(list, "Retry Attempts").is_null());
    EXPECT_TRUE(EntryOf(list, "Enable Font Smoothing").is_null()) << "a computed default that isn't stored";
}

TEST_F(ToolOnExample, DiffReadsAsATable)
{
    const ToolRun run = Global({"diff"});
    EXPECT_THAT(run.out,
                ContainsRegex("\nMRU Count +9 +4 +Global.ini:[0-9]+, corrected from 12: its bound is 0 to 9\n"));
    EXPECT_THAT(run.out, ContainsRegex("\nPage Margins +top=0.75 bottom=0.75 +top=0.5 bottom=0.5 +Global.ini"));
    EXPECT_THAT(run.out,
                ContainsRegex("\n[0-9]+ of 214 values differ from their defaults. [0-9]+ defaults are not stored yet"));
    const ToolRun orvane = Global({"diff", "--app", "orvane"});
    EXPECT_THAT(orvane.out, AllOf(HasSubstr("Show Menu Bar OVN"), Not(HasSubstr("Show Toolbar"))));
}

TEST_F(ToolOnExample, DiffSurvivesASave)
{
    const json before = json::parse(Global({"diff", "--json"}).out);
    ASSERT_EQ(Global({"save"}).code, 0);
    for (const json& was : before) {
        if (was["name"] == "Use Printer Port")
            continue; // corrected to its default
        const json now = EntryOf(json::parse(Global({"diff", "--json"}).out), was["name"]);
        EXPECT_EQ(now["value"], was["value"]) << was;
        EXPECT_EQ(now["from"], was["name"] == "Printer Font v2" ? "old name" : "stored")
            << "a font that was found is clean";
    }
    EXPECT_GT(LineOf("Chat Window = 1"), 0u) << "the old name stays";
    EXPECT_GT(LineOf("Team Contact ="), 0u);
}

TEST_F(ToolOnExample, MergeShowsFirstAndWritesWhenAsked)
{
    const std::string before = m_folder.Read("Global.ini");
    json shown = json::parse(Global({"merge", "branch office", "--json"}).out);
    EXPECT_EQ(shown["written"], false);
    EXPECT_EQ(m_folder.Read("Global.ini"), before);
    EXPECT_EQ(shown["ignored"], json({"Alpha Transparency"}));
    EXPECT_EQ(EntryOf(shown["changed"], "Max Columns")["merged"], 1024) << "the bound holds";
    EXPECT_EQ(EntryOf(shown["changed"], "MRU Count")["value"], 9);

    const ToolRun written = Global({"merge", "Branch Office", "--write"});
    EXPECT_EQ(written.code, 0);
    EXPECT_THAT(written.out, ContainsRegex("\nMRU Count +9 +5\n"));
    EXPECT_THAT(written.out, ContainsRegex("not merged: Alpha Transparency \\(.*/Branch Office.ini:[0-9]+\\)\n"));
    EXPECT_GT(LineOf("MRU Count = 5\n"), 0u);
    EXPECT_GT(LineOf("Max Columns = 1024\n"), 0u);
    EXPECT_EQ(LineOf("Alpha Transparency"), 0u);
    EXPECT_EQ(LineOf("Sort Alphabetical"), 0u) << "pending defaults wait for a whole save";
    EXPECT_EQ(Global({"merge", "Branch Office", "--write"}).out.substr(0, 22), "Nothing would change.\n");
}

TEST_F(ToolOnExample, MergeOfAMissingKeyFails)
{
    for (const char* key : {"Policy", "Branch Office\\", "\\", "Branch Office\\Nowhere"}) {
        const ToolRun run = Global({"merge", key, "--write"});
        EXPECT_EQ(run.code, 1) << key;
        EXPECT_THAT(run.err, HasSubstr("there is no key")) << key;
    }
    EXPECT_EQ(Global({"merge"}).code, 2);
}

TEST(ToolDiff, AFreshFolderHasNoDifferences)
{
    const TempFolder folder;
    EXPECT_EQ(
        RunTool({"global", "diff", "--config", folder.Path()}).out,
        "0 of 214 values differ from their defaults. 211 defaults are not stored yet; the next save writes them.\n");
    folder.Write("Global.ini", "Version = \"7B2F2717-85C8-4729-8394-3B7697039CEB\"\nQuillo Update Prompt Date = 5\n");
    EXPECT_THAT(RunTool({"global", "diff", "--config", folder.Path()}).out, testing::StartsWith("0 of 214"))
        << "a computed default, stored or not, is none";
}

} // namespace
} // namespace ostrand::test
