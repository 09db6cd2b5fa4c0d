// The global record as a whole: walks over every member, whatever it is.
#include "tests/config/global_scene.h"
#include "tests/config/record_walks.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

namespace ostrand::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(GlobalRecord, TheFirstSaveWritesEveryDefaultAndTheSecondNothing)
{
    for (const bool isOrvane : {false, true}) {
        GlobalStore store;
        const ConfigPointer config = Read(store.Key(), isOrvane);
        config->Save(store.Key(), false);
        std::vector<std::u16string> names;
        for (const VProfileData* member : LeavesOf(*config))
            if (member != &config->ovnCustomToolbarData) // there is nothing to write in an empty block
                names.push_back(NameOf(*member));
        EXPECT_EQ(store.TakeWrites(), names);
        config->Save(store.Key(), false);
        EXPECT_THAT(store.TakeWrites(), IsEmpty());
        const ConfigPointer again = Read(store.Key(), isOrvane);
        again->Save(store.Key(), false);
        EXPECT_THAT(store.TakeWrites(), IsEmpty()) << "what was written reads back clean";
    }
}

/// What the key Global holds.
std::vector<StoreEntry> ValuesOf(const GlobalStore& store)
{
    std::vector<StoreEntry> values = store.Factory().Dump();
    std::erase_if(values, [](const StoreEntry& entry) { return entry.key != u"Global"; });
    return values;
}

bool IsViewState(const VProfileData& value)
{
    return dynamic_cast<const VProfileListViewState*>(&value) ||
           dynamic_cast<const VProfileExplorerFrameState*>(&value);
}

TEST(GlobalRecord, EachChangeIsWrittenAloneAndUndoneByARevert)
{
    GlobalStore store;
    const ConfigPointer config = Read(store.Key());
    config->Save(store.Key(), true);
    for (VProfileData* member : LeavesOf(*config)) {
        SCOPED_TRACE(ToUtf8(member->name));
        store.TakeWrites();
        ASSERT_FALSE(config->IsModified());
        Change(*member);
        if (!IsViewState(*member)) { // the fields of a view are seen by a save alone
            EXPECT_TRUE(config->IsModified());
            if (member != &config->ovnCustomToolbarData) { // has no saved copy before its first save
                config->RevertChanges();
                EXPECT_FALSE(config->IsModified());
                config->Save(store.Key(), false);
                EXPECT_THAT(store.TakeWrites(), IsEmpty());
                Change(*member);
            }
        }
        config->Save(store.Key(), false);
        EXPECT_THAT(store.TakeWrites(), ElementsAre(NameOf(*member)));
    }
}

TEST(GlobalRecord, AForcedSaveReadsBackAsTheSameRecord)
{
    for (const bool isOrvane : {false, true}) {
        GlobalStore store;
        const ConfigPointer config = Read(nullptr, isOrvane);
        for (VProfileData* member : LeavesOf(*config))
            Change(*member);
        config->useRawMode = 0; // excludes the port, which was changed, too
        config->Save(store.Key(), true);
        EXPECT_EQ(store.TakeWrites().size(), LeavesOf(*config).size());

        const ConfigPointer again = Read(store.Key(), isOrvane);
        EXPECT_FALSE(again->IsModified());
        GlobalStore second;
        again->Save(store.Key(), false);
        EXPECT_THAT(store.TakeWrites(), IsEmpty());
        again->Save(second.Key(), true);
        EXPECT_EQ(ValuesOf(second), ValuesOf(store));
    }
}

TEST(GlobalRecord, EveryLeafHasANameOfItsOwn)
{
    for (const bool isOrvane : {false, true}) {
        const ConfigPointer config = Read(nullptr, isOrvane);
        const std::vector<VProfileData*> members = LeavesOf(*config);
        for (VProfileData* member : members) {
            EXPECT_FALSE(member->name.IsEmpty());
            VProfileData* const own = config->FindMember(member->name);
            EXPECT_EQ(own ? own : config->printerSerial.FindMember(member->name), member) << ToUtf8(member->name);
            EXPECT_EQ(
                std::count_if(members.begin(), members.end(),
                              [member](const VProfileData* m) { return m->name.CompareNoCase(member->name) == 0; }),
                1)
                << ToUtf8(member->name);
        }
    }
}

TEST(GlobalRecord, AnUnfitValueReadsAsItsDefaultAndIsRepaired)
{
    FakePlatform platform;
    GlobalStore store;
    Read(store.Key())->Save(store.Key(), true);
    store.Put(u"Right Click Popup Shown", 1u); // what an existing store gets by default
    const std::vector<StoreEntry> whole = ValuesOf(store);
    for (const StoreEntry& entry : whole) {
        for (const StoreValue& unfit : Unfit(entry.value)) {
            SCOPED_TRACE(ToUtf8(entry.name) + " as kind " + std::to_string(unfit.index()));
            store.Put(entry.name, unfit);
            store.TakeWrites();
            const ConfigPointer config = Read(store.Key());
            EXPECT_FALSE(config->IsModified());
            config->Save(store.Key(), false);
            EXPECT_THAT(store.TakeWrites(), ElementsAre(entry.name));
            EXPECT_EQ(ValuesOf(store), whole);
        }
    }
}

TEST(GlobalRecord, EveryFieldHasARow)
{
    const ConfigPointer config = Read(nullptr);
    ExpectRowsTile(*config, &config->showToolbar, &config->quickSynchronizeTask);
    EXPECT_LT(reinterpret_cast<uintptr_t>(config.Get() + 1) -
                  reinterpret_cast<uintptr_t>(&config->quickSynchronizeTask + 1),
              sizeof(VProfile<bool>));
}

} // namespace
} // namespace ostrand::test
