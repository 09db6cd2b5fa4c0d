// Editing single values: what is written, what a rule changes along, and what a merge would do.
#include "config/global/global_edit.h"
#include "platform/error_codes.h"
#include "tests/config/global_scene.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace ostrand::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::vector<std::u16string> NamesOf(const std::vector<const GlobalRow*>& rows)
{
    std::vector<std::u16string> names;
    for (const GlobalRow* row : rows)
        names.emplace_back(row->name);
    return names;
}

const GlobalRow& RowOf(std::u16string_view name) { return *FindGlobalRow(name, false); }

/// Names of the values written since the last call, without the making of the key.
std::vector<std::u16string> WrittenValues(GlobalStore& store)
{
    std::vector<std::u16string> names = store.TakeWrites();
    std::erase(names, u"");
    return names;
}

/// Settles the edit of a value that was just set, and saves it where the rules let it stand.
GlobalEdit EditAndSave(GlobalConfig& config, std::u16string_view name, GlobalStore& store)
{
    const GlobalEdit edit = SettleEdit(config, RowOf(name));
    VReportMessageParams report;
    if (!edit.refusedBy) {
        EXPECT_TRUE(SaveGlobalValues(config, edit.rows, *store.Key(), report));
    }
    return edit;
}

TEST(GlobalEdit, FindsEveryValueOfTheApplicationInAnyCase)
{
    EXPECT_EQ(GlobalRows().size(), 214u);
    EXPECT_EQ(FindGlobalRow(u"printer cts flow", false), &RowOf(u"Printer CTS Flow")) << "a part's value is one, too";
    EXPECT_EQ(FindGlobalRow(u"mru count", false), &RowOf(u"MRU Count"));
    EXPECT_EQ(FindGlobalRow(u"show toolbar ovn", true), &RowOf(u"Show Toolbar"));
    EXPECT_EQ(FindGlobalRow(u"Show Toolbar OVN", false), nullptr);
    EXPECT_EQ(FindGlobalRow(u"Chat Window", false), nullptr) << "an old name is no name";
    ASSERT_NE(FindGlobalRow(u"Line Send Delay", false), nullptr) << "a value outside the table is one, too";
    EXPECT_EQ(FindGlobalRow(u"", false), nullptr) << "nor is a rule";
}

TEST(GlobalEdit, WritesTheEditedValueAloneThoughOthersArePending)
{
    GlobalStore store{{u"Retry Delay", 30u}, {u"Max Columns", 5000u}};
    const ConfigPointer config = Read(store.Key());
    config->mruCount = 7;
    EXPECT_EQ(EditAndSave(*config, u"MRU Count", store).refusedBy, nullptr);
    EXPECT_THAT(WrittenValues(store), ElementsAre(u"MRU Count"))
        << "Max Columns was corrected before, not by this edit";
    EXPECT_FALSE(config->mruCount.IsModified() || config->mruCount.IsDirty());
}

TEST(GlobalEdit, WritesWhatARuleChangedAlong)
{
    GlobalStore store{{u"Use Printer Port", 2u}};
    const ConfigPointer config = Read(store.Key());
    config->useRawMode = 1;
    EXPECT_THAT(NamesOf(EditAndSave(*config, u"Use Raw Mode", store).rows),
                ElementsAre(u"Use Raw Mode", u"Use Printer Port"));
    EXPECT_THAT(WrittenValues(store), ElementsAre(u"Use Raw Mode", u"Use Printer Port"));
    EXPECT_EQ(store.Get(u"Use Printer Port"), StoreValue(0u));
}

TEST(GlobalEdit, ARuleThatTakesTheValueBackRefusesIt)
{
    for (const unsigned stored : {0u, 1u, 2u}) {
        SCOPED_TRACE(stored);
        GlobalStore store{{u"Use Raw Mode", 1u}, {u"Use Printer Port", stored}};
        const ConfigPointer config = Read(store.Key());
        config->usePrinterPort = 1;
        const GlobalEdit edit = EditAndSave(*config, u"Use Printer Port", store);
        ASSERT_NE(edit.refusedBy, nullptr);
        EXPECT_TRUE(edit.refusedBy->IsRule());
        EXPECT_THAT(WrittenValues(store), IsEmpty());
    }
}

TEST(GlobalEdit, WritesAValueThatTheRecordNeverSaves)
{
    GlobalStore store;
    const ConfigPointer config = Read(store.Key());
    config->lineSendDelay = 20;
    EditAndSave(*config, u"Line Send Delay", store);
    EXPECT_EQ(store.Get(u"Line Send Delay"), StoreValue(20u));
}

TEST(GlobalEdit, ABlockWithoutBytesLeavesTheStore)
{
    GlobalStore store{{u"OVN Custom Toolbar Data", StoreBlock{1, 2}}};
    const ConfigPointer config = Read(store.Key());
    const ConfigPointer defaults = GlobalDefaults(false, true);
    config->ovnCustomToolbarData.CopyValue(defaults->ovnCustomToolbarData);
    EditAndSave(*config, u"OVN Custom Toolbar Data", store);
    EXPECT_EQ(store.Get(u"OVN Custom Toolbar Data"), std::nullopt);
}

TEST(GlobalEdit, TellsAStoreThatRefuses)
{
    GlobalStore store;
    const ConfigPointer config = Read(store.Key());
    const std::vector<const GlobalRow*> rows = {&RowOf(u"MRU Count")};
    VReportMessageParams report;
    store.Factory().FailFlush(kErrorDiskFull);
    EXPECT_FALSE(SaveGlobalValues(*config, rows, *store.Key(), report));
    EXPECT_EQ(report.GetCode(), kErrorDiskFull);
    store.Factory().SetReadOnly(true);
    EXPECT_FALSE(SaveGlobalValues(*config, rows, *store.Key(), report));
    EXPECT_EQ(report.GetCode(), kErrorAccessDenied);
}

TEST(GlobalEdit, DefaultsOfAUsedStoreKnowThatItWasUsed)
{
    EXPECT_FALSE(GlobalDefaults(false, false)->rightClickPopupShown);
    EXPECT_TRUE(GlobalDefaults(false, true)->rightClickPopupShown);
    EXPECT_EQ(GlobalDefaults(true, true)->showToolbar.name, u"Show Toolbar OVN");
}

TEST(GlobalEdit, AValueOfAnotherFormIsNone)
{
    GlobalStore store{{u"MRU Count", VUnicodeString(u"4")}, {u"Max Columns", 200u},
                      {u"Page Margins", StoreBlock(33)},    {u"Custom Colors", StoreBlock(8)},
                      {u"Log File", VStringArray()},        {u"Printer Font", StoreBlock(64)},
                      {u"OVN Custom Toolbar Data", 1u}};
    const auto has = [&](std::u16string_view name) { return HasGlobalValue(RowOf(name), *store.Key(), false); };
    EXPECT_FALSE(has(u"MRU Count"));
    EXPECT_TRUE(has(u"Max Columns"));
    EXPECT_FALSE(has(u"Page Margins")) << "longer than the record";
    EXPECT_TRUE(has(u"Custom Colors")) << "a shorter one fills the front";
    EXPECT_FALSE(has(u"Log File"));
    EXPECT_TRUE(has(u"Printer Font v2")) << "by its old name";
    EXPECT_FALSE(has(u"OVN Custom Toolbar Data"));
    EXPECT_FALSE(has(u"Retry Delay"));
}

TEST(GlobalMerge, ShowsWhatChangesAndWhatIsPassedOver)
{
    GlobalStore policy{{u"MRU Count", 99u},
                       {u"Retry Delay", 10u},
                       {u"Alpha Transparency", 1u},
                       {u"Log File", 3u},
                       {u"Chat Window", 1u},
                       {u"Somebody Else", 1u},
                       {u"Use Raw Mode", 1u},
                       {u"Printer Font", StoreBlock(64)},
                       {u"OVN Custom Toolbar Data", StoreBlock{7}}};
    GlobalStore store{{u"Use Printer Port", 1u}};
    const ConfigPointer config = Read(store.Key());
    const GlobalMergePreview preview = PreviewGlobalMerge(*config, *policy.Key());

    EXPECT_THAT(NamesOf(preview.changed), ElementsAre(u"Use Raw Mode", u"Use Printer Port", u"MRU Count",
                                                      u"Printer Font v2", u"OVN Custom Toolbar Data"));
    std::vector<std::u16string> ignored(preview.ignored.begin(), preview.ignored.end());
    EXPECT_THAT(ignored, ElementsAre(u"Alpha Transparency", u"Log File", u"Chat Window", u"Somebody Else"));
    EXPECT_EQ(preview.merged->mruCount, 9) << "the bound holds in a merge, too";
    EXPECT_EQ(config->mruCount, 4) << "the record itself stays";
    EXPECT_THAT(WrittenValues(store), IsEmpty());

    VReportMessageParams report;
    ASSERT_TRUE(SaveGlobalValues(*preview.merged, preview.changed, *store.Key(), report));
    EXPECT_EQ(store.Get(u"MRU Count"), StoreValue(9u));
    EXPECT_EQ(store.Get(u"Use Printer Port"), StoreValue(0u));
    EXPECT_EQ(WrittenValues(store).size(), preview.changed.size());
}

TEST(GlobalMerge, TheSameValuesChangeNothing)
{
    GlobalStore store;
    const ConfigPointer config = Read(store.Key());
    config->Save(store.Key(), true);
    const GlobalMergePreview preview = PreviewGlobalMerge(*Read(store.Key()), *store.Key());
    EXPECT_THAT(NamesOf(preview.changed), IsEmpty());
}

} // namespace
} // namespace ostrand::test
