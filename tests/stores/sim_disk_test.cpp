// The simulated disk finds the faults of careless savers, and none of a careful one.
#include "tests/crash/sim_disk.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

namespace ostrand {
namespace {

using test::CutPolicy;
using test::Dice;
using test::SimDisk;
using testing::ElementsAre;

constexpr const char* kFile = "/d/f";
constexpr const char* kTemporary = "/d/t";
constexpr unsigned kMode = 0600;

std::string Old() { return std::string(3000, 'o'); }
std::string New() { return std::string(5000, 'n'); }

bool Write(SimDisk& disk, const char* path, VFileDisposition disposition, const std::string& text, bool isSynced = true)
{
    std::unique_ptr<IFile> file;
    return disk.Open(path, VFileAccess::Write, disposition, kMode, file, nullptr) == kErrorSuccess &&
           file->Write(text.data(), text.size()) == kErrorSuccess && (!isSynced || file->Sync() == kErrorSuccess);
}

bool Careful(SimDisk& disk)
{
    return Write(disk, kTemporary, VFileDisposition::CreateAlways, New()) &&
           disk.Rename(kTemporary, kFile) == kErrorSuccess && disk.SyncFolder("/d") == kErrorSuccess;
}

bool NoSync(SimDisk& disk)
{
    return Write(disk, kTemporary, VFileDisposition::CreateAlways, New(), false) &&
           disk.Rename(kTemporary, kFile) == kErrorSuccess && disk.SyncFolder("/d") == kErrorSuccess;
}

bool NoSyncOfTheFolder(SimDisk& disk)
{
    return Write(disk, kTemporary, VFileDisposition::CreateAlways, New()) &&
           disk.Rename(kTemporary, kFile) == kErrorSuccess;
}

bool InPlace(SimDisk& disk) { return Write(disk, kFile, VFileDisposition::TruncateExisting, New()); }

/// Overwrites what it exchanged before the exchange was on the disk.
bool HastySpare(SimDisk& disk)
{
    return Write(disk, kTemporary, VFileDisposition::CreateAlways, Old()) &&
           disk.Exchange(kTemporary, kFile) == kErrorSuccess &&
           Write(disk, kTemporary, VFileDisposition::OpenExisting, New()) &&
           disk.Exchange(kTemporary, kFile) == kErrorSuccess && disk.SyncFolder("/d") == kErrorSuccess;
}

/// Takes the second sync's word, though the first one said that the disk dropped something.
bool TrustingSync(SimDisk& disk)
{
    std::unique_ptr<IFile> file;
    if (disk.Open(kTemporary, VFileAccess::Write, VFileDisposition::CreateAlways, kMode, file, nullptr) != 0 ||
        file->Write(New().data(), New().size()) != kErrorSuccess)
        return false;
    const auto fault = disk.plan;
    disk.plan = {.at = disk.calls.size()};
    EXPECT_EQ(file->Sync(), kErrorDiskFull);
    disk.plan = fault;
    return file->Sync() == kErrorSuccess && disk.Rename(kTemporary, kFile) == kErrorSuccess &&
           disk.SyncFolder("/d") == kErrorSuccess;
}

size_t LossesOf(bool (*save)(SimDisk&), CutPolicy policy)
{
    constexpr size_t kCuts = 60;
    size_t losses = 0;
    bool isWhole = false;
    for (size_t at = 0; !isWhole; ++at) {
        SimDisk disk;
        disk.Put(kFile, Old());
        disk.plan = {.at = at, .dies = true};
        const bool isTold = save(disk);
        isWhole = !disk.IsDead();
        EXPECT_EQ(isTold, isWhole);
        for (uint64_t seed = 0; seed < kCuts; ++seed) {
            Dice dice(seed);
            const std::string text = disk.PowerCut(policy, dice).Text(kFile).value_or("gone");
            losses += isWhole ? text != New() : text != Old() && text != New();
        }
    }
    return losses;
}

TEST(SimDisk, ACarelessSaverLosesACarefulOneDoesNot)
{
    struct Case {
        const char* what;
        bool (*save)(SimDisk&);
        bool isCareful;
    };
    const Case cases[] = {
        {"careful", Careful, true},
        {"no sync before the rename", NoSync, false},
        {"no sync of the folder", NoSyncOfTheFolder, false},
        {"in place", InPlace, false},
        {"a spare overwritten too early", HastySpare, false},
        {"a failed sync repeated", TrustingSync, false},
    };
    for (const Case& c : cases)
        for (const CutPolicy policy : {CutPolicy::Ordered, CutPolicy::Unordered, CutPolicy::Harsh}) {
            SCOPED_TRACE(c.what);
            EXPECT_EQ(LossesOf(c.save, policy) == 0, c.isCareful) << static_cast<int>(policy);
        }
}

TEST(SimDisk, OnlyOneFileHoldsTheLockAndADeadProcessHoldsNone)
{
    SimDisk disk;
    disk.Put(kFile, "x");
    const auto open = [](SimDisk& on) {
        std::unique_ptr<IFile> file;
        EXPECT_EQ(on.Open(kFile, VFileAccess::ReadWrite, VFileDisposition::OpenExisting, 0, file, nullptr), 0u);
        return file;
    };
    std::unique_ptr<IFile> first = open(disk);
    const std::unique_ptr<IFile> second = open(disk);
    EXPECT_EQ(first->Lock(0), kErrorSuccess);
    EXPECT_EQ(second->Lock(0), kErrorLockViolation);
    SimDisk after = disk.Kill();
    std::unique_ptr<IFile> alone;
    VFileInfo info;
    EXPECT_EQ(disk.OpenAlone(kFile, alone, info), kErrorSharingViolation);
    EXPECT_EQ(open(after)->Lock(0), kErrorSuccess);
    EXPECT_EQ(after.OpenAlone(kFile, alone, info), kErrorSuccess);
    first.reset();
    EXPECT_EQ(second->Lock(0), kErrorSuccess);
}

TEST(SimDisk, ThePolicySaysWhichNamesSurvive)
{
    using Names = std::set<std::string>;
    const auto seen = [](CutPolicy policy) {
        std::set<Names> all;
        for (uint64_t seed = 0; seed < 100; ++seed) {
            SimDisk disk;
            disk.Put("/d/a", "a");
            disk.Put("/e/x", "x");
            disk.Rename("/d/a", "/d/b");
            disk.CreateFolder("/e/f", 0700);
            Dice dice(seed);
            SimDisk after = disk.PowerCut(policy, dice);
            Names names;
            std::vector<VFolderEntry> entries;
            for (const char* const folder : {"/d", "/e"}) {
                after.ListFolder(folder, entries);
                for (const VFolderEntry& entry : entries)
                    names.insert(entry.name);
            }
            all.insert(names);
        }
        return all;
    };
    EXPECT_THAT(seen(CutPolicy::Ordered), ElementsAre(Names{"a", "x"}, Names{"b", "f", "x"}, Names{"b", "x"}));
    EXPECT_EQ(seen(CutPolicy::Unordered).size(), 4u);

    std::set<std::string> halves;
    for (uint64_t seed = 0; seed < 100; ++seed) {
        SimDisk disk;
        disk.Put("/d/a", "a");
        disk.Put("/d/b", "b");
        disk.Exchange("/d/a", "/d/b");
        Dice dice(seed);
        SimDisk after = disk.PowerCut(CutPolicy::Harsh, dice);
        halves.insert(*after.Text("/d/a") + *after.Text("/d/b"));
        std::unique_ptr<IFile> file;
        VFileInfo info;
        const bool isShared = after.Text("/d/a") == after.Text("/d/b");
        EXPECT_EQ(after.OpenAlone("/d/a", file, info), isShared ? kErrorNotSupported : kErrorSuccess);
    }
    EXPECT_THAT(halves, ElementsAre("aa", "ab", "ba", "bb"));
}

} // namespace
} // namespace ostrand
