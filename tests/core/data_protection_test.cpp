// The system's own protection of secrets: what opens a block and what doesn't, and the key file of the user.
#include "tests/support/fake_platform.h"
#include "tests/support/temp_folder.h"

#include <gtest/gtest.h>

#include <set>

#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace ostrand {
namespace {

using Block = std::vector<uint8_t>;

constexpr const char* kKey = "data/hollowmere/protection.key";
const Block kPlain = {'s', 0, 'e', 0, 'c', 0, 0, 0};

class DataProtection : public testing::Test {
protected:
    DataProtection() { platform.environment.variables["XDG_DATA_HOME"] = folder.Path("data"); }

    Block Protected(const char* name = "Password", const Block& plain = kPlain)
    {
        Block block;
        EXPECT_EQ(Platform().dataProtection->Protect(name, plain, block), kErrorSuccess);
        return block;
    }
    unsigned Open(const Block& block, const char* name = "Password")
    {
        VSecretBytes plain = {1};
        const unsigned code = Platform().dataProtection->Unprotect(name, block, plain);
        EXPECT_EQ(Block(plain.begin(), plain.end()), code == kErrorSuccess ? kPlain : Block());
        return code;
    }
    unsigned Mode(const char* name) const
    {
        struct stat info{};
        return stat(folder.Path(name).c_str(), &info) == 0 ? info.st_mode & 0777u : 0;
    }

    test::TempFolder folder;
    test::FakePlatform platform;
};

TEST_F(DataProtection, OnlyTheWholeBlockUnderItsNameOpens)
{
    const Block block = Protected();
    EXPECT_EQ(Open(block), kErrorSuccess);
    EXPECT_NE(Protected(), block) << "each block has a nonce of its own";
    EXPECT_EQ(Open(block, "password"), kErrorInvalidData);
    for (size_t i = 0; i < block.size(); ++i) {
        Block damaged = block;
        damaged[i] ^= 0x10;
        EXPECT_EQ(Open(damaged), kErrorInvalidData) << i;
        EXPECT_EQ(Open(Block(block.begin(), block.begin() + static_cast<std::ptrdiff_t>(i))), kErrorInvalidData) << i;
    }
}

TEST_F(DataProtection, AnotherKeyOpensNothing)
{
    const Block block = Protected();
    platform.environment.variables["XDG_DATA_HOME"] = folder.Path("other");
    EXPECT_EQ(Open(block), kErrorFileNotFound);
    EXPECT_FALSE(folder.Exists("other")) << "a look makes no key";
    Protected();
    EXPECT_EQ(Open(block), kErrorInvalidData);
}

TEST_F(DataProtection, TheKeyIsForItsUserAlone)
{
    const Block block = Protected();
    EXPECT_EQ(Mode(kKey), 0600u);
    EXPECT_EQ(Mode("data/hollowmere"), 0700u);
    EXPECT_EQ(folder.Read(kKey).size(), 32u);

    ASSERT_EQ(chmod(folder.Path(kKey).c_str(), 0640), 0);
    EXPECT_EQ(Open(block), kErrorAccessDenied);
    ASSERT_EQ(chmod(folder.Path(kKey).c_str(), 0400), 0);
    EXPECT_EQ(Open(block), kErrorSuccess);

    // A key that was cut opens nothing, and isn't replaced either.
    ASSERT_EQ(truncate(folder.Path(kKey).c_str(), 31), 0);
    EXPECT_EQ(Open(block), kErrorInvalidData);
    Block none = {1};
    EXPECT_EQ(Platform().dataProtection->Protect("Password", kPlain, none), kErrorInvalidData);
    EXPECT_TRUE(none.empty());
    EXPECT_EQ(folder.Read(kKey).size(), 31u);
}

TEST_F(DataProtection, TheKeyLiesInTheDataFolder)
{
    auto& variables = platform.environment.variables;
    variables["HOME"] = folder.Path("home");
    for (const char* const relative : {"", "data"}) {
        SCOPED_TRACE(relative);
        variables["XDG_DATA_HOME"] = relative;
        const Block block = Protected();
        EXPECT_EQ(Open(block), kErrorSuccess);
        EXPECT_TRUE(folder.Exists("home/.local/share/hollowmere/protection.key"));
    }
    variables["XDG_DATA_HOME"] = folder.Path("file");
    folder.Write("file", "in the way");
    Block block;
    EXPECT_EQ(Platform().dataProtection->Protect("Password", kPlain, block), kErrorPathNotFound);
}

/// In a process of its own: waits for the others, then protects, and leaves its block in a file.
[[noreturn]] void ProtectInChild(int start, const test::TempFolder& folder, const std::string& name)
{
    char go = 0;
    Block block;
    const bool isDone =
        read(start, &go, 1) == 0 && Platform().dataProtection->Protect("Password", kPlain, block) == kErrorSuccess;
    folder.Write(name, std::string(block.begin(), block.end()));
    _exit(isDone ? 0 : 1);
}

TEST_F(DataProtection, ProcessesThatMakeTheKeyAtTheSameTimeGetTheSameOne)
{
    constexpr int kProcesses = 8;
    for (int round = 0; round < 5; ++round) {
        platform.environment.variables["XDG_DATA_HOME"] = folder.Path("round" + std::to_string(round));
        int gate[2];
        ASSERT_EQ(pipe(gate), 0);
        for (int i = 0; i < kProcesses; ++i) {
            const pid_t child = fork();
            ASSERT_NE(child, -1);
            if (child == 0) {
                close(gate[1]);
                ProtectInChild(gate[0], folder, "block" + std::to_string(i));
            }
        }
        close(gate[0]);
        close(gate[1]); // all start
        for (int i = 0; i < kProcesses; ++i) {
            int status = -1;
            EXPECT_NE(wait(&status), -1);
            EXPECT_EQ(status, 0);
        }
        for (int i = 0; i < kProcesses; ++i) {
            const std::string block = folder.Read("block" + std::to_string(i));
            EXPECT_EQ(Open(Block(block.begin(), block.end())), kErrorSuccess);
        }
    }
}

TEST(SystemRandom, DrawsDifferentBytes)
{
    std::set<Block> drawn;
    for (const size_t size : {16u, 16u, 16u, 1000u, 1000u}) {
        Block bytes(size);
        EXPECT_EQ(Platform().dataProtection->FillRandom(bytes.data(), bytes.size()), kErrorSuccess);
        drawn.insert(bytes);
    }
    EXPECT_EQ(drawn.size(), 5u);
}

} // namespace
} // namespace ostrand
