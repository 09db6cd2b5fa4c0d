// The exchange: classes of values, checks and their order, what is written when.
#include "tests/dialogs/kit_page.h"
#include "tests/support/hive_folders.h"
#include "tests/support/page_driver.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace ostrand::test {
namespace {

using P = KitPage;
using testing::ElementsAre;

class Exchange : public testing::Test {
protected:
    HiveFolders hives;
    KitRecord record{nullptr};
    KitRecord defaults{nullptr};
    VRecordInfo<KitRecord> info{record, defaults};
};

std::vector<std::u16string> Modified(KitRecord& record)
{
    std::vector<std::u16string> names;
    for (int i = 0; VProfileData* const value = record.GetMember(i); ++i)
        if (value->IsModified())
            names.emplace_back(value->name.View());
    if (record.remarks.IsModified())
        names.emplace_back(u"remarks");
    return names;
}

TEST_F(Exchange, APageThatIsOpenedAndLeftChangesNothing)
{
    for (const int strange : {3, -1}) { // truths and indices that no control shows
        record.wrapLines = strange;
        record.transferMode = strange;
        record.parity = strange;
        record.encoding = u"KOI8-R";
        record.showScrollbar = static_cast<VTriState>(strange);
        record.hostname = u"a host name that is longer than users may type";
        record.AcceptChanges();
        PageDriver<KitPage> page(record, std::initializer_list<const IRecordInfo*>{&info});
        EXPECT_EQ(page.At<VRadioControl>(P::Transfer).GetIndex(), -1);
        page.Type(P::Host, u"h");
        page->UndoChange(P::Host);
        EXPECT_EQ(page.RefusalText(), u"Please enter no more than 20 characters.");
        page.Type(P::Host, u"short");
        EXPECT_TRUE(page.Leave());
        EXPECT_THAT(Modified(record), ElementsAre(u"Hostname"));
        record.RevertChanges();
    }
}

TEST_F(Exchange, EachControlReachesItsOwnValue)
{
    PageDriver<KitPage> page(record, std::initializer_list<const IRecordInfo*>{&info});
    const struct {
        std::function<void()> act;
        const char16_t* name;
    } kActs[] = {
        {[&] { page.Click(P::Beep); }, u"Beep On Error"},
        {[&] { page.Click(P::Scrollbar); }, u"Show Scrollbar"},
        {[&] { page.Click(P::Wrap); }, u"Wrap Lines"},
        {[&] { page.Type(P::Retries, u"7"); }, u"Retry Count"},
        {[&] { page.Type(P::Packet, u"1024"); }, u"Packet Size"},
        {[&] { page.Choose(P::Transfer, 1); }, u"Transfer Mode"},
        {[&] { page.Choose(P::Parity, 1); }, u"Parity"},
        {[&] { page.Choose(P::Encoding, 1); }, u"Encoding"},
        {[&] { page.Type(P::Host, u"router"); }, u"Hostname"},
        {[&] { page.Type(P::Password, u"sesame"); }, u"Password"},
        {[&] { page.Type(P::Remarks, u"a\nb"); }, u"remarks"},
    };
    for (const auto& [act, name] : kActs) {
        SCOPED_TRACE(ToUtf8(name));
        act();
        ASSERT_TRUE(page.Leave());
        EXPECT_THAT(Modified(record), ElementsAre(name));
        record.AcceptChanges();
        record.remarks.AcceptChanges();
        ASSERT_TRUE(page.Return());
    }
    EXPECT_EQ(record.parity, 7) << "the entry's number";
    EXPECT_EQ(record.wrapLines, 1);
    EXPECT_EQ(record.encoding.Value(), u"UTF-8");
    EXPECT_THAT(std::vector(record.remarks.begin(), record.remarks.end()), ElementsAre(u"a", u"b"));
}

TEST_F(Exchange, NumbersOfEachClassAndTheirBounds)
{
    constexpr const char16_t* kInteger = u"Please enter an integer.";
    constexpr const char16_t* kPositive = u"Please enter a positive integer.";
    constexpr const char16_t* kBetween = u"Please enter an integer between 1 and 20.";
    const struct {
        VControlId control;
        const char16_t* text;
        const char16_t* refusal; // null: taken
        int value;
    } kCases[] = {
        {P::Packet, u"0", nullptr, 0},
        {P::Packet, u" 5 ", nullptr, 5},
        {P::Packet, u"+5", nullptr, 5},
        {P::Packet, u"", kPositive, 0},
        {P::Packet, u"-1", kPositive, 0},
        {P::Packet, u"5x", kPositive, 0},
        {P::Packet, u"1,000", kPositive, 0},
        {P::Packet, u"4294967296", kPositive, 0},
        {P::Packet, u"99999999999999999999999", kPositive, 0},
        {P::Retries, u"0", kBetween, 0},
        {P::Retries, u"1", nullptr, 1},
        {P::Retries, u"20", nullptr, 20},
        {P::Retries, u"21", kBetween, 0},
        {P::Retries, u"2147483648", kInteger, 0},
        {P::Retries, u"", kInteger, 0},
    };
    for (const auto& each : kCases) {
        SCOPED_TRACE(ToUtf8(each.text));
        KitRecord own{nullptr};
        VRecordInfo<KitRecord> ownInfo(own, defaults);
        PageDriver<KitPage> page(own, std::initializer_list<const IRecordInfo*>{&ownInfo});
        page.Type(each.control, each.text).Click(P::Beep);
        if (!each.refusal) {
            EXPECT_TRUE(page.Leave());
            EXPECT_EQ(each.control == P::Packet ? static_cast<int>(own.packetSize.value) : own.retryCount.value,
                      each.value);
            continue;
        }
        EXPECT_EQ(page.RefusalText(), each.refusal);
        EXPECT_EQ(page.services.messages.back().icon, VIcon::Warning);
        EXPECT_EQ(page->GetFocus(), each.control);
        EXPECT_EQ(page.At<VEditControl>(each.control).GetSelection(),
                  (VEditControl::Range{0, std::u16string_view(each.text).size()}));
        EXPECT_TRUE(Modified(own).empty()) << "nothing is written after a failed check";
        page->UpdateData(VDataExchange::Peek);
        EXPECT_EQ(page->beep.Get(), false) << "a peek asks no questions";
    }
}

TEST_F(Exchange, OneMessageForManyFaultsAndThePanelsCount)
{
    PageDriver<KitPage> page(record, std::initializer_list<const IRecordInfo*>{&info});
    FormDriver panel(page->panel);
    page.Type(P::Retries, u"99").Type(P::Packet, u"x");
    panel.Type(KitPanel::Limit, u"11");
    EXPECT_EQ(page.RefusalText(), u"Please enter an integer between 1 and 20.");
    page.Type(P::Retries, u"9");
    EXPECT_EQ(page.RefusalText(), u"Please enter a positive integer.");
    page[P::Packet].Enable(false);
    EXPECT_EQ(page.RefusalText(), u"Please enter an integer between 1 and 10.") << "a disabled number doesn't count";
    EXPECT_EQ(page->panel.GetFocus(), KitPanel::Limit);
    EXPECT_TRUE(Modified(record).empty());
    page->abandons = true;
    panel.Type(KitPanel::Limit, u"10");
    EXPECT_TRUE(page.Leave()) << "an abandoned save is a success";
    EXPECT_TRUE(Modified(record).empty());
    page->abandons = false;
    page.Return();
    EXPECT_TRUE(page.Leave());
    EXPECT_EQ(record.retryCount, 9);
    EXPECT_EQ(record.packetSize, 512u);
    EXPECT_EQ(page->panel.limit, 10u);
    EXPECT_EQ(page->panel.unit, 1);
    EXPECT_EQ(page->panel.writes, 1) << "of four saves one passed";
    page.Return();
    page->panel.abandons = true;
    page.Type(P::Retries, u"8");
    EXPECT_TRUE(page.Leave());
    EXPECT_EQ(record.retryCount, 8) << "a panel gives up for itself alone";
    EXPECT_EQ(page->panel.writes, 1);
    page.Return();
    panel.Choose(KitPanel::Unit, 0).Type(KitPanel::Limit, u"x");
    page->panel.Control(KitPanel::Limit).Enable(false);
    EXPECT_TRUE(page.Leave());
    EXPECT_EQ(page->panel.limit, 10u);
    EXPECT_EQ(page->panel.unit, 0);
}

TEST_F(Exchange, NoHandlerRunsDuringAnExchange)
{
    record.hostname = u"router";
    record.encoding = u"UTF-8";
    KitPage inner(record);
    // A rule that looks at all controls: run half-way through the first exchange, it would empty copies not yet shown.
    inner.On({P::Host}, VEventKind::TextChanged, [&] { inner.UpdateData(VDataExchange::Peek); });
    inner.UpdateData(VDataExchange::Show);
    EXPECT_EQ(inner.encoding.Get(), u"UTF-8");
    EXPECT_EQ(inner.At<VListControl>(P::Encoding).GetSelectedText(), u"UTF-8");
}

} // namespace
} // namespace ostrand::test
