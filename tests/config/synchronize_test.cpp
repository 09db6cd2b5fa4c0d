// Synchronize tasks: reading, the snapshot, and what saves leave in the key.
#include "config/session/synchronize.h"

#include "config/global/global_store.h"
#include "platform/error_codes.h"
#include "tests/support/default_store.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace ostrand::test {
namespace {

using testing::IsEmpty;

constexpr const char16_t* kKey = u"QuickSync";

class Synchronize : public testing::Test {
protected:
    static SynchronizeTask Task(const char16_t* name)
    {
        SynchronizeTask task;
        task.name = name;
        task.sources.Append({u"Lab", u"/a", true});
        task.targets.Append({u"", u"C:\\b"});
        return task;
    }
    SynchronizeProfile Load()
    {
        SynchronizeProfile profile;
        profile.Load(&key, VUnicodeString(kKey));
        return profile;
    }

    DefaultMemoryStore store;
    VProfileStore open;
    VProfileKey key{open.GetRootKey(), kKey};
};

TEST_F(Synchronize, AShorterListLeavesTheRest)
{
    SynchronizeProfile profile = Load();
    EXPECT_FALSE(profile.IsModified());
    for (const char16_t* name : {u"A", u"B", u"C"})
        profile.tasks.Append(Task(name));
    profile.Save(&key, true);
    profile.tasks.RemoveAll();
    profile.tasks.Append(Task(u"New"));
    profile.Save(&key, true);
    const SynchronizeProfile again = Load();
    ASSERT_EQ(again.tasks.GetCount(), 3u);
    EXPECT_EQ(again.tasks[0].name, u"New");
    EXPECT_EQ(again.tasks[2], Task(u"C"));
    store.factory.Fill({{u"QuickSync\\Filter", u"x", 1u}});
    profile.Save(&key, true);
    EXPECT_FALSE(key.KeyExists(u"Filter")) << "a key that is named like a value goes";
}

TEST_F(Synchronize, TheSnapshotIsTheSavedCopy)
{
    SynchronizeProfile profile;
    EXPECT_TRUE(profile.IsModified()) << "never loaded";
    profile.RevertChanges();
    profile.Load(nullptr, VUnicodeString(kKey));
    EXPECT_FALSE(profile.IsModified());

    using Change = void (*)(SynchronizeProfile&);
    for (const Change change : {Change([](SynchronizeProfile& p) { p.tasks.Append(Task(u"A")); }),
                                Change([](SynchronizeProfile& p) { p.selectedTask = 0; }),
                                Change([](SynchronizeProfile& p) { p.selectedItem = 0; }),
                                Change([](SynchronizeProfile& p) { p.filter = VUnicodeString(u"f"); })}) {
        change(profile);
        EXPECT_TRUE(profile.IsModified());
        profile.RevertChanges();
        EXPECT_FALSE(profile.IsModified());
    }
    profile.lastSyncTime = VFileTime{5};
    EXPECT_FALSE(profile.IsModified()) << "a new time alone is no change";

    profile.tasks.Append(Task(u"A"));
    const SynchronizeProfile copy = profile;
    profile.AcceptChanges();
    EXPECT_FALSE(profile.IsModified());
    EXPECT_TRUE(copy.IsModified()) << "a copy has a snapshot of its own";
    SynchronizeProfile other = Load();
    other.CopyValue(profile);
    EXPECT_TRUE(other.IsModified()) << "what an editor accepted is still a change here";
    EXPECT_EQ(other.lastSyncTime.ticks, 5u);
    other = profile;
    EXPECT_FALSE(other.IsModified()) << "an assignment brings the snapshot along";
}

TEST_F(Synchronize, AMergeLooksForAChildAndReadsTheKey)
{
    SynchronizeProfile profile = Load();
    store.factory.Fill({{kKey, u"Task[0].Name", VUnicodeString(u"A")}, {kKey, u"Task[0].Type", 1u}});
    EXPECT_FALSE(profile.ReadValue(nullptr));
    EXPECT_FALSE(profile.ReadValue(&key));
    EXPECT_EQ(profile.tasks.GetCount(), 0u);
    store.factory.Fill({{u"QuickSync\\QuickSync", u"x", 1u}});
    EXPECT_TRUE(profile.ReadValue(&key));
    EXPECT_EQ(profile.tasks.GetCount(), 1u);
}

TEST_F(Synchronize, ATimeOfFormerReleasesIsLocal)
{
    store.factory.Fill({{kKey, u"Last Sync Time", StoreBlock{0xE8, 7, 2, 0, 4, 0, 29, 0, 12, 0, 34, 0, 56, 0, 21, 3}}});
    SynchronizeProfile profile;
    profile.timeZone = std::make_unique<VTimeZoneInformation>();
    profile.timeZone->bias = -60;
    profile.Load(&key, VUnicodeString(kKey));
    EXPECT_EQ(profile.lastSyncTime.ticks, 133536836967890000u - 36'000'000'000u);
    EXPECT_EQ(profile.lastSyncTime.saved.ticks, 0u);
    EXPECT_FALSE(profile.IsModified());
    for (const StoreBlock& unfit : {StoreBlock(15), StoreBlock(17), StoreBlock(16, 0xFF)}) {
        store.factory.Fill({{kKey, u"Last Sync Time", unfit}});
        EXPECT_EQ(Load().lastSyncTime.ticks, 0u);
    }
}

TEST_F(Synchronize, TheGlobalRecordSavesItWhenSomethingButTheTimeHasChanged)
{
    VReportMessageParams report;
    const VUnknownPointer<GlobalConfig> config = ReadGlobalConfig(true);
    ASSERT_TRUE(WriteGlobalConfig(*config, false, report));
    EXPECT_THAT(store.NamesIn(kKey), IsEmpty());
    config->quickSynchronizeTask.lastSyncTime = VFileTime{5};
    ASSERT_TRUE(WriteGlobalConfig(*config, true, report));
    EXPECT_THAT(store.NamesIn(kKey), IsEmpty());

    config->quickSynchronizeTask.tasks.Append(Task(u"A"));
    store.factory.FailFlush(kErrorDiskFull);
    EXPECT_FALSE(WriteGlobalConfig(*config, false, report));
    EXPECT_EQ(report.GetCode(), kErrorDiskFull);
    store.factory.FailFlush(0);
    EXPECT_EQ(ReadGlobalConfig(true)->quickSynchronizeTask.tasks.GetCount(), 1u);
}

} // namespace
} // namespace ostrand::test
