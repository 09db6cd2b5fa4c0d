// The terminal's record as a whole: against a list of its values, and walks over every member, whatever it is.
#include "config/session/terminal_config.h"
#include "tests/config/expected_schema.h"
#include "tests/config/global_scene.h"
#include "tests/config/record_walks.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace ostrand::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kList = "terminal_values.txt";

TerminalConfig ReadTerminal(const VProfileKey* key, const GlobalConfig* global = nullptr)
{
    return TerminalConfig(key, true, global);
}

TEST(TerminalValues, TheSchemaIsTheList)
{
    ExpectSchemaIsTheList(EntriesOf(TerminalConfig::Schema().View()), ReadExpectedValues(kList));
}

TEST(TerminalValues, ARecordWithoutAKeyHoldsTheDefaultsOfTheList)
{
    TerminalConfig terminal = ReadTerminal(nullptr);
    ExpectDefaultsOfTheList(MembersOf(terminal), ReadExpectedValues(kList));
}

TEST(TerminalValues, EveryFieldHasARow)
{
    TerminalConfig terminal = ReadTerminal(nullptr);
    ExpectRowsTile(terminal, &terminal.syncViewRows, &terminal.fontMap);
}

TEST(TerminalValues, EachChangeIsWrittenAloneAndUndoneByARevert)
{
    GlobalStore store;
    TerminalConfig terminal = ReadTerminal(store.Key());
    terminal.Save(store.Key(), false);
    EXPECT_EQ(store.TakeWrites().size(), 77u) << "every default but the empty key map";
    terminal.Save(store.Key(), true);
    EXPECT_EQ(store.TakeWrites().size(), 78u);
    for (VProfileData* member : MembersOf(terminal)) {
        SCOPED_TRACE(ToUtf8(member->name));
        ASSERT_FALSE(terminal.IsModified());
        EXPECT_EQ(terminal.FindMember(member->name), member);
        Change(*member);
        EXPECT_TRUE(terminal.IsModified());
        terminal.RevertChanges();
        EXPECT_FALSE(terminal.IsModified());
        terminal.Save(store.Key(), false);
        // A key map's revert is an assignment, and all maps are reverted.
        EXPECT_THAT(store.TakeWrites(), ElementsAre(u"Keymap v2"));
        Change(*member);
        terminal.Save(store.Key(), false);
        EXPECT_THAT(store.TakeWrites(), ElementsAre(NameOf(*member)));
    }
}

TEST(TerminalValues, AForcedSaveReadsBackAsTheSameRecord)
{
    const ConfigPointer global = Read(nullptr);
    global->selectedTermcapEntries.Append(u"VT100x"); // what a change makes of the emulation
    GlobalStore store;
    TerminalConfig terminal = ReadTerminal(nullptr);
    for (VProfileData* member : MembersOf(terminal))
        Change(*member);
    terminal.Save(store.Key(), true);
    store.TakeWrites();
    TerminalConfig again = ReadTerminal(store.Key(), global.Get());
    EXPECT_FALSE(again.IsModified());
    again.Save(store.Key(), false);
    EXPECT_THAT(store.TakeWrites(), IsEmpty());
    GlobalStore second;
    again.Save(second.Key(), true);
    EXPECT_EQ(second.Factory().Dump(), store.Factory().Dump());
}

TEST(TerminalValues, AnUnfitValueReadsAsItsDefaultAndIsRepaired)
{
    GlobalStore store;
    ReadTerminal(store.Key()).Save(store.Key(), true);
    const std::vector<StoreEntry> whole = store.Factory().Dump();
    for (const StoreEntry& entry : whole) {
        if (entry.name == u"Keymap v2") // an unreadable map isn't pending
            continue;
        for (const StoreValue& unfit : Unfit(entry.value)) {
            SCOPED_TRACE(ToUtf8(entry.name) + " as kind " + std::to_string(unfit.index()));
            store.Put(entry.name, unfit);
            store.TakeWrites();
            TerminalConfig terminal = ReadTerminal(store.Key());
            EXPECT_FALSE(terminal.IsModified());
            terminal.Save(store.Key(), false);
            EXPECT_THAT(store.TakeWrites(), ElementsAre(entry.name));
            EXPECT_EQ(store.Factory().Dump(), whole);
        }
    }
}

} // namespace
} // namespace ostrand::test
