// ostrand-options as a program of its own, without a display.
#include "tests/tools/tool_runner.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <set>

namespace ostrand::test {
namespace {

namespace fs = std::filesystem;

class Host : public testing::Test {
protected:
    Host() : folder(MakeFolder()) {}
    ~Host() override
    {
        fs::remove_all(folder);
        for (const std::string& copy : copies)
            fs::remove_all(copy);
    }

    static fs::path MakeFolder()
    {
        std::string name = (fs::temp_directory_path() / "ostrand-host-test-XXXXXX").string();
        return mkdtemp(name.data());
    }
    ToolRun Run(std::vector<std::string> arguments)
    {
        const ToolRun run = RunProgram(OSTRAND_HOST, arguments);
        constexpr std::string_view kNamed = "A fresh copy of the example: ";
        if (run.out.starts_with(kNamed))
            copies.push_back(run.out.substr(kNamed.size(), run.out.find('\n') - kNamed.size()));
        return run;
    }

    const fs::path folder;
    std::vector<std::string> copies;
};

/// From the head of a PNG file: two numbers of four bytes, the high ones first, behind 16 bytes.
std::array<unsigned, 2> SizeOfPicture(const fs::path& file)
{
    std::ifstream in(file, std::ios::binary);
    std::array<unsigned char, 24> head{};
    in.read(reinterpret_cast<char*>(head.data()), head.size());
    const auto number = [&](size_t at) {
        return unsigned{head[at]} << 24U | unsigned{head[at + 1]} << 16U | unsigned{head[at + 2]} << 8U | head[at + 3];
    };
    return {number(16), number(20)};
}

TEST_F(Host, PhotographsEachPageOfAFreshExample)
{
    const ToolRun run = Run({"session", "Routers\\Core\\Router 1", "--screenshot", folder});
    ASSERT_EQ(run.code, 0) << run.err;
    EXPECT_EQ(run.err, "");
    ASSERT_EQ(copies.size(), 1U);
    EXPECT_TRUE(fs::exists(fs::path(copies.front()) / "Global.ini"));
    std::set<std::string> names;
    for (const fs::directory_entry& file : fs::directory_iterator(folder))
        names.insert(file.path().filename());
    for (const char* const name :
         {"connection.png", "connection-logon-actions.png", "connection-ssh2.png", "terminal-log-file.png"})
        EXPECT_TRUE(names.contains(name)) << name;
}

TEST_F(Host, PhotographsOnePageAtAnySize)
{
    const auto take = [&](const char* name, const std::vector<std::string>& more) {
        std::vector<std::string> all = {"session", "Backups", "--page", "connection", "--screenshot", folder / name};
        all.insert(all.end(), more.begin(), more.end());
        const ToolRun run = Run(all);
        EXPECT_EQ(run.code, 0) << run.err;
        return SizeOfPicture(folder / name);
    };
    const auto plain = take("plain.png", {});
    const auto large = take("large.png", {"--scale", "2", "--dark", "--alone", "--app", "orvane"});
    EXPECT_GT(plain[0], 300U);
    EXPECT_GE(large[0], 2 * 300U);
    EXPECT_GT(large[1], plain[1]);
}

TEST_F(Host, SaysWhatIsWrong)
{
    const struct {
        std::vector<std::string> arguments;
        std::string said;
    } cases[] = {
        {{"session", "Nothing", "--screenshot", folder / "x.png"}, "there is no session 'Nothing'"},
        {{"session", "Backups"}, "there is no display"},
        {{"--config", "/no/such/folder", "session", "Backups"}, "there is no such folder"},
        {{"session", "Backups", "--page", "Loggon", "--screenshot", folder / "x.png"},
         "there is no page 'Loggon'; there are\n  Connection"},
        {{"session", "Backups", "--screenshot", folder / "no" / "x.png"}, "can't write"},
        {{"session"}, "PATH is required"},
        {{"--scale", "9", "session", "Backups"}, "--scale"},
        {{"--modules", "/no/such/folder", "session", "Backups", "--page", "Connection > SFTP", "--screenshot",
          folder / "x.png"},
         "there is no page"},
    };
    for (const auto& each : cases) {
        const ToolRun run = Run(each.arguments);
        EXPECT_NE(run.code, 0) << each.said;
        EXPECT_LT(run.code, 128) << each.said;
        EXPECT_NE(run.err.find(each.said), std::string::npos) << run.err;
    }
}

} // namespace
} // namespace ostrand::test
