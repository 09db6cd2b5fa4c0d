// global get, set and reset: one value at a time, and nothing else.
#include "tests/support/temp_folder.h"
#include "tests/tools/tool_runner.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

namespace ostrand::test {
namespace {

using testing::AllOf;
using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

class ToolEdit : public testing::Test {
protected:
    ToolRun Global(std::vector<std::string> words, const std::vector<std::string>& options = {})
    {
        words.insert(words.begin(), {"--config", m_folder.Path(), "global"});
        words.insert(words.begin(), options.begin(), options.end());
        return RunTool(words);
    }
    std::string File() const { return m_folder.Read("Global.ini"); }
    void Write(const std::string& text) { m_folder.Write("Global.ini", text); }

    TempFolder m_folder;
};

/// One line that says what failed.
testing::Matcher<std::string> OneLine(testing::Matcher<std::string> what)
{
    return AllOf(StartsWith("ostrandcfg: "), EndsWith("\n"), what,
                 testing::ResultOf([](const std::string& s) { return std::count(s.begin(), s.end(), '\n'); }, 1));
}

TEST_F(ToolEdit, SetWritesTheValueAloneInItsPlace)
{
    Write("# kept\nmru count = 0x3 \nRetry Delay = 30\n");
    const ToolRun run = Global({"set", "MRU COUNT", "7"});
    EXPECT_EQ(run.code, 0);
    EXPECT_EQ(run.out, "MRU Count: 3 -> 7\n");
    EXPECT_EQ(run.err, "");
    EXPECT_EQ(File(), "# kept\nmru count = 7 \nRetry Delay = 30\n");
}

TEST_F(ToolEdit, SetTakesEachClassOfValue)
{
    struct {
        std::vector<std::string> words;
        std::string line;
    } const cases[] = {
        {{"Show Toolbar", "FALSE"}, "Show Toolbar = 0"},
        {{"Show Menu Bar", "1"}, "Show Menu Bar = 1"},
        {{"Receive Buffer Size", "-1"}, "Receive Buffer Size = 4294967295"},
        {{"Connected Color", "0x00FF00"}, "Connected Color = 65280"},
        {{"Log Error Text Color", "4294967295"}, "Log Error Text Color = 4294967295"},
        {{"Quillo Update Prompt Date", "1"}, "Quillo Update Prompt Date = 1"},
        {{"Log File", ""}, "Log File = \"\""},
        {{"Printer Name", "[a, \"b\"]"}, "Printer Name = \"[a, \\\"b\\\"]\""},
        {{"Selected Termcap Entries", "list", "{}", "", "[x,y]", "Zürich"},
         "Selected Termcap Entries = [\"list\", \"{}\", \"\", \"[x,y]\", \"Zürich\"]"},
        {{"Page Margins", "left=1.5", "bottom=0"},
         "Page Margins = hex:000000000000f83f000000000000e03f000000000000e03f0000000000000000"},
        {{"Local ListView State", "third=4294967295", "columns=100:1:1,-5:false:0"},
         "Local ListView State = \"1,1,4294967295,0,2,100,1,1,-5,0,0\""},
        {{"Local ExplorerFrame State", "second=7"}, "Local ExplorerFrame State = \"1,7,200\""},
        {{"OVN Custom Toolbar Data", "hex:00Ff"}, "OVN Custom Toolbar Data = hex:00ff"},
        {{"Line Send Delay", "20"}, "Line Send Delay = 20"},
        {{"Certificate Path", "--", "--json"}, "Certificate Path = \"--json\""},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.line);
        std::vector<std::string> words = c.words;
        words.insert(words.begin(), "set");
        const ToolRun run = Global(words);
        EXPECT_EQ(run.code, 0) << run.err;
        EXPECT_THAT(File(), EndsWith(c.line + "\n"));
    }
}

TEST_F(ToolEdit, OnlyNamedFieldsOfABlockChange)
{
    ASSERT_EQ(Global({"set", "Printer Font v2", "weight=700", "face=DejaVu Sans Mono"}).code, 0);
    const ToolRun run = Global({"set", "printer font V2", "italic=1"});
    EXPECT_EQ(run.out, "Printer Font v2: italic=0 -> italic=1\n");
    EXPECT_THAT(Global({"get", "Printer Font v2"}).out,
                AllOf(HasSubstr("height=-13\n"), HasSubstr("weight=700\nitalic=1\n"),
                      HasSubstr("face=\"DejaVu Sans Mono\"\n")));
    EXPECT_EQ(Global({"set", "ANSI Color RGB", "color15=0x010203"}).out,
              "ANSI Color RGB: color15=16777215 -> color15=66051\n");
}

TEST_F(ToolEdit, ARuleChangesItsValueAlong)
{
    Write("Use Printer Port = 1\n");
    EXPECT_EQ(Global({"set", "Use Raw Mode", "1"}).out, "Use Raw Mode: 0 -> 1\nUse Printer Port: 1 -> 0\n");
    EXPECT_EQ(File(), "Use Printer Port = 0\nUse Raw Mode = 1\n");
    const ToolRun refused = Global({"set", "Use Printer Port", "1"});
    EXPECT_EQ(refused.code, 1);
    EXPECT_THAT(refused.err, OneLine(HasSubstr("Raw mode excludes a direct port")));
    EXPECT_EQ(File(), "Use Printer Port = 0\nUse Raw Mode = 1\n");
}

TEST_F(ToolEdit, RefusedValuesNameClassAndBoundAndLeaveNoTrace)
{
    const std::string huge(10'000, 'x');
    struct {
        std::vector<std::string> words;
        std::string says;
    } const cases[] = {
        {{"MRU Count", "12"}, "'MRU Count' takes an int from 0 to 9, not 12\n"},
        {{"mru count", "-1"}, "'MRU Count' takes an int from 0 to 9, not -1\n"},
        {{"MRU Count", "3x"}, "'MRU Count' takes an int from 0 to 9, not '3x'\n"},
        {{"MRU Count", "--", "- 3"}, "not '- 3'\n"},
        {{"MRU Count", "1", "2"}, "not 2 words\n"},
        {{"MRU Count", ""}, "not ''\n"},
        {{"Min Tab Width", "19"}, "takes an int of at least 20, not 19\n"},
        {{"Transfer Type", "4"}, "takes an int from 1 to 3, not 4\n"},
        {{"Timeout", "2147483648"}, "takes an int from -2147483648 to 2147483647, not 2147483648\n"},
        {{"Timeout", "99999999999999999999"}, "not '99999999999999999999'\n"},
        {{"Log Error Text Color", "-1"}, "takes a uint from 0 to 4294967295, not -1\n"},
        {{"Quillo Update Prompt Date", "0x100000000"}, "takes a ulong from 0 to 4294967295, not 0x100000000\n"},
        {{"Show Toolbar", "yes"}, "'Show Toolbar' takes a bool, true or false, not 'yes'\n"},
        {{"Log File", "a", "b"}, "takes one string, not 2 words\n"},
        {{"Log File", "\xFF"}, "isn't UTF-8\n"},
        {{"Log File"}, "not 0 words\n"},
        {{"Page Margins", "left=wide"}, "takes margins whose left is a decimal number, not 'wide'\n"},
        {{"Page Margins", "left=nan"}, "not 'nan'\n"},
        {{"Page Margins", "lft=1"}, "with the fields left, right, top, bottom, not 'lft=1'\n"},
        {{"Page Margins", "hex:00"}, "takes margins as hex: and the digits of 32 bytes, not of 1\n"},
        {{"Printer Font v2", "italic=256"}, "whose italic is a number from 0 to 255, not '256'\n"},
        {{"Printer Font v2", "face=" + std::string(33, 'f')}, "whose face is at most 32 characters"},
        {{"Local ListView State", "columns=1:1"}, "whose columns is WIDTH:VISIBLE:ORDER"},
        {{"OVN Custom Toolbar Data", "hex:0"}, "takes a blob as hex: and pairs of digits, not 'hex:0'\n"},
        {{"Log File", huge, huge}, "not 2 words\n"},
        {{huge, "1"}, "no value is named 'xxxxx"},
        {{"MRU Cuont", "1"}, "no value is named 'MRU Cuont'; did you mean 'MRU Count'?\n"},
        {{"Chat Window", "1"}, "an old name of 'Show Chat Window'\n"},
        {{"Show Toolbar OVN", "1"}, "the other application's name of 'Show Toolbar'; see --app\n"},
        {{"a\nb", "1"}, "no value is named 'a\\u000Ab'\n"},
        {{"", "1"}, "no value is named ''\n"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.says);
        std::vector<std::string> words = c.words;
        words.insert(words.begin(), "set");
        const ToolRun run = Global(words);
        EXPECT_EQ(run.code, 1);
        EXPECT_EQ(run.out, "");
        EXPECT_THAT(run.err, OneLine(HasSubstr(c.says)));
        EXPECT_LT(run.err.size(), 400u);
    }
    EXPECT_TRUE(std::filesystem::is_empty(m_folder.Path()));
}

TEST_F(ToolEdit, ResetWritesTheDefault)
{
    Write("MRU Count = 7\nOVN Custom Toolbar Data = hex:01\nUse Raw Mode = 1\n");
    EXPECT_EQ(Global({"reset", "MRU Count"}).out, "MRU Count: 7 -> 4\n");
    EXPECT_EQ(Global({"reset", "Show Toolbar"}).out, "Show Toolbar: true, as before\n");
    EXPECT_EQ(Global({"reset", "Line Send Delay"}).code, 0);
    EXPECT_EQ(Global({"reset", "OVN Custom Toolbar Data"}).code, 0);
    EXPECT_EQ(File(), "MRU Count = 4\nUse Raw Mode = 1\nShow Toolbar = 1\nLine Send Delay = 5\n");
}

TEST_F(ToolEdit, EachApplicationHasItsOwnNames)
{
    EXPECT_EQ(Global({"set", "Show Toolbar OVN", "0"}, {"--app", "orvane"}).code, 0);
    EXPECT_EQ(File(), "Show Toolbar OVN = 0\n");
    EXPECT_EQ(Global({"get", "Show Toolbar"}, {"--app=quillo"}).out, "true\n");
}

TEST_F(ToolEdit, GetIsMadeForScripts)
{
    Write("Log File = \"C:\\\\logs\\n\\u001B\\uD83D\\uDE00\\uD800\"\nSelected Termcap Entries = [\"a b\", \"c\"]\n"
          "Window Placement = hex:2c\nOVN Custom Toolbar Data = hex:0a0b\n");
    EXPECT_EQ(Global({"get", "log file"}).out, "C:\\logs\n\\u001B\U0001F600\\uD800\n");
    EXPECT_THAT(Global({"get", "log file", "--json"}).out, HasSubstr("\"C:\\\\logs\\n\\u001B\U0001F600\\uD800\""));
    EXPECT_EQ(Global({"get", "Selected Termcap Entries"}).out, "a b\nc\n");
    EXPECT_EQ(Global({"get", "Receive Buffer Size"}).out, "-1\n");
    EXPECT_THAT(Global({"get", "Window Placement"}).out, StartsWith("length=44\nflags=0\nshowCommand=0\n"));
    EXPECT_EQ(Global({"get", "OVN Custom Toolbar Data"}).out, "hex:0a0b\n");
}

TEST_F(ToolEdit, ADamagedEntryIsNamedWithFileAndLine)
{
    Write("\nMRU Count = 12x\nMax Columns = \"200\"\nPage Margins = hex:" + std::string(66, '0') + "\nLog File = 1\n");
    const std::string file = m_folder.Path("Global.ini");
    for (const auto& [name, place] :
         {std::pair("MRU Count", ":2: "), {"Max Columns", ":3: "}, {"Page Margins", ":4: "}, {"Log File", ":5: "}}) {
        const ToolRun run = Global({"get", name});
        EXPECT_EQ(run.code, 1);
        EXPECT_EQ(run.out, "");
        EXPECT_THAT(run.err, OneLine(StartsWith("ostrandcfg: " + file + place + "'" + name + "' ")));
    }
    EXPECT_EQ(Global({"get", "Retry Delay"}).out, "10\n") << "others are not touched by it";
    EXPECT_EQ(Global({"set", "Max Columns", "300"}).code, 0);
    EXPECT_EQ(Global({"set", "MRU Count", "3"}).code, 0);
    EXPECT_EQ(Global({"get", "MRU Count"}).out, "3\n");
    EXPECT_THAT(File(), AllOf(StartsWith("\nMRU Count = 12x\nMax Columns = 300\nPage"), EndsWith("MRU Count = 3\n")));
}

} // namespace
} // namespace ostrand::test
