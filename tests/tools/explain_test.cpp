// explain: where a value comes from, and who locks it.
#include "tests/support/temp_folder.h"
#include "tests/tools/tool_runner.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

namespace ostrand::test {
namespace {

using nlohmann::json;
using testing::HasSubstr;

class ToolExplain : public testing::Test {
protected:
    ToolRun Run(std::vector<std::string> words) const
    {
        words.insert(words.begin(), {"--config", m_folder.Path("config"), "explain"});
        return RunTool(words, {"XDG_CONFIG_HOME=" + m_folder.Path()});
    }
    json Explain(const std::string& name) const { return json::parse(Run({name, "--json"}).out); }
    json Some(const std::string& name, std::initializer_list<const char*> members) const
    {
        const json all = Explain(name);
        json some = json::object();
        for (const char* member : members)
            some[member] = all.value(member, json());
        return some;
    }

    TempFolder m_folder;
};

TEST_F(ToolExplain, TellsWhereAValueComesFrom)
{
    m_folder.Write("config/Global.ini", "MRU Count = 12\nChat Window = 1\nRetry Delay = 11\nMax Columns = 256\n"
                                        "Printer CTS Flow = 0\nUse Raw Mode = 1\nUse Printer Port = 1\n");
    const std::string file = m_folder.Path("config/Global.ini");
    const struct {
        const char* name;
        json told;
    } kCases[] = {
        {"mru count",
         {{"value", 9},
          {"from", "corrected"},
          {"line", 1},
          {"detail", "corrected from 12: its bound is 0 to 9"},
          {"isDefault", false}}},
        {"Show Chat Window",
         {{"value", true},
          {"from", "old name"},
          {"line", 2},
          {"detail", "under its old name 'Chat Window'"},
          {"isDefault", false}}},
        {"Retry Delay", {{"value", 11}, {"from", "stored"}, {"line", 3}, {"detail", json()}, {"isDefault", false}}},
        {"Max Columns", {{"value", 256}, {"from", "stored"}, {"line", 4}, {"detail", json()}, {"isDefault", true}}},
        {"Use Printer Port",
         {{"value", 0},
          {"from", "corrected"},
          {"line", 7},
          {"detail", "corrected from 1: Raw mode excludes a direct port: Use Printer Port becomes 0."},
          {"isDefault", true}}},
        {"Log File",
         {{"value", ""}, {"from", "not stored"}, {"line", json()}, {"detail", "not stored"}, {"isDefault", true}}},
    };
    for (const auto& c : kCases) {
        SCOPED_TRACE(c.name);
        EXPECT_EQ(Some(c.name, {"value", "from", "line", "detail", "isDefault"}), c.told);
        EXPECT_EQ(Explain(c.name).value("file", ""), c.told["line"].is_null() ? "" : file);
    }
    EXPECT_THAT(Run({"MRU Count"}).out, HasSubstr("stored   " + file + ":1, corrected from 12"));
    EXPECT_THAT(Run({"Log File"}).out, HasSubstr("stored   not yet; the next save writes it\n"));
    EXPECT_THAT(Run({"Line Send Delay"}).out, HasSubstr("stored   no; it is read, and never saved"));
}

TEST_F(ToolExplain, TellsAnAdministratorsLockAndItsPlace)
{
    m_folder.Write("config/Global.ini", "Save New Connect Entries = 1\n");
    EXPECT_TRUE(Explain("Save New Connect Entries")["locked"].is_null());
    m_folder.Write("hollowmere/registry/Software/Policies/Hollowmere.ini",
                   "; for everybody\nSave New Connect Entries = 0\nLog File = \"x\"\n");
    const std::string file = m_folder.Path("hollowmere/registry/Software/Policies/Hollowmere.ini");
    EXPECT_EQ(Explain("save new connect entries")["locked"], json({{"value", 0}, {"file", file}, {"line", 2}}));
    EXPECT_THAT(Run({"Save New Connect Entries"}).out,
                HasSubstr("locked   by an administrator's policy, to 0, in " + file + ":2\n"));
    EXPECT_TRUE(Explain("Log File")["locked"].is_null()) << "policies are numbers";
}

TEST_F(ToolExplain, UnknownNamesAndBrokenLinesAreTold)
{
    m_folder.Write("config/Global.ini", "MRU Count = x\n");
    const ToolRun unknown = Run({"MRU Cuont"});
    EXPECT_EQ(unknown.code, 1);
    EXPECT_THAT(unknown.err, HasSubstr("did you mean 'MRU Count'?"));
    const ToolRun broken = Run({"MRU Count"});
    EXPECT_EQ(broken.code, 0);
    EXPECT_THAT(broken.err, HasSubstr("Global.ini:1: 'MRU Count' doesn't parse"));
    EXPECT_EQ(Run({}).code, 2);
}

} // namespace
} // namespace ostrand::test
