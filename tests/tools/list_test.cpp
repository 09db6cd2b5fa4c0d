// global list and save: the whole record of a folder, against the list of its values that was written by hand.
#include "tests/config/expected_values.h"
#include "tests/support/temp_folder.h"
#include "tests/tools/tool_runner.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <ctime>
#include <filesystem>

namespace ostrand::test {
namespace {

using nlohmann::json;
using testing::HasSubstr;

json ListOf(const TempFolder& folder, const std::vector<std::string>& options = {})
{
    std::vector<std::string> words = {"--config", folder.Path(), "global", "list", "--json"};
    words.insert(words.end(), options.begin(), options.end());
    const ToolRun run = RunTool(words);
    EXPECT_EQ(run.code, 0);
    EXPECT_EQ(run.err, "");
    return json::parse(run.out);
}

std::string Hex(const StoreBlock& block)
{
    std::string hex;
    for (const uint8_t byte : block) {
        char pair[3];
        std::snprintf(pair, sizeof pair, "%02x", byte);
        hex += pair;
    }
    return hex;
}

/// A default in its stored form as the JSON that is expected for it.
json ExpectedJson(const ExpectedValue& expected)
{
    if (!expected.hasDefault)
        return {{"size", 0}, {"hex", ""}};
    if (expected.type == "list-view")
        return {{"first", true}, {"second", 1}, {"third", 1}, {"fourth", 0}, {"columns", json::array()}};
    if (const auto* const number = std::get_if<unsigned>(&expected.defaultValue)) {
        if (expected.type == "bool")
            return *number != 0;
        return expected.type == "int" ? json(static_cast<int>(*number)) : json(*number);
    }
    if (const auto* const text = std::get_if<VUnicodeString>(&expected.defaultValue))
        return ToUtf8(*text);
    return json::array(); // lists begin empty
}

void ExpectDefault(const json& entry, const ExpectedValue& expected)
{
    const json& value = entry["value"];
    if (const auto* const block = std::get_if<StoreBlock>(&expected.defaultValue)) {
        EXPECT_EQ(value["hex"], Hex(*block));
    } else if (expected.type == "explorer-frame") {
        const std::string text = std::string(value["first"].get<bool>() ? "1" : "0") + "," + value["second"].dump() +
                                 "," + value["third"].dump();
        EXPECT_EQ(text, ToUtf8(std::get<VUnicodeString>(expected.defaultValue)));
    } else {
        EXPECT_EQ(value, ExpectedJson(expected));
    }
}

TEST(ToolList, AnEmptyFolderShowsEveryValueWithItsDefault)
{
    const TempFolder folder;
    for (const bool isOrvane : {false, true}) {
        const json list = ListOf(folder, {"--app", isOrvane ? "orvane" : "quillo"});
        const std::vector<ExpectedValue> expected = ReadExpectedValues();
        ASSERT_EQ(list.size(), expected.size());
        for (size_t i = 0; i < list.size(); ++i) {
            SCOPED_TRACE(list[i].dump());
            EXPECT_EQ(list[i]["name"], ToUtf8(expected[i].NameFor(isOrvane)));
            EXPECT_EQ(list[i]["type"], expected[i].type);
            EXPECT_EQ(list[i]["saved"], expected[i].isInTable);
            const bool isSchemes = expected[i].type == "color-schemes";
            EXPECT_EQ(list[i]["state"], expected[i].hasDefault || isSchemes ? "pending" : "clean");
            if (isSchemes)
                EXPECT_EQ(list[i]["value"].size(), 8u);
            else if (expected[i].computed == Computed::Not || expected[i].computed == Computed::FromOtherValues)
                ExpectDefault(list[i], expected[i]);
            else if (expected[i].computed == Computed::Clock)
                EXPECT_NEAR(list[i]["value"].get<double>(), static_cast<double>(std::time(nullptr)), 60);
            else
                EXPECT_EQ(list[i]["value"], false);
        }
    }
    EXPECT_TRUE(std::filesystem::is_empty(folder.Path())) << "looking writes nothing";
}

TEST(ToolList, ASaveLeavesNothingToWrite)
{
    const TempFolder home;
    const std::string folder = home.Path("deep/Config"); // made by the save
    ToolRun run = RunTool({"global", "save", "--config", folder});
    EXPECT_EQ(run.code, 0);
    EXPECT_THAT(run.out, HasSubstr("Global.ini"));
    for (const json& entry : json::parse(RunTool({"global", "list", "--json", "--config", folder}).out))
        EXPECT_EQ(entry["state"], entry["saved"] ? "clean" : "pending") << entry;

    const std::string before = home.Read("deep/Config/Global.ini");
    const auto time = std::filesystem::last_write_time(folder + "/Global.ini");
    run = RunTool({"global", "save", "--config", folder});
    EXPECT_EQ(run.out, "Every value is stored already.\n");
    run = RunTool({"global", "save", "--force", "--config", folder});
    EXPECT_THAT(run.out, testing::StartsWith("211 values saved"));
    EXPECT_EQ(home.Read("deep/Config/Global.ini"), before);
    EXPECT_EQ(std::filesystem::last_write_time(folder + "/Global.ini"), time) << "same values, same file";
    EXPECT_EQ(json::parse(RunTool({"global", "diff", "--json", "--config", folder}).out), json::array());
}

TEST(ToolList, ASaveKeepsWhatItDoesNotKnow)
{
    const TempFolder folder;
    const std::string mine = "; mine\nMRU Count = 0x3\nTeam = \"noc\"\nbroken\nLater = kind9:x y\n";
    folder.Write("Global.ini", mine);
    EXPECT_EQ(RunTool({"global", "save", "--config", folder.Path()}).code, 0);
    EXPECT_EQ(folder.Read("Global.ini").substr(0, mine.size()), mine);
}

TEST(ToolList, TheTextHasALineForEachValue)
{
    const TempFolder folder;
    folder.Write("Global.ini", "MRU Count = 12\nLog File = \"" + std::string(500, 'x') + "\"\n");
    const ToolRun run = RunTool({"global", "list", "--config", folder.Path()});
    EXPECT_EQ(std::count(run.out.begin(), run.out.end(), '\n'), 1 + 214);
    EXPECT_THAT(run.out, testing::ContainsRegex("\nMRU Count +int +changed +9 +4\n"));
    EXPECT_THAT(run.out, testing::ContainsRegex("\nLine Send Delay +int +pending, never saved +5 +5\n"));
    EXPECT_THAT(run.out, HasSubstr("xxx...  "));
}

} // namespace
} // namespace ostrand::test
