// The global record as a whole: walks over every member, whatever it is.
#include "tests/config/global_scene.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <map>

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

/// Another current value than the one it has.
void Change(VProfileData& value)
{
    if (auto* const number = dynamic_cast<VProfile<int>*>(&value))
        number->value ^= 1;
    else if (auto* const colour = dynamic_cast<VProfile<unsigned>*>(&value))
        colour->value ^= 1;
    else if (auto* const moment = dynamic_cast<VProfile<unsigned long>*>(&value))
        moment->value ^= 1;
    else if (auto* const flag = dynamic_cast<VProfile<bool>*>(&value))
        flag->value = !flag->value;
    else if (auto* const list = dynamic_cast<VProfileListViewState*>(&value))
        list->columns.Append({++list->columnCount, false, 7}); // a text without columns reads back as the defaults
    else if (auto* const frame = dynamic_cast<VProfileExplorerFrameState*>(&value))
        frame->third ^= 1;
    else if (auto* const text = dynamic_cast<VProfileString*>(&value))
        text->Append(u"x");
    else if (auto* const texts = dynamic_cast<VProfileStringList*>(&value))
        texts->Append(u"x");
    else if (auto* const placement = dynamic_cast<VProfileWindowPlacement*>(&value))
        placement->normalBottom ^= 1;
    else if (auto* const margins = dynamic_cast<VProfileMargins*>(&value))
        margins->bottom += 1;
    else if (auto* const font = dynamic_cast<VProfileLogFont*>(&value))
        font->pointSize ^= 1;
    else if (auto* const colours = dynamic_cast<VProfileColors*>(&value))
        colours->back() ^= 1;
    else if (auto* const blob = dynamic_cast<VProfileBlob*>(&value))
        blob->data.push_back(1);
    else
        FAIL() << "a class that this test doesn't know";
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

/// What a damaged or foreign store may hold in place of this value.
std::vector<StoreValue> Unfit(const StoreValue& value)
{
    const StoreBlock oversized(std::holds_alternative<StoreBlock>(value) ? std::get<StoreBlock>(value).size() + 1 : 8);
    std::vector<StoreValue> all = {0u, VUnicodeString(u""), oversized, VStringArray(), ForeignValue()};
    std::erase_if(all, [&value](const StoreValue& v) {
        return v.index() == value.index() && !std::holds_alternative<StoreBlock>(v);
    });
    return all;
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

size_t SizeOf(VValueClass type)
{
    static const std::map<VValueClass, size_t> sizes = {
        {VValueClass::Bool, sizeof(VProfile<bool>)},
        {VValueClass::Int, sizeof(VProfile<int>)},
        {VValueClass::UInt, sizeof(VProfile<unsigned>)},
        {VValueClass::ULong, sizeof(VProfile<unsigned long>)},
        {VValueClass::String, sizeof(VProfileString)},
        {VValueClass::Strings, sizeof(VProfileStringList)},
        {VValueClass::Font, sizeof(VProfileLogFont)},
        {VValueClass::Placement, sizeof(VProfileWindowPlacement)},
        {VValueClass::Margins, sizeof(VProfileMargins)},
        {VValueClass::Colors, sizeof(VProfileColors)},
        {VValueClass::ListView, sizeof(VProfileListViewState)},
        {VValueClass::ExplorerFrame, sizeof(VProfileExplorerFrameState)},
        {VValueClass::Blob, sizeof(VProfileBlob)},
        {VValueClass::Serial, sizeof(VSerialDeviceConfig)},
        {VValueClass::ColorSchemes, sizeof(ProfileColorSchemeList)}};
    return sizes.at(type);
}

TEST(GlobalRecord, EveryFieldHasARow)
{
    const ConfigPointer config = Read(nullptr);
    const auto addressOf = [](const void* object) { return reinterpret_cast<uintptr_t>(object); };
    std::vector<std::pair<uintptr_t, uintptr_t>> fields; // first byte, behind the last
    for (const auto& row : GlobalConfig::Schema().Rows()) {
        if (row.IsRule())
            continue;
        // dynamic_cast<void*> finds where the object begins, wherever its VProfileData lies.
        const uintptr_t first = addressOf(dynamic_cast<void*>(row.member(*config)));
        fields.emplace_back(first, first + SizeOf(row.type));
    }
    std::sort(fields.begin(), fields.end());
    for (size_t i = 1; i < fields.size(); ++i)
        EXPECT_EQ(fields[i].first, fields[i - 1].second)
            << "a field without a row stands behind the row's field number " << i;
    constexpr size_t kLeastField = sizeof(VProfile<bool>);
    EXPECT_LT(fields.front().first - addressOf(&config->scriptingDisabled), kLeastField);
    EXPECT_LT(addressOf(&config->quickSynchronizeTask) - fields.back().second, kLeastField);
    EXPECT_LT(addressOf(config.Get()) + sizeof(GlobalConfig) - addressOf(&config->quickSynchronizeTask + 1),
              kLeastField);
}

} // namespace
} // namespace ostrand::test
