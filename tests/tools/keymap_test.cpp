// keymap: files, sessions and the built-in bindings.
#include "tests/support/temp_folder.h"
#include "tests/tools/tool_runner.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <filesystem>

namespace ostrand::test {
namespace {

using nlohmann::json;
using testing::HasSubstr;
using testing::Not;

class ToolKeymap : public testing::Test {
protected:
    ToolRun Run(std::vector<std::string> words) const
    {
        words.insert(words.begin(), "keymap");
        words.insert(words.end(), {"--config", m_folder.Path()});
        return RunTool(words);
    }
    json RunJson(std::vector<std::string> words) const
    {
        words.emplace_back("--json");
        return json::parse(Run(words).out);
    }
    static std::string Shipped(const std::string& name) { return OSTRAND_SOURCE "/keymaps/" + name; }

    TempFolder m_folder;
};

TEST_F(ToolKeymap, ListsFilesSessionsAndTheBuiltInBindings)
{
    m_folder.Write("mine.key", "; mine\nCS VK_2 \"x\\033\"\nN vk_f1 RUN(\"a b.vbs\")\nA 0xDC SB_BEGIN\n");
    EXPECT_EQ(Run({"list", m_folder.Path("mine.key")}).out, "INDEX  KEY              ACTION\n"
                                                            "112    VK_F1            RUN(\"a b.vbs\")\n"
                                                            "1586   Ctrl+Shift+VK_2  \"x\\033\"\n"
                                                            "2268   Alt+0xDC         SB_BEGIN\n");
    EXPECT_EQ(RunJson({"list", m_folder.Path("mine.key")})[1],
              json::parse(R"({"index": 1586, "modifiers": ["Ctrl", "Shift"], "key": "VK_2", "function": "SEND",
                              "argument": "x\\033"})"));
    EXPECT_EQ(RunJson({"list", "--default"}).size(), 53u);
    m_folder.Write("Sessions/Lab/Router 1.ini",
                   "Keymap v2 = hex:0000000100000041efbbbf53454e4400efbbbf7800\nIs Session = 1\n");
    const json session = RunJson({"list", "--session", "Lab\\Router 1"});
    ASSERT_EQ(session.size(), 1u);
    EXPECT_EQ(session[0]["argument"], "x");
    EXPECT_THAT(Run({"list", "VT220.key"}).out, HasSubstr("VK_F1 ")) << "a bare name is a shipped map's";
    for (const char* name : {"Default", "Linux", "SCOANSI", "VT100", "VT220", "Wyse50", "Wyse60", "Xterm", "Nerith"}) {
        const ToolRun run = Run({"check", Shipped(std::string(name) + ".key")});
        EXPECT_EQ(run.code, 0) << run.out;
        EXPECT_THAT(run.out, HasSubstr("No faults in "));
    }
}

TEST_F(ToolKeymap, ChecksAWholeFileAndConvertsOnlyAGoodOne)
{
    m_folder.Write("bad.key", "N VK_A \"a\"\nCC VK_B \"b\"\nN VK_Q9 \"x\"\nN VK_C\nN VK_D NONE\nN VK_E \"e\n");
    const std::string bad = m_folder.Path("bad.key");
    const ToolRun checked = Run({"check", bad});
    EXPECT_EQ(checked.code, 1);
    EXPECT_EQ(checked.out, bad + ":2: unknown modifier 'C' on line 2\n" + bad +
                               ":3: unknown virtual key 'VK_Q9' on line 3\n" + bad + ":4: syntax error on line 4\n" +
                               bad + ":5: illegal string or unknown function, 'NONE', on line 5\n" + bad +
                               ":6: expected closing quote on line 6\n");
    EXPECT_EQ(RunJson({"check", bad})["errors"][3]["line"], 5);
    const std::string out = m_folder.Path("out.key");
    ToolRun run = Run({"convert", bad, out});
    EXPECT_EQ(run.code, 1);
    EXPECT_THAT(run.err, HasSubstr("bad.key:2: unknown modifier 'C' on line 2; nothing is written"));
    EXPECT_THAT(Run({"list", bad}).err, HasSubstr("see keymap check"));

    m_folder.Write("good.key", "\xEF\xBB\xBFn vk_a \"\xE6\xBC\xA2\"\n");
    EXPECT_THAT(Run({"convert", m_folder.Path("good.key"), out}).err, HasSubstr("can't hold all strings of the map"));
    EXPECT_FALSE(std::filesystem::exists(out));
    EXPECT_FALSE(std::filesystem::exists(out + ".new"));
    run = Run({"convert", m_folder.Path("good.key"), out, "--unicode"});
    EXPECT_EQ(run.out, "1 bindings written to " + out + "\n") << run.err;
    EXPECT_EQ(m_folder.Read("out.key"), "\xEF\xBB\xBFN\tVK_A                \t\"\xE6\xBC\xA2\"\r\n");
    EXPECT_THAT(Run({"convert", Shipped("Xterm.key"), out}).err, HasSubstr("is there already; --force writes over it"));
    EXPECT_EQ(Run({"convert", Shipped("Xterm.key"), out, "--force"}).code, 0);
    EXPECT_EQ(Run({"diff", Shipped("Xterm.key"), out}).out, "Both maps are the same.\n");
}

TEST_F(ToolKeymap, ShowsDifferencesByKey)
{
    m_folder.Write("a.key", "N VK_A \"a\"\nN VK_B SB_END\nN VK_C \"c\"\n");
    m_folder.Write("b.key", "N VK_A \"b\"\nN VK_B SB_END\nS VK_D DISABLED\n");
    const std::string a = m_folder.Path("a.key");
    const std::string b = m_folder.Path("b.key");
    EXPECT_EQ(Run({"diff", a, b}).out, "changed  VK_A        \"a\" -> \"b\"\n"
                                       "removed  VK_C        \"c\"\n"
                                       "added    Shift+VK_D  DISABLED\n");
    const json changes = RunJson({"diff", a, b});
    EXPECT_EQ(changes[0]["before"]["argument"], "a");
    EXPECT_TRUE(changes[2]["before"].is_null());
}

TEST_F(ToolKeymap, ExplainsWhatAKeyDoesAndWhy)
{
    m_folder.Write("mine.key", "C VK_SPACE DISABLED\nN VK_BACK \"\\177\"\nA VK_1 MENU_TAB_1\nN VK_A \"a\"\n");
    const struct {
        std::vector<std::string> words;
        std::string out;
    } kCases[] = {
        {{"Ctrl+Shift+2"}, "Ctrl+Shift+VK_2: \"\\000\", by default\n"},
        {{"shift+control+vk_2"}, "Ctrl+Shift+VK_2: \"\\000\", by default\n"},
        {{"Ctrl+0xDC"}, "Ctrl+0xDC: \"\\034\", by default\n"},
        {{"a"}, "VK_A: no binding; the terminal sends what the key types\n"},
        {{"PgUp"}, "VK_PRIOR: SB_PAGE_UP, by default\nExtended+VK_PRIOR: SB_PAGE_UP, by default\n"},
        {{"Ctrl+Space", "mine"},
         "Ctrl+VK_SPACE: does nothing, disabled by the map's own binding; it hides the default "
         "\"\\000\"\n"},
        {{"Backspace", "mine"}, "VK_BACK: \"\\177\", the map's own binding; it hides the default \"\\010\"\n"},
        {{"Alt+1", "mine"}, "Alt+VK_1: MENU_TAB_1, the map's own binding; the default is the same\n"},
        {{"A", "mine"}, "VK_A: \"a\", the map's own binding\n"},
        {{"F1", "mine"}, "VK_F1: VT_PF1, by default\n"},
    };
    for (const auto& c : kCases) {
        std::vector<std::string> words = {"explain", c.words[0]};
        if (c.words.size() > 1)
            words.push_back(m_folder.Path("mine.key"));
        EXPECT_EQ(Run(words).out, c.out);
    }
    EXPECT_EQ(RunJson({"explain", "Ctrl+Space", m_folder.Path("mine.key")})[0]["source"], "disabled");
}

TEST_F(ToolKeymap, RefusalsAreOneLine)
{
    m_folder.Write("Sessions/Cut.ini", "Keymap v2 = hex:0001\n");
    const struct {
        std::vector<std::string> words;
        int code;
        const char* error;
    } kCases[] = {
        {{"list"}, 2, "name one of FILE, --default and --session"},
        {{"list", "x.key", "--default"}, 2, "name one of FILE, --default and --session"},
        {{"list", "no such.key"}, 1, "no such.key: "},
        {{"check", "/"}, 1, "/: "},
        {{"list", "--session", "Nowhere"}, 1, "there is no session 'Nowhere'"},
        {{"list", "--session", "Cut"}, 1, "Cut.ini:1: the key map is damaged"},
        {{"explain", "Strg+A"}, 1, "'Strg' is none of Ctrl, Shift, Alt, Extended"},
        {{"explain", "Ctrl+"}, 1, "'' is no key"},
        {{"explain", "0x100"}, 1, "'0x100' is no key"},
        {{"convert", "a.key"}, 2, "OUT"},
    };
    for (const auto& c : kCases) {
        const ToolRun run = Run(c.words);
        SCOPED_TRACE(run.err);
        EXPECT_EQ(run.code, c.code);
        EXPECT_EQ(run.out, "");
        EXPECT_THAT(run.err, HasSubstr(c.error));
        EXPECT_EQ(std::count(run.err.begin(), run.err.end(), '\n'), 1);
    }
}

} // namespace
} // namespace ostrand::test
