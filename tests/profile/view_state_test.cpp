#include "profile/view_state.h"
#include "tests/profile/value_store.h"

#include <gtest/gtest.h>

#include <string>

namespace ostrand {
namespace {

constexpr const char16_t* kName = u"Local ListView State";
using Columns = std::vector<VListViewFields::ColumnInfo>;

Columns ColumnsOf(const VListViewFields& fields) { return {fields.columns.begin(), fields.columns.end()}; }

TEST(ListViewState, Texts)
{
    const Columns none;
    struct {
        const char16_t* text;
        const char16_t* formatted; // the defaults for all texts that don't fit
        Columns columns;
    } const cases[] = {
        {u"1,1,1,0,2,100,200", u"1,1,1,0,2,100,1,0,200,1,1", {{100, true, 0}, {200, true, 1}}},
        {u"0,2,3,-4,2,100,1,0,200,0,1", u"0,2,3,-4,2,100,1,0,200,0,1", {{100, true, 0}, {200, false, 1}}},
        {u" 7,\t-2, 4294967295,+4,1,-80,5,9", u"1,-2,4294967295,4,1,-80,1,9", {{-80, true, 9}}},
        {u"1,1,-1,0,1,80 ,1,0", u"1,1,4294967295,0,1,80,1,0", {{80, true, 0}}},          // a blank ends the columns
        {u"1,1,1,0,2,100,", u"1,1,1,0,2,100,1,0,0,1,1", {{100, true, 0}, {0, true, 1}}}, // an empty token is one
        {u"1,1,1,0,1,8x0", u"1,1,1,0,1,8,1,0", {{8, true, 0}}},
        {u"4294967296,1,1,0,1,80", u"0,1,1,0,1,80,1,0", {{80, true, 0}}}, // wraps to 32 bits
        {u"0,5,2,1,0", u"1,1,1,0,0", none},
        {u"0,5,2,1,0,", u"1,1,1,0,0", none},
        {u"0,5,2,1,0,80", u"1,1,1,0,0", none},
        {u"1,1,1,0,2,100,200,300", u"1,1,1,0,0", none},
        {u"0,5,9", u"1,1,1,0,0", none},
        {u"0 ,5,9,1,1,80", u"1,1,1,0,0", none},
        {u"", u"1,1,1,0,0", none},
        {u"0,5,2,1,-1,80", u"1,1,1,0,0", none},
        {u"0,5,2,1,2147483648,80", u"1,1,1,0,0", none},
        {u"0,5,2,1,1431655766,80,81", u"1,1,1,0,0", none}, // three times this wraps to 2
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(ToUtf8(c.text));
        VProfileListViewState state;
        state.second = 77;
        state.Load(nullptr, c.text);
        EXPECT_EQ(state.Value(), c.text) << "loading doesn't format";
        EXPECT_EQ(ColumnsOf(state), c.columns);
        state.FormatText();
        EXPECT_EQ(ToUtf8(state.Value()), ToUtf8(c.formatted));
    }
}

TEST(ListViewState, AFieldIsSeenOnceItIsFormattedAndWrittenBySave)
{
    ValueStore store;
    store.Key().WriteString(kName, u"1,1,1,0,1,80,1,0");
    VProfileListViewState state;
    state.Load(&store.Key(), kName, u"");
    state.columns[0].width = 90;
    EXPECT_FALSE(state.IsModified());
    store.TakeWrites();
    state.Save(nullptr, true);
    EXPECT_FALSE(state.IsModified()) << "without a key nothing happens, so nothing is formatted";
    state.Save(&store.Key(), false);
    EXPECT_EQ(store.TakeWrites().size(), 1u);
    VUnicodeString text;
    ASSERT_TRUE(store.Key().ReadString(kName, text));
    EXPECT_EQ(text, u"1,1,1,0,1,90,1,0");
    state.Save(&store.Key(), false);
    EXPECT_TRUE(store.TakeWrites().empty());
}

TEST(ListViewState, AMergeDoublesTheColumnsAndTheFirstCount)
{
    ValueStore store;
    VProfileListViewState state;
    state.SetName(kName);
    state.Load(&store.Key(), u"1,2,3,4,2,100,1,0,200,0,1");
    store.Key().WriteString(kName, u"1,2,3,4,1,300,1,0");
    state.Merge(&store.Key());
    EXPECT_EQ(ColumnsOf(state), (Columns{{300, true, 0}, {100, true, 0}, {200, false, 1}}));
    EXPECT_EQ(state.columnCount, 1);
    state.FormatText();
    EXPECT_EQ(state.Value(), u"1,2,3,4,1,300,1,0");

    store.Key().DeleteValue(kName);
    state.Merge(&store.Key());
    EXPECT_EQ(state.columns.GetCount(), 3u) << "nothing was found";
    store.Key().WriteString(kName, u"1,2,3,4,5");
    state.Merge(&store.Key());
    EXPECT_TRUE(state.columns.IsEmpty()) << "a text that doesn't fit clears them";
}

TEST(ListViewState, ThousandsOfColumnsKeepTheirOrder)
{
    constexpr int kCount = 20'000;
    VUnicodeString text = u"1,1,1,0,20000";
    for (int i = 0; i < kCount; ++i)
        text += Format(u",%1!d!", i);
    VListViewFields fields;
    fields.ParseText(text);
    fields.ParseText(text);
    ASSERT_EQ(fields.columns.GetCount(), 2u * kCount);
    for (const int i : {0, 1, kCount - 1, kCount, 2 * kCount - 1})
        EXPECT_EQ(fields.columns[static_cast<size_t>(i)].width, i % kCount);
    VProfileListViewState state;
    state.Load(nullptr, text);
    state.FormatText();
    VProfileListViewState back;
    back.Load(nullptr, state.Value());
    EXPECT_EQ(ColumnsOf(back), ColumnsOf(state));
}

TEST(ListViewState, FewerColumnsThanCountedIsAFaultOfTheCaller)
{
    VProfileListViewState state;
    state.Load(nullptr, u"1,1,1,0,1,80");
    state.columnCount = INT32_MAX;
    EXPECT_THROW(state.FormatText(), VArray<VListViewFields::ColumnInfo>::OutOfRange);
    EXPECT_EQ(state.Value(), u"1,1,1,0,1,80");
}

TEST(ListViewState, ACopyCarriesTheFields)
{
    VProfileListViewState source;
    VProfileListViewState target;
    source.Load(nullptr, u"0,5,2,1,1,80,0,0");
    target.CopyValue(source);
    target.FormatText();
    EXPECT_EQ(target.Value(), source.Value());
    EXPECT_EQ(ColumnsOf(target), ColumnsOf(source));
}

TEST(ExplorerFrameState, FieldsThatATextLacksStay)
{
    struct {
        const char16_t* text;
        const char16_t* formatted;
    } const cases[] = {
        {u"0,1000,-5", u"0,1000,-5"},
        {u"5,1,2,3", u"1,1,2"},
        {u"0", u"0,-1,200"},
        {u"0,9", u"0,9,200"},
        {u"0,9,x", u"0,9,200"},
        {u"0, 9 ,7", u"0,9,200"},
        {u"", u"1,-1,200"},
        {u"x,1,2", u"1,-1,200"},
        {u"4294967295,-4294967295,2147483648", u"1,1,-2147483648"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(ToUtf8(c.text));
        ValueStore store;
        VProfileExplorerFrameState state;
        state.SetName(u"Local ExplorerFrame State");
        state.Load(&store.Key(), u"1,-1,200");
        store.Key().WriteString(u"Local ExplorerFrame State", c.text);
        state.Merge(&store.Key());
        EXPECT_FALSE(state.IsModified());
        state.FormatText();
        EXPECT_EQ(ToUtf8(state.Value()), ToUtf8(c.formatted));
    }
}

} // namespace
} // namespace ostrand
