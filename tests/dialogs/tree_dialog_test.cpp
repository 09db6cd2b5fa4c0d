// Dialogs and page trees: their life, what is created, left, shown and hidden, what they remember.
#include "dialogs/kit/service_prompts.h"
#include "tests/dialogs/kit_page.h"
#include "tests/support/page_driver.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>

namespace ostrand::test {
namespace {

using D = VPropertyTreeDialog;
using testing::ElementsAre;

constexpr auto kSmall = layout::Page(u"Small", layout::Field(u"&Text:", layout::Edit(1, layout::MaxChars{3})));
constexpr auto kOther = layout::Page(u"Other\nThe Other", layout::Check(1, u"&Box"));
constexpr auto kDialog =
    layout::Page(u"Ask", layout::Label(1, u""), layout::Check(2, u"&Never again"),
                 layout::Row(layout::EndButton(3, u"&Yes", 1, layout::Default), layout::EndButton(4, u"&No", 2),
                             layout::EndButton(5, u"N&ever", kResultAbort)));

/// Writes down what is done with it.
class Page : public VPropertyTreePage {
public:
    Page(const VTemplate& shown, const char16_t* name, std::u16string& log)
        : VPropertyTreePage(shown),
          m_name(name),
          m_log(log)
    {
    }
    bool OnInitDialog() override { return Note(u"init"), ThrowIfAsked(), VPropertyTreePage::OnInitDialog(); }
    void OnOK() override { Note(u"ok"); }
    void OnCancel() override { Note(u"cancel"), ThrowIfAsked(); }
    void OnSetActive() override { Note(u"active"); }
    bool OnKillActive() override { return Note(u"kill"), mayLeave; }
    void OnShow(bool isShown) override { Note(isShown ? u"show" : u"hide"); }
    void PreModal(VPropertyTreeDialog*) override { Note(u"pre"); }
    VUnicodeString GetStateMapName() override { return VUnicodeString(m_name); }

    void Forward(VControlId id, VEventKind event, std::function<void()> handler) { On({id}, event, handler); }

    bool mayLeave = true;
    bool throws = false;

private:
    void ThrowIfAsked() const
    {
        if (throws)
            throw std::runtime_error("a page of a module");
    }
    void Note(const char16_t* what) { m_log += std::u16string(what) + u":" + m_name + u" "; }

    const std::u16string m_name;
    std::u16string& m_log;
};

class Tree : public testing::Test {
protected:
    std::u16string Take() { return std::exchange(log, {}); }
    std::unique_ptr<TestTreeDialog> MakeDialog()
    {
        auto made = std::make_unique<TestTreeDialog>(u"Options", VTreeStyle::WithApply, &states, services);
        made->AddPages({{&absent, nullptr, false}, {&a}, {&b, &a}, {&belowAbsent, &absent}, {&c}});
        return made;
    }

    std::u16string log;
    ScriptedServices services;
    VPropertyPageStateMap states;
    Page a{kSmall, u"a", log}, b{kSmall, u"b", log}, c{kOther, u"c", log}; // b below a
    Page absent{kSmall, u"absent", log}, belowAbsent{kSmall, u"below", log};
};

TEST_F(Tree, OnlyPagesThatWereSeenTakePart)
{
    const auto dialog = MakeDialog();
    Take();
    services.ExpectDialog([&](VDialog& shown) {
        EXPECT_EQ(Take(), u"pre:a pre:b pre:c init:a active:a ");
        EXPECT_EQ(dialog->opened, 1);
        EXPECT_EQ(shown.GetFocus(), D::PageTree);
        VUserInput user(shown);
        EXPECT_TRUE(user.ChoosePage(c));
        EXPECT_EQ(&a.Services(), &services) << "a page that was left belongs to the dialog all the same";
        EXPECT_TRUE(user.ChoosePage(c));
        EXPECT_TRUE(user.ChoosePage(a));
        EXPECT_EQ(Take(), u"kill:a init:c active:c kill:c active:a ");
        EXPECT_EQ(shown.Control(D::Heading).GetText(), u"Small");
        a.mayLeave = false;
        EXPECT_FALSE(user.ChoosePage(b));
        FormDriver(shown).Click(D::Ok);
        dialog->SetModified(true);
        FormDriver(shown).Click(D::Apply);
        EXPECT_EQ(Take(), u"kill:a kill:a kill:a ") << "a page that may not be left keeps the dialog, too";
        a.mayLeave = true;
        FormDriver(shown).Click(D::Apply);
        EXPECT_EQ(Take(), u"kill:a ok:a ok:c ");
        EXPECT_FALSE(shown.Control(D::Apply).IsEnabled());
        FormDriver(shown).Key(u"VK_RETURN");
    });
    EXPECT_EQ(dialog->DoModal(), kResultOk);
    EXPECT_EQ(Take(), u"kill:a ok:a ok:c ");

    services.ExpectDialog([](VDialog& shown) { FormDriver(shown).Key(u"VK_ESCAPE"); });
    EXPECT_EQ(dialog->DoModal(), kResultCancel);
    EXPECT_EQ(Take(), u"pre:a pre:b pre:c init:a active:a cancel:a ");
}

TEST_F(Tree, HidingPassesTheSelectionUpUnlessItIsHeld)
{
    const auto dialog = MakeDialog();
    dialog->Open();
    dialog->SelectPage(b);
    FormDriver(b).Type(1, u"abc");
    Take();
    dialog->HidePage(&b);
    dialog->HidePage(&b);
    EXPECT_EQ(Take(), u"hide:b active:a ");
    EXPECT_EQ(dialog->GetFocus(), D::PageTree) << "the control that had the focus is gone";
    dialog->HidePage(&a);
    EXPECT_EQ(Take(), u"hide:a init:c active:c ");
    EXPECT_FALSE(dialog->SelectPage(a));
    dialog->ShowPage(&a);
    dialog->ShowPage(&b);
    EXPECT_THAT(dialog->GetVisiblePages(), ElementsAre(&a, &b, &c)) << "each in its place";
    EXPECT_EQ(b.GetPath(), u"Small > Small");

    dialog->SelectPage(b);
    Take();
    dialog->SetClearSelected(true);
    dialog->HidePage(&a);
    dialog->ShowPage(&a);
    dialog->SetClearSelected(false);
    EXPECT_EQ(Take(), u"hide:a hide:b show:a show:b ") << "hidden and shown again, it stays active";
    dialog->SetClearSelected(true);
    dialog->RemovePage(&b);
    EXPECT_EQ(dialog->GetActivePage(), nullptr);
    dialog->SetClearSelected(false);
    EXPECT_EQ(dialog->GetActivePage(), &a);
    a.AddPage(&b);
    EXPECT_TRUE(dialog->SelectPage(b));
    dialog->Expand(a, false);
    EXPECT_EQ(dialog->GetActivePage(), &a) << "a page can't be active within a closed branch";
    dialog->HidePage(&a);
    dialog->HidePage(&c);
    EXPECT_EQ(dialog->GetActivePage(), nullptr);
    dialog->ShowPage(&c);
    EXPECT_EQ(dialog->GetActivePage(), &c);
    dialog->Close();
}

TEST_F(Tree, APageMayDieBeforeItsDialogAndAfterIt)
{
    auto dialog = MakeDialog();
    auto d = std::make_unique<Page>(kSmall, u"d", log);
    auto e = std::make_unique<Page>(kSmall, u"e", log);
    d->AddPage(e.get());
    b.AddPage(d.get());
    dialog->Open();
    dialog->SelectPage(*d);
    EXPECT_TRUE(d->SetFocus(1));
    EXPECT_FALSE(b.SetFocus(1)) << "its page isn't in front";
    d->Forward(1, VEventKind::FocusLost, [last = d.get()] { last->mayLeave = false; });
    FormDriver(*dialog).Type(D::SearchText, u"text");
    d->SetFocus(1);
    d.reset();
    EXPECT_EQ(dialog->GetTreeRows().size(), 4u) << "a and b, with a hit each";
    EXPECT_EQ(dialog->GetActivePage(), &b);
    EXPECT_EQ(e->GetParentDialog(), nullptr);
    e.reset();
    dialog->SelectPage(c);
    dialog->Close();
    dialog.reset();
    EXPECT_EQ(c.GetParentDialog(), nullptr);
    c.UpdateData(VDataExchange::Save);
}

TEST_F(Tree, StatesOutliveTheDialog)
{
    auto dialog = MakeDialog();
    dialog->Open();
    dialog->SelectPage(c);
    dialog->Expand(a, false);
    dialog->Close();
    const VPropertyPageStateMap copy = states;
    states.RemoveAll();
    states = copy;
    dialog = MakeDialog();
    dialog->Open();
    EXPECT_EQ(dialog->GetActivePage(), &c);
    EXPECT_FALSE(a.IsExpanded());
    dialog->Close();
    dialog->HidePage(&c);
    dialog->Open();
    EXPECT_EQ(dialog->GetActivePage(), &a) << "the remembered page isn't there";
    dialog->Close();
    dialog->ShowPage(&c);
    states.Select(u"c");
    dialog->SetNewSession(true);
    dialog->Open();
    EXPECT_EQ(dialog->GetActivePage(), &a);
    EXPECT_EQ(a.GetFocus(), 1);
    dialog->Close();
}

TEST_F(Tree, APageThatThrowsHoldsNothingUp)
{
    const auto dialog = MakeDialog();
    dialog->Open();
    c.throws = true;
    EXPECT_THROW(dialog->SelectPage(c), std::runtime_error);
    EXPECT_EQ(dialog->GetActivePage(), &c);
    Take();
    EXPECT_TRUE(dialog->SelectPage(a));
    EXPECT_EQ(Take(), u"active:a ") << "what was never shown isn't saved";
    c.throws = false;
    EXPECT_TRUE(dialog->SelectPage(c));
    EXPECT_EQ(Take(), u"kill:a init:c active:c ") << "and gets another chance";
    c.throws = true;
    EXPECT_THROW(VUserInput(*dialog).Click(D::Cancel), std::runtime_error);
    EXPECT_FALSE(dialog->IsRunning());
    EXPECT_EQ(dialog->Close(), kResultCancel);
}

TEST_F(Tree, StatesOutliveTheProgramAsTexts)
{
    states.SetBranches(u"0010100");
    states.Select(u"Session+");
    auto dialog = MakeDialog();
    dialog->Open();
    EXPECT_FALSE(a.IsExpanded());
    EXPECT_FALSE(b.IsExpanded());
    EXPECT_TRUE(c.IsExpanded());
    EXPECT_EQ(dialog->GetActivePage(), &a) << "a name that no page has selects none";
    dialog->SelectPage(c);
    dialog->Expand(a, true);
    dialog->HidePage(&c);
    dialog->ShowPage(&c); // at its place, though it isn't active any more
    dialog->Close();
    EXPECT_EQ(states.GetBranches(), u"1010100") << "digits of pages that this tree lacks stay";
    EXPECT_EQ(states.GetSelected(), u"a");

    const VPropertyPageStateMap copy(states);
    EXPECT_EQ(copy.GetBranches(), u"1010100");
    EXPECT_EQ(copy.GetSelected(), u"a");

    VPropertyPageStateMap next;
    next.SetBranches(u"01");
    next.Select(u"c");
    std::swap(states, next);
    dialog = MakeDialog();
    dialog->Open();
    EXPECT_FALSE(a.IsExpanded());
    EXPECT_TRUE(b.IsExpanded());
    EXPECT_EQ(dialog->GetActivePage(), &c);
    dialog->Close();
    EXPECT_EQ(states.GetBranches(), u"011");
}

TEST(Dialog, PostedTasksButtonsAndCodes)
{
    ScriptedServices services;
    struct Ask : VDialog {
        using VDialog::VDialog;
        bool OnInitDialog() override
        {
            PostToSelf([this] { order += u"posted "; });
            ResizeElements(1, u"A long text that needs its room");
            ResizeElements({3, 4}, {u"&Yes", u"Not for a long time", u"&No"});
            order += u"init ";
            SetDefaultButton(4);
            return VDialog::OnInitDialog();
        }
        void OnDestroy() override { order += u"destroyed "; }
        std::u16string order;
    } ask(kDialog, services);

    const struct {
        std::function<void(FormDriver&)> act;
        int code;
    } kEnds[] = {
        {[](FormDriver& user) { user.Click(3); }, kResultOk},
        {[](FormDriver& user) { user.Focus(2).Key(u"VK_RETURN"); }, kResultCancel},
        {[](FormDriver& user) { user.Focus(3).Key(u"VK_RETURN"); }, kResultOk},
        {[](FormDriver& user) { user.AltKey(u"VK_E"); }, kResultAbort},
        {[](FormDriver& user) { user.Key(u"VK_ESCAPE"); }, kResultCancel},
    };
    for (const auto& [act, code] : kEnds) {
        ask.order.clear();
        services.ExpectDialog([&](VDialog& dialog) {
            EXPECT_EQ(ask.order, u"init posted ");
            EXPECT_EQ(dialog.GetFocus(), 2);
            FormDriver user(dialog);
            act(user);
            dialog.PostToSelf([&] { ask.order += u"too late "; });
        });
        EXPECT_EQ(ask.DoModal(), code);
        EXPECT_EQ(ask.order, u"init posted destroyed ");
    }
    EXPECT_TRUE(ask.Control(1).GrowsWithText());
    EXPECT_EQ(ask.Control(4).GetWidestText(), u"Not for a long time");

    services.ExpectDialog([](VDialog& outer) {
        struct : VDialog {
            using VDialog::VDialog;
            bool OnInitDialog() override { return EndDialog(kResultNo), true; }
        } inner(kDialog, outer);
        EXPECT_EQ(inner.DoModal(), kResultNo) << "one that ends at once isn't shown";
        outer.EndDialog(kResultYes);
        outer.EndDialog(kResultNo);
    });
    EXPECT_EQ(ask.DoModal(), kResultYes);
    services.ExpectDialog([](VDialog&) { throw VReportControl::OutOfRange(); });
    EXPECT_THROW(ask.DoModal(), VReportControl::OutOfRange);
    EXPECT_FALSE(ask.IsRunning());
}

TEST(Dialog, WithoutADesktopNothingChanges)
{
    VDialog ask(kDialog);
    EXPECT_EQ(ask.DoModal(), kResultCancel);
    EXPECT_EQ(VMessageBox(ask, u"?", VIcon::Question, VButtons::YesNo), kResultNo);
    VUnicodeString path = u"/home";
    EXPECT_FALSE(ask.Services().PickFolder(nullptr, u"", path));
    EXPECT_EQ(path, u"/home");
}

TEST(Dialog, PromptsOfTheLibraryGoThroughTheServices)
{
    struct Prompts : VServicePrompts {
        using VServicePrompts::VServicePrompts;
        VDownloadAnswer OfferDownload(const VDownloadOffer&) override { return VDownloadAnswer::Continue; }
        bool AskFirewallCredential(VFirewallCredential, VUnicodeString&, bool&, IParentable*) override { return false; }
    };
    ScriptedServices services;
    Prompts prompts(services);
    services.ExpectMessage(kResultNo);
    EXPECT_FALSE(prompts.AskYesNo(u"Create it?", VPromptIcon::Question));
    EXPECT_EQ(services.messages.back().icon, VIcon::Question);
    EXPECT_EQ(services.messages.back().buttons, VButtons::YesNo);
    SetPrompts(&prompts);
    {
        const VWaitCursor outer;
        {
            const VWaitCursor inner;
        }
        EXPECT_TRUE(services.waiting);
    }
    EXPECT_FALSE(services.waiting);
    SetPrompts(nullptr);
}

/// Notes what it is told, as a toolkit's view would draw it.
class NotingView : public IFormView {
public:
    void ControlChanged(VControl& control, VChange change) override
    {
        constexpr const char* kNames[] = {"text",  "label",     "enabled", "visible", "state", "options",
                                          "items", "selection", "mask",    "content", "marks", "size"};
        told += std::to_string(control.GetId()) + ":" + kNames[static_cast<size_t>(change)] + " ";
    }
    void FocusChanged(VControl* control) override { told += control ? "in " : "out "; }
    void* Window() override { return this; }
    void TitleChanged() override { told += "title "; }
    void Ended() override { told += "ended "; }
    void TreeChanged() override { told += "tree "; }
    void ActivePageChanged() override { told += "page "; }

    std::string told;
};

TEST_F(Tree, AViewIsToldOfEachChangeAndOfNothingElse)
{
    NotingView view;
    NotingView pageView;
    const auto dialog = MakeDialog();
    dialog->Open();
    dialog->SetView(&view);
    a.SetView(&pageView);
    VEditControl& edit = a.At<VEditControl>(1);
    FormDriver user(a);
    user.Type(1, u"abc").Type(1, u"abc");
    edit.Enable(true);
    edit.SelectAll();
    edit.SetLabel(u"&Words:");
    dialog->SetTitle(u"New");
    edit.Enable(false);
    EXPECT_EQ(pageView.told, "in 1:text 1:selection 1:label 1:enabled out ");
    EXPECT_EQ(view.told, "out title in ") << "the focus went on to the dialog's own controls";
    view.told.clear();
    dialog->SelectPage(c);
    dialog->HidePage(&a);
    dialog->EndDialog(7);
    EXPECT_EQ(view.told, "5:content 4:text page tree ended ");
    EXPECT_EQ(c.Window(), &view) << "boxes of a page without a window of its own stand above the dialog";
    dialog->SetView(nullptr);
    a.SetView(nullptr);
    EXPECT_EQ(dialog->Close(), 7);
}

} // namespace
} // namespace ostrand::test
