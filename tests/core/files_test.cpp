// The services of the system itself.
#include "core/file.h"
#include "platform/error_codes.h"
#include "platform/platform.h"
#include "tests/support/temp_folder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <thread>

#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace ostrand {
namespace {

class FilesTest : public testing::Test {
protected:
    std::unique_ptr<IFile> Open(std::string_view name, VFileAccess access, VFileDisposition disposition,
                                unsigned expected = kErrorSuccess)
    {
        std::unique_ptr<IFile> file;
        EXPECT_EQ(files.Open(folder.Path(name), access, disposition, 0600, file, &existed), expected) << name;
        return file;
    }

    test::TempFolder folder;
    IFiles& files = *Platform().files;
    bool existed = false;
};

TEST_F(FilesTest, OpensByDisposition)
{
    using D = VFileDisposition;
    Open("f", VFileAccess::Write, D::OpenExisting, kErrorFileNotFound);
    Open("f", VFileAccess::Write, D::TruncateExisting, kErrorFileNotFound);
    Open("f", VFileAccess::Write, D::OpenAlways);
    EXPECT_FALSE(existed);
    folder.Write("f", "text");
    Open("f", VFileAccess::Write, D::OpenAlways);
    EXPECT_TRUE(existed);
    Open("f", VFileAccess::Read, D::OpenExisting);
    Open("f", VFileAccess::Write, D::CreateNew, kErrorAlreadyExists);
    EXPECT_EQ(folder.Read("f"), "text");
    Open("f", VFileAccess::Write, D::TruncateExisting);
    EXPECT_EQ(folder.Read("f"), "");
    folder.Write("f", "text");
    Open("f", VFileAccess::ReadWrite, D::CreateAlways);
    EXPECT_EQ(folder.Read("f"), "");
    Open("f/g", VFileAccess::Read, D::OpenExisting, kErrorPathNotFound);
    Open("no/g", VFileAccess::Write, D::CreateAlways, kErrorFileNotFound);
    ASSERT_EQ(symlink("nowhere", folder.Path("link").c_str()), 0);
    Open("link", VFileAccess::Write, D::OpenAlways);
    EXPECT_FALSE(existed);
    EXPECT_TRUE(folder.Exists("nowhere"));
}

TEST_F(FilesTest, ANewFileHasTheModeThatWasAskedFor)
{
    std::unique_ptr<IFile> file;
    const mode_t before = umask(077);
    EXPECT_EQ(files.Open(folder.Path("f"), VFileAccess::Write, VFileDisposition::CreateNew, 0664, file), kErrorSuccess);
    umask(before);
    VFileInfo info;
    EXPECT_EQ(files.GetInfo(folder.Path("f"), info), kErrorSuccess);
    EXPECT_EQ(info.mode, 0664u);
}

TEST_F(FilesTest, ReadsWritesAndSeeks)
{
    const auto file = Open("f", VFileAccess::ReadWrite, VFileDisposition::CreateNew);
    ASSERT_TRUE(file);
    EXPECT_EQ(file->Write("0123456789", 10), kErrorSuccess);
    EXPECT_EQ(file->Sync(), kErrorSuccess);
    EXPECT_EQ(file->Seek(7), kErrorSuccess);
    char data[8];
    size_t got = 0;
    EXPECT_EQ(file->Read(data, sizeof data, got), kErrorSuccess);
    EXPECT_EQ(std::string(data, got), "789");
    EXPECT_EQ(file->Read(data, sizeof data, got), kErrorSuccess);
    EXPECT_EQ(got, 0u) << "the end is no failure";
    VFileInfo info;
    EXPECT_EQ(file->GetInfo(info), kErrorSuccess);
    EXPECT_EQ(info.size, 10u);
    EXPECT_EQ(files.SyncFolder(folder.Path()), kErrorSuccess);
    EXPECT_NE(Open("f", VFileAccess::Read, VFileDisposition::OpenExisting)->Write("x", 1), kErrorSuccess);
}

TEST_F(FilesTest, WholeFilesComeWithTheirInfo)
{
    folder.Write("f", "first text");
    std::string data(100, 'x');
    VFileInfo first;
    VFileInfo later;
    EXPECT_EQ(files.ReadWhole(folder.Path("f"), 10, data, first), kErrorSuccess);
    EXPECT_EQ(data, "first text");
    EXPECT_EQ(first.size, 10u);
    EXPECT_EQ(files.GetInfo(folder.Path("f"), later), kErrorSuccess);
    EXPECT_TRUE(first.SameState(later));
    folder.Write("g", "other text");
    EXPECT_EQ(files.Rename(folder.Path("g"), folder.Path("f")), kErrorSuccess);
    EXPECT_EQ(files.GetInfo(folder.Path("f"), later), kErrorSuccess);
    EXPECT_FALSE(first.SameState(later)) << "another file of the same size";

    folder.Write("empty", "");
    EXPECT_EQ(files.ReadWhole(folder.Path("empty"), 0, data, first), kErrorSuccess);
    EXPECT_EQ(data, "");
    EXPECT_EQ(files.ReadWhole(folder.Path("f"), 9, data, first), kErrorMoreData);
    EXPECT_EQ(files.ReadWhole(folder.Path("missing"), 9, data, first), kErrorFileNotFound);
}

TEST_F(FilesTest, WhatIsNoFileIsRefusedAtOnce)
{
    ASSERT_EQ(mkfifo(folder.Path("pipe").c_str(), 0600), 0);
    std::string data;
    VFileInfo info;
    EXPECT_EQ(files.ReadWhole(folder.Path("pipe"), 100, data, info), kErrorInvalidParameter)
        << "and nobody waits for a writer";
    EXPECT_EQ(files.ReadWhole(folder.Path(), 1 << 20, data, info), kErrorInvalidParameter);
    EXPECT_EQ(files.ReadWhole("/dev/zero", 100, data, info), kErrorInvalidParameter);
}

TEST_F(FilesTest, FoldersAreMadeListedAndRemoved)
{
    EXPECT_EQ(files.CreateFolder(folder.Path("d"), 0700), kErrorSuccess);
    EXPECT_EQ(files.CreateFolder(folder.Path("d"), 0700), kErrorAlreadyExists);
    EXPECT_EQ(files.CreateFolder(folder.Path("x/y"), 0700), kErrorFileNotFound);
    folder.Write("d/\xC3\xA4.ini", "");
    folder.Write("d/sub/f", "");
    ASSERT_EQ(symlink("sub", folder.Path("d/link").c_str()), 0);
    std::vector<VFolderEntry> entries{{"stale", false}};
    EXPECT_EQ(files.ListFolder(folder.Path("d"), entries), kErrorSuccess);
    std::sort(entries.begin(), entries.end(),
              [](const VFolderEntry& a, const VFolderEntry& b) { return a.name < b.name; });
    ASSERT_EQ(entries.size(), 3u);
    EXPECT_TRUE(entries[0].name == "link" && entries[0].isFolder && entries[0].isLink);
    EXPECT_TRUE(entries[1].name == "sub" && entries[1].isFolder && !entries[1].isLink);
    EXPECT_TRUE(entries[2].name == "\xC3\xA4.ini" && !entries[2].isFolder);
    EXPECT_EQ(files.ListFolder(folder.Path("none"), entries), kErrorFileNotFound);
    EXPECT_NE(files.RemoveFolder(folder.Path("d")), kErrorSuccess) << "not empty";
    EXPECT_EQ(files.Remove(folder.Path("d/sub/f")), kErrorSuccess);
    EXPECT_EQ(files.RemoveFolder(folder.Path("d/sub")), kErrorSuccess);
    EXPECT_FALSE(folder.Exists("d/sub"));
    EXPECT_TRUE(files.CanWrite(folder.Path("d")));
    EXPECT_FALSE(files.CanWrite(folder.Path("none")));
}

TEST_F(FilesTest, LinksAreFollowedToWhereTheFileLies)
{
    folder.Write("real/f", "x");
    ASSERT_EQ(symlink("real/f", folder.Path("near").c_str()), 0);
    ASSERT_EQ(symlink(folder.Path("near").c_str(), folder.Path("far").c_str()), 0);
    ASSERT_EQ(symlink("gone", folder.Path("dangling").c_str()), 0);
    ASSERT_EQ(symlink("circle", folder.Path("circle").c_str()), 0);
    EXPECT_EQ(files.ResolveLinks(folder.Path("far")), folder.Path("real/f"));
    EXPECT_EQ(files.ResolveLinks(folder.Path("real/f")), folder.Path("real/f"));
    EXPECT_EQ(files.ResolveLinks(folder.Path("dangling")), folder.Path("gone"));
    EXPECT_EQ(files.ResolveLinks(folder.Path("circle")), folder.Path("circle"));
}

TEST_F(FilesTest, ALockKeepsOthersOutUntilItsFileCloses)
{
    auto first = Open("lock", VFileAccess::ReadWrite, VFileDisposition::OpenAlways);
    const auto second = Open("lock", VFileAccess::ReadWrite, VFileDisposition::OpenAlways);
    EXPECT_EQ(first->Lock(0), kErrorSuccess);
    EXPECT_EQ(second->Lock(0), kErrorLockViolation);
    EXPECT_EQ(second->Lock(20), kErrorLockViolation);
    std::thread closer([&first] { first.reset(); });
    EXPECT_EQ(second->Lock(60000), kErrorSuccess) << "waits no longer than it must";
    closer.join();
}

TEST_F(FilesTest, WidePathsReachTheSameFiles)
{
    folder.Write("d/\xC3\xBC", "x");
    std::u16string path = folder.WidePath("d") + u"\\\u00FC";
    VFile file;
    ASSERT_EQ(file.Open(path, VFileAccess::Read, VFileDisposition::OpenExisting), kErrorSuccess);
    uint64_t size = 0;
    EXPECT_EQ(file.GetSize(size), kErrorSuccess);
    EXPECT_EQ(size, 1u);
    EXPECT_EQ(file.GetPath(), path);
}

TEST(Clock, BothFormsTellTheSameTime)
{
    const uint32_t seconds = Platform().clock->Seconds();
    const uint64_t fileTime = Platform().clock->FileTime();
    EXPECT_NEAR(static_cast<double>(fileTime / 10000000 - 11644473600), seconds, 2);
    EXPECT_GT(seconds, 1600000000u);
}

TEST(Environment, TellsVariables)
{
    ASSERT_EQ(setenv("OSTRAND_TEST_VARIABLE", "a=b", 1), 0);
    std::string value = "before";
    EXPECT_TRUE(Platform().environment->Get("OSTRAND_TEST_VARIABLE", value));
    EXPECT_EQ(value, "a=b");
    EXPECT_FALSE(Platform().environment->Get("OSTRAND_TEST_NO_SUCH", value));
    EXPECT_EQ(value, "a=b");
    const std::vector<std::string> all = Platform().environment->All();
    EXPECT_NE(std::find(all.begin(), all.end(), "OSTRAND_TEST_VARIABLE=a=b"), all.end());
}

TEST(Processes, KnowWhereTheCodeLies)
{
    IProcesses& processes = *Platform().processes;
    const std::string program = processes.ExecutablePath();
    EXPECT_EQ(program, std::filesystem::read_symlink("/proc/self/exe").string());
    EXPECT_EQ(processes.ModulePath(reinterpret_cast<const void*>(&Platform)), program);
    EXPECT_EQ(processes.ModulePath(nullptr), "");
    EXPECT_EQ(processes.CurrentFolder(), std::filesystem::current_path().string());
    EXPECT_TRUE(processes.IsProductExecutable(program, 5));
    EXPECT_FALSE(processes.IsProductExecutable("/", 5));
    EXPECT_FALSE(processes.IsProductExecutable("/no/such/file", 5));
}

/// Waits for what another process does; seconds only if it never happens.
template <class Condition>
bool Soon(Condition condition)
{
    for (int i = 0; i < 2000; ++i) {
        if (condition())
            return true;
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    return false;
}

TEST(Processes, StartADetachedProgramOrSayWhyNot)
{
    const test::TempFolder folder;
    IProcesses& processes = *Platform().processes;
    folder.Write("tool", "#!/bin/sh\nprintf '%s|' \"$@\" > \"$1.part\" && mv \"$1.part\" \"$1\"\n");
    ASSERT_EQ(chmod(folder.Path("tool").c_str(), 0700), 0);
    EXPECT_EQ(processes.Start(folder.Path("tool"), {folder.Path("out"), "two words", "$HOME", ""}), kErrorSuccess);
    EXPECT_TRUE(Soon([&] { return folder.Exists("out"); }));
    EXPECT_EQ(folder.Read("out"), folder.Path("out") + "|two words|$HOME||") << "no shell touched the arguments";

    EXPECT_EQ(processes.Start(folder.Path("missing"), {}), kErrorFileNotFound);
    folder.Write("text", "no program");
    EXPECT_EQ(processes.Start(folder.Path("text"), {}), kErrorAccessDenied)
        << "the reason comes back from the new process";
    EXPECT_TRUE(waitpid(-1, nullptr, WNOHANG) == -1 && errno == ECHILD) << "no child is left to wait for";
}

} // namespace
} // namespace ostrand
