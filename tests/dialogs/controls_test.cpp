// Controls, their events, focus and keys.
#include "tests/dialogs/kit_page.h"
#include "tests/support/hive_folders.h"
#include "tests/support/page_driver.h"
#include "tests/support/recording_painter.h"

#include "dialogs/kit/accessible_name.h"
#include "dialogs/kit/marked_letter.h"

#include <gmock/gmock.h>
#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

namespace ostrand::test {
namespace {

using P = KitPage;
using testing::ElementsAre;

class Kit : public testing::Test {
protected:
    HiveFolders hives;
    KitRecord record{nullptr};
    PageDriver<KitPage> page{record};
    VUnicodeString events;

    void Watch(VControlId id, VEventKind kind, const char16_t* name)
    {
        page->On({id}, kind, [this, name] { events += name; });
    }
    std::u16string TakeEvents() { return std::u16string(std::exchange(events, {}).View()); }
};

TEST_F(Kit, CodeRaisesEventsOfTextsAndReportRowsAlone)
{
    Watch(P::Host, VEventKind::TextChanged, u"text ");
    Watch(P::Rows, VEventKind::SelectionChanged, u"rows ");
    Watch(P::Beep, VEventKind::Clicked, u"box ");
    Watch(P::Transfer, VEventKind::Clicked, u"option ");
    Watch(P::Parity, VEventKind::SelectionChanged, u"entry ");

    page[P::Host].SetText(u"a");
    page[P::Host].SetText(u"a");
    EXPECT_EQ(TakeEvents(), u"text ");
    VReportControl& rows = page.At<VReportControl>(P::Rows);
    rows.Insert(0, {u"ogin:"});
    rows.Insert(1, {u"assword:"});
    rows.Select(0);
    rows.Select(0);
    rows.Remove(1);
    EXPECT_EQ(TakeEvents(), u"rows ");
    rows.Remove(0);
    EXPECT_EQ(TakeEvents(), u"rows ") << "the selection is gone";
    page.At<VCheckControl>(P::Beep).SetChecked(false);
    page.At<VRadioControl>(P::Transfer).SetIndex(2);
    page.At<VListControl>(P::Parity).Select(2);
    EXPECT_EQ(TakeEvents(), u"");

    page.Click(P::Beep).Choose(P::Transfer, 2).Choose(P::Parity, 2).Type(P::Host, u"b");
    EXPECT_EQ(TakeEvents(), u"box option entry text ") << "users are told also where they choose the same again";
}

TEST_F(Kit, AThreeStateBoxGoesOffOnNeither)
{
    VCheckControl& box = page.At<VCheckControl>(P::Scrollbar);
    box.SetState(VTriState::False);
    for (const VTriState next : {VTriState::True, VTriState::Undetermined, VTriState::False}) {
        page.Click(P::Scrollbar);
        EXPECT_EQ(box.GetState(), next);
    }
    page.Click(P::Wrap).Click(P::Wrap);
    EXPECT_FALSE(page.At<VCheckControl>(P::Wrap).IsChecked());
}

TEST_F(Kit, SortedListsKeepEntriesThatStandOutOfOrder)
{
    VListControl& names = page.At<VListControl>(P::Names);
    names.InsertAt(0, u"zeta", 1);
    names.InsertAt(9, u"Alpha", 2);
    names.Select(1);
    names.InsertAt(1, u"eta", 3);
    names.RemoveAt(1);
    for (const char16_t* name : {u"beta", u"alpha", u"gamma", u"Beta"})
        names.Add(name, 3);
    std::vector<std::u16string> texts;
    for (const VListControl::Entry& entry : names.GetEntries())
        texts.emplace_back(entry.text.View());
    EXPECT_THAT(texts, ElementsAre(u"zeta", u"Alpha", u"alpha", u"Beta", u"beta", u"gamma"));
    EXPECT_EQ(names.GetSelectedText(), u"Alpha") << "the selection stays with its entry";
    names.RemoveAt(0);
    EXPECT_EQ(names.GetSelectedData(), 2);
    names.RemoveAt(0);
    EXPECT_EQ(names.GetSelection(), -1);
    EXPECT_EQ(names.Find(u"BETA"), -1);
    EXPECT_EQ(names.FindNoCase(u"BETA"), 1);
    EXPECT_THROW(names.RemoveAt(4), VStringArray::OutOfRange);
    EXPECT_THROW(page.At<VReportControl>(P::Rows).Remove(0), VReportControl::OutOfRange);
    EXPECT_THROW(page->Control(99), VForm::NoSuchControl);
    EXPECT_THROW(page.At<VEditControl>(P::Beep), VForm::NoSuchControl);
}

TEST_F(Kit, ReportRowsCarryTheirDataAlong)
{
    VReportControl& rows = page.At<VReportControl>(P::Rows);
    for (const char16_t* name : {u"c", u"a", u"b"})
        rows.Insert(0, {name}, std::u16string(name));
    page.Rows(P::Rows, {2, 0});
    EXPECT_EQ(rows.CountSelected(), 2);
    rows.Remove(1);
    rows.SetCell(0, 1, u"edited");
    EXPECT_EQ(rows[0].cells[1], u"edited");
    EXPECT_EQ(*rows.DataOf<std::u16string>(0), u"b");
    EXPECT_EQ(*rows.DataOf<std::u16string>(1), u"c");
    EXPECT_EQ(rows.DataOf<int>(0), nullptr);
    EXPECT_EQ(rows.CountSelected(), 2) << "a row that goes takes no other's selection along";
    EXPECT_THROW(rows.SetCell(0, 2, u""), VReportControl::OutOfRange);
    rows.Clear();
    EXPECT_EQ(rows.GetSelected(), -1);
}

TEST_F(Kit, LinesEndAlikeAndSecretsStaySecret)
{
    page.Type(P::Remarks, u"a\nb\r\nc\rd");
    EXPECT_EQ(page[P::Remarks].GetText(), u"a\r\nb\r\nc\r\nd");

    VEditControl& password = page.At<VEditControl>(P::Password);
    page.Type(P::Password, u"sesame");
    EXPECT_TRUE(password.GetText().IsSensitive());
    password.SetMasked(false);
    EXPECT_EQ(password.GetText(), u"sesame");
    EXPECT_TRUE(password.GetText().IsSensitive());
    EXPECT_EQ(password.Dump().Find(u"sesame"), VUnicodeString::npos);
    page.Type(P::Password, u"open").Type(P::Password, u"sesame");
    EXPECT_TRUE(password.GetText().IsSensitive()) << "once a secret, always one";
    ASSERT_TRUE(page.Leave());
    EXPECT_EQ(record.password.Value(), u"sesame");
}

TEST_F(Kit, WhatAUserCannotDoIsRefused)
{
    VUserInput user(*page);
    page->Control(P::Beep).Enable(false);
    page->Control(P::Wrap).Show(false);
    page.At<VRadioControl>(P::Transfer).EnableOption(1, false);
    const struct {
        bool done;
        const char* what;
    } kActs[] = {
        {user.Click(P::Beep), "a disabled box"},
        {user.Click(P::Wrap), "a hidden box"},
        {user.ChooseOption(P::Transfer, 1), "a disabled option"},
        {user.ChooseOption(P::Transfer, 3), "an option that isn't there"},
        {user.ChooseEntry(P::Parity, 3), "an entry that isn't there"},
        {user.SelectRows(P::Rows, {0}), "a row that isn't there"},
        {user.Type(P::Nick, u"x"), "a read-only edit"},
        {user.Type(P::Retries, u"1x"), "letters where digits are wanted"},
        {user.Type(P::Host, u"123456789012345678901"), "too long a text"},
        {user.Type(P::Host, u"a\nb"), "a line end in a line"},
        {user.PressKey({.virtualKey = 0x07}), "a key that no keyboard has"},
    };
    for (const auto& act : kActs)
        EXPECT_FALSE(act.done) << act.what;
    EXPECT_NONFATAL_FAILURE(page.Click(P::Beep), "a user can't click");
    EXPECT_NONFATAL_FAILURE(page.Key(u"VK_NONE"), "there is no key");
    EXPECT_NONFATAL_FAILURE(VMessageBox(*page, u"Boo"), "not expected");
    EXPECT_NONFATAL_FAILURE(
        {
            ScriptedServices unused;
            unused.ExpectMessage();
        },
        "never called");

    page[P::Host].SetText(u"12345678901234567890 and more");
    EXPECT_TRUE(user.Type(P::Host, u"12345678901234567890 and mor")) << "too long already, and getting better";
    ASSERT_EQ(page.RefusalText(), u"Please enter no more than 20 characters.");
    EXPECT_TRUE(user.Type(P::Host, u"short"));
    ASSERT_TRUE(page.Leave());
    EXPECT_FALSE(user.Type(P::Host, u"x")) << "its page isn't in front";
}

TEST_F(Kit, FocusGoesOnWhereItsControlCannotKeepIt)
{
    Watch(P::Host, VEventKind::FocusLost, u"lost ");
    Watch(P::Encoding, VEventKind::FocusGained, u"gained ");
    page.Focus(P::Host);
    page->Control(P::Host).Enable(false);
    EXPECT_EQ(page->GetFocus(), P::Encoding);
    EXPECT_EQ(TakeEvents(), u"lost gained ");
    page->SetFocus(P::Host);
    EXPECT_EQ(page->GetFocus(), P::Encoding);

    page->Control(P::Host).Enable(true);
    page->On({P::Host}, VEventKind::FocusLost, [this] { page->Control(P::AddRow).Enable(false); });
    page.Focus(P::Host);
    EXPECT_FALSE(VUserInput(*page).Click(P::AddRow)) << "the click moved the focus first, and that disabled the button";
}

TEST_F(Kit, KeysReachDialogPageAndPanel)
{
    using D = VPropertyTreeDialog;
    page.Focus(P::Names).Key(u"VK_TAB");
    EXPECT_EQ(page->panel.GetFocus(), KitPanel::Limit) << "a place's form has its turn";
    page.Key(u"VK_TAB").Key(u"VK_TAB");
    EXPECT_EQ(page.dialog.GetFocus(), D::Ok);
    page.Key(u"VK_TAB", true).Key(u"VK_TAB", true).Key(u"VK_TAB", true);
    EXPECT_EQ(page->GetFocus(), P::Names);

    page.AltKey(u"VK_K");
    EXPECT_EQ(page->GetFocus(), P::Packet) << "by its label";
    page.AltKey(u"VK_E");
    EXPECT_FALSE(page.At<VCheckControl>(P::Beep).IsChecked());
    page.AltKey(u"VK_M");
    EXPECT_EQ(page.At<VRadioControl>(P::Transfer).GetIndex(), 2);
    page.AltKey(u"VK_R");
    EXPECT_EQ(page->GetFocus(), P::Retries) << "the first of two with this letter";
    page.AltKey(u"VK_B");
    EXPECT_EQ(page->GetFocus(), P::Beep) << "a group leads to its first control, and presses nothing";
    EXPECT_FALSE(page.At<VCheckControl>(P::Beep).IsChecked());
    page.AltKey(u"VK_L");
    EXPECT_EQ(page->panel.GetFocus(), KitPanel::Limit);

    page.Focus(P::Remarks).Key(u"VK_RETURN");
    EXPECT_TRUE(page.dialog.IsRunning()) << "there, Return makes a line";
    page.services.Expect({.call = Call::Help, .text = {}});
    page.Key(u"VK_F1");
    EXPECT_EQ(page.services.texts.back(), u"Kit");
    page.dialog.DisableOkButton();
    page.Focus(P::Host).Key(u"VK_RETURN");
    EXPECT_TRUE(page.dialog.IsRunning()) << "a disabled default button does nothing";
    page.Key(u"VK_ESCAPE");
    EXPECT_FALSE(page.dialog.IsRunning());
}

TEST_F(Kit, AHandlersExceptionReachesTheCaller)
{
    page->On({P::AddRow}, VEventKind::Clicked, [this] { page.At<VReportControl>(P::Rows).Remove(7); });
    EXPECT_THROW(page.Click(P::AddRow), VReportControl::OutOfRange);
    page.Type(P::Host, u"still alive");
    EXPECT_TRUE(page.Leave());
    EXPECT_EQ(record.hostname.Value(), u"still alive");
}

TEST_F(Kit, EveryControlHasAName)
{
    const std::span<const VTemplateItem> items = page->GetTemplate().Items();
    std::map<VControlId, std::u16string> names;
    for (size_t i = 0; i < items.size(); ++i)
        if (items[i].TakesFocus())
            names[items[i].id] = AccessibleName(*page, i).View();
    EXPECT_EQ(names[P::Remarks], u"Remarks") << "of the group around it";
    EXPECT_EQ(names[P::Packet], u"Packet size");
    EXPECT_EQ(names[P::MoveUp], u"Up");
    page.At<VIconControl>(P::Picture).SetIcon(VIcon::Warning);
    EXPECT_EQ(page.At<VIconControl>(P::Picture).GetIcon(), VIcon::Warning);
    EXPECT_EQ(WithoutMark(page[P::Hint].GetText()), u"R&D says 5 & 6");
    EXPECT_EQ(MarkedLetter(u"R&&D &Go"), u'g');
    EXPECT_EQ(MarkedLetter(u"ends in &"), u'\0');
}

TEST_F(Kit, EveryTextGoesThroughTheHook)
{
    SetTextHook([](std::u16string_view text) {
        return VUnicodeString(text) + std::u16string((text.size() * 2 + 4) / 5, u'~');
    });
    KitRecord own{nullptr};
    const VRecordInfo<KitRecord> info(own, record);
    PageDriver<KitPage> longer(own, std::initializer_list<const IRecordInfo*>{&info});
    const std::span<const VTemplateItem> items = longer->GetTemplate().Items();
    for (size_t i = 0; i < items.size(); ++i)
        if (const VControl* const control = longer->ControlOfItem(i); control && items[i].text && *items[i].text) {
            EXPECT_TRUE(control->GetText().View().ends_with(u"~")) << ToUtf8(control->Dump());
        }
    EXPECT_TRUE(longer[P::Retries].GetLabel().View().ends_with(u"~"));
    EXPECT_TRUE(longer.At<VRadioControl>(P::Transfer).GetOptions()[1].text.View().ends_with(u"~"));
    EXPECT_EQ(longer.At<VListControl>(P::Parity)[1].data, 7);
    EXPECT_TRUE(longer->GetHeading().View().ends_with(u"~"));
    longer.Type(P::Packet, u"x");
    EXPECT_EQ(longer.RefusalText(), u"Please enter a positive integer.~~~~~~~~~~~~~");
    longer.Type(P::Packet, u"1").Type(P::Retries, u"99");
    EXPECT_EQ(longer.RefusalText().find(u"Please enter an integer between 1 and 20.~"), 0u) << "inserts come after it";

    const VListControl& encodings = longer.At<VListControl>(P::Encoding);
    EXPECT_EQ(encodings.GetSelectedText(), u"Default~~~") << "a value finds its entry in any language";
    EXPECT_EQ(longer->encoding.DefaultText(), u"Default~~~");
    longer.Type(P::Retries, u"9").Choose(P::Encoding, 1);
    EXPECT_TRUE(longer.Leave());
    EXPECT_EQ(own.encoding.Value(), u"UTF-8") << "and no translation is stored";
    VListControl& names = longer.At<VListControl>(P::Names);
    VUnicodeString value = u"red";
    names.Select(names.Add(u"rot", 1, value));
    names.Add(u"blau", 2, u"blue");
    VDataExchange dx(*longer, VDataExchange::Peek);
    DDX_CBString(dx, P::Names, value);
    EXPECT_EQ(value, u"red");
    SetTextHook(nullptr);
}

TEST(Painter, TheRecordingOneListsWhatWasDrawn)
{
    RecordingPainter painter;
    IPainter& to = painter;
    to.Edge({0, 0, 20, 10}, VEdge::Raised);
    to.Fill({1, 1, 19, 9}, 0x0000FF);
    to.Text({1, 1, 19, 9}, u"A", 0xFFFFFF);
    to.FocusRectangle({2, 2, 18, 8});
    EXPECT_THAT(painter.acts, ElementsAre(u"edge 0,0-20,10 up", u"fill 1,1-19,9 0000ff", u"text 1,1-19,9 ffffff A",
                                          u"focus 2,2-18,8 "));
}

} // namespace
} // namespace ostrand::test
