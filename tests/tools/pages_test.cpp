// Pages that are made by the tool and kept in the tree: none may be older than what it would make now.
#include "tests/support/temp_folder.h"
#include "tests/tools/tool_runner.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace ostrand::test {
namespace {

using testing::AllOf;
using testing::HasSubstr;

TEST(ToolPages, AreFresh)
{
    struct {
        const char* file;
        std::vector<std::string> command;
    } const pages[] = {
        {"docs/settings.md", {"schema", "global", "--markdown"}},
        {"docs/session-settings.md", {"schema", "session", "--markdown"}},
        {"docs/terminal-settings.md", {"schema", "terminal", "--markdown"}},
        {"docs/ostrandcfg.1", {"--man-page"}},
        {"tools/completion/ostrandcfg.bash", {"--bash-completion"}},
    };
    for (const auto& page : pages) {
        const ToolRun run = RunTool(page.command);
        EXPECT_EQ(run.code, 0);
        EXPECT_TRUE(run.out == SourceFile(page.file)) << page.file << " is stale: scripts/make-pages.sh";
    }
}

TEST(ToolPages, HelpHasExamplesForEveryCommand)
{
    for (const auto& [group, command] : {std::pair("global", "list"),
                                         {"global", "get"},
                                         {"global", "set"},
                                         {"global", "reset"},
                                         {"global", "save"},
                                         {"global", "merge"},
                                         {"global", "diff"},
                                         {"schema", "global"},
                                         {"store", "dump"},
                                         {"path", "join"},
                                         {"path", "split"},
                                         {"path", "expand"},
                                         {"path", "check"},
                                         {"path", "executable"},
                                         {"timezone", "list"},
                                         {"timezone", "bias"}}) {
        const ToolRun run = RunTool({group, command, "--help"});
        EXPECT_EQ(run.code, 0);
        EXPECT_THAT(run.out, AllOf(HasSubstr(std::string("Examples:\n  ostrandcfg ") + group + " " + command),
                                   HasSubstr("--config DIR")));
    }
    EXPECT_THAT(RunTool({"--help"}).out,
                AllOf(HasSubstr("--app"), HasSubstr("Exit codes: 0 done"), testing::Not(HasSubstr("complete"))));
    EXPECT_THAT(RunTool({"--version"}).out, testing::ContainsRegex("^ostrandcfg [0-9]+\\.[0-9]+\\.[0-9]+\n$"));
}

/// What bash would offer for the last word.
std::string Completions(const std::string& words)
{
    const std::string script =
        "source '" OSTRAND_SOURCE "/tools/completion/ostrandcfg.bash'; COMP_WORDS=('" + ToolPath() + "' " + words +
        "); COMP_CWORD=$((${#COMP_WORDS[@]} - 1)); _ostrandcfg; printf '%s\\n' \"${COMPREPLY[@]}\"";
    const ToolRun run = RunProgram("bash", {"-c", script});
    EXPECT_EQ(run.err, "");
    return run.out;
}

TEST(ToolPages, BashCompletesCommandsNamesAndKeys)
{
    const TempFolder folder;
    folder.Write("Branch Office.ini", "MRU Count = 1\n");
    EXPECT_EQ(Completions("glo"), "global\n");
    EXPECT_EQ(Completions("global re"), "reset\n");
    EXPECT_EQ(Completions("global save --f"), "--force\n");
    EXPECT_EQ(Completions("global set mru"), "MRU\\ Count\n");
    EXPECT_EQ(Completions("global get \"'mru c\""), "MRU Count\n");
    EXPECT_EQ(Completions("global get 'MRU\\ C'"), "MRU\\ Count\n");
    EXPECT_EQ(Completions("--app orvane global get 'show men'"), "Show\\ Menu\\ Bar\\ OVN\n");
    EXPECT_EQ(Completions("--app or"), "orvane\n");
    EXPECT_EQ(Completions("global merge --config '" + folder.Path() + "' b"), "Branch\\ Office\n");
    folder.Write("Sessions/Lab/Core 1.ini", "Is Session = 1\n");
    const std::string session = "--config '" + folder.Path() + "' session get ";
    EXPECT_EQ(Completions(session + "'lab'"), "Lab\\\\Core\\ 1\n");
    EXPECT_EQ(Completions(session + "'Lab\\\\Core\\ '"), "Lab\\\\Core\\ 1\n");
    EXPECT_EQ(Completions(session + "\"'Lab\\\\C\""), "Lab\\Core 1\n");
    EXPECT_EQ(Completions(session + "'Lab\\\\Core\\ 1' scrollb"), "Scrollback\n");
    EXPECT_EQ(Completions(session + "a b scrollb"), "\n");
}

} // namespace
} // namespace ostrand::test
