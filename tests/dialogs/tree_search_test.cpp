// The search within a page tree: what the tree shows, what the keys do, what is marked, and what it makes of changes.
#include "tests/support/page_driver.h"

#include <gtest/gtest.h>

namespace ostrand::test {
namespace {

using D = VPropertyTreeDialog;
using namespace layout;

constexpr auto kTerminal = layout::Page(u"Terminal", Check(1, u"&Beep"));
constexpr auto kSize =
    layout::Page(u"Size\nWindow Size", Group(u"Cells", Field(u"&Rows:", Edit(1)), Field(u"&Columns:", Edit(2))));
constexpr auto kModes = layout::Page(u"Modes", Check(1, u"Wrap &long rows"), Check(2, u"&Insert"), Place(3));
constexpr auto kFiles = layout::Page(u"Rows", Check(1, u"&Keep"));
constexpr auto kPanel = layout::Page(u"Panel", Check(1, u"Rows of the &panel"), Check(2, u"Beep", Disabled));

struct Panel : VForm {
    Panel() : VForm(kPanel) {}
};

class TreeSearch : public testing::Test {
protected:
    TreeSearch()
    {
        dialog.AddPages({{&terminal}, {&size, &terminal}, {&modes, &terminal}, {&files}});
        dialog.Open();
    }
    ~TreeSearch() override { dialog.Close(); }

    /// One row each, deeper ones behind dots; "(on the way)", "[setting]", "!" at the best, "*" at the selected one.
    std::string Shown() const
    {
        std::string shown;
        const std::vector<VTreeRow> rows = dialog.GetTreeRows();
        for (size_t i = 0; i < rows.size(); ++i) {
            const VTreeRow& row = rows[i];
            shown += i == 0 ? "" : " ";
            for (int above = row.parent; above >= 0; above = rows[static_cast<size_t>(above)].parent)
                shown += ".";
            const std::string text = ToUtf8(row.text);
            shown += row.kind == VTreeRow::Kind::Setting  ? "[" + text + "]"
                     : row.kind == VTreeRow::Kind::Branch ? "(" + text + ")"
                                                          : text;
            shown += row.hit == 0 ? "!" : "";
            shown += static_cast<int>(i) == dialog.GetSelectedRow() ? "*" : "";
            shown += row.isExpanded || row.kind == VTreeRow::Kind::Setting ? "" : "-";
        }
        return shown;
    }
    std::string Count()
    {
        return dialog.Control(D::HitCount).IsVisible() ? ToUtf8(dialog.Control(D::HitCount).GetText()) : "";
    }
    VFocusTarget Focus() { return dialog.GetFocusTarget(); }

    ScriptedServices services;
    VPropertyTreePage terminal{kTerminal}, size{kSize}, modes{kModes}, files{kFiles};
    TestTreeDialog dialog{u"Options", VTreeStyle::Plain, nullptr, services};
    FormDriver user{dialog};
};

TEST_F(TreeSearch, TheTreeKeepsWhatWasFoundAndTheWayThere)
{
    dialog.Expand(terminal, false);
    const std::string before = "Terminal*- .Size .Modes Rows";
    EXPECT_EQ(Shown(), before);
    const struct {
        const char16_t* words;
        const char* shown;
        const char* count;
    } kCases[] = {
        {u"columns", "(Terminal)* .Size ..[Columns]!", "1 hit"},
        {u"rows", "(Terminal)* .Size ..[Rows]! .Modes ..[Wrap long rows] Rows", "3 hits"},
        {u"terminal beep", "Terminal* .[Beep]!", "1 hit"},
        {u"terminal", "Terminal!*", "1 hit"},
        {u"no such thing", "", "No setting found"},
        {u"  ", "Terminal*- .Size .Modes Rows", ""},
    };
    for (const auto& [words, shown, count] : kCases) {
        user.Type(D::SearchText, words);
        EXPECT_EQ(Shown(), shown) << ToUtf8(words);
        EXPECT_EQ(Count(), count) << ToUtf8(words);
        EXPECT_EQ(dialog.GetFocus(), D::SearchText);
        EXPECT_EQ(dialog.GetActivePage(), &terminal) << "typing leaves no page";
    }
    user.Type(D::SearchText, u"insert");
    dialog.Expand(terminal, false);
    EXPECT_EQ(Shown(), "(Terminal)* .Modes ..[Insert]!") << "all is expanded, and stays so";
    user.Key(u"VK_ESCAPE");
    EXPECT_EQ(Shown(), before);
    EXPECT_TRUE(dialog.IsRunning());
}

TEST_F(TreeSearch, KeysLeadToHits)
{
    VUserInput acts(dialog);
    dialog.Expand(terminal, false);
    user.Type(D::SearchText, u"rows").Key(u"VK_DOWN");
    EXPECT_EQ(Shown(), "(Terminal) .Size ..[Rows]!* .Modes ..[Wrap long rows] Rows");
    EXPECT_EQ(dialog.GetActivePage(), &size);
    EXPECT_EQ(dialog.GetFocus(), D::PageTree);
    EXPECT_TRUE(acts.ChooseTreeRow(4));
    EXPECT_EQ(dialog.GetActivePage(), &modes);
    user.Key(u"VK_RETURN");
    EXPECT_EQ(Focus(), (VFocusTarget{&modes, 1}));
    EXPECT_TRUE(acts.ChooseTreeRow(1));
    user.Key(u"VK_RETURN");
    EXPECT_EQ(Focus(), (VFocusTarget{&size, 1})) << "a page's row leads to its first control";
    EXPECT_TRUE(acts.OpenTreeRow(5));
    EXPECT_EQ(Focus(), (VFocusTarget{&files, 1}));
    EXPECT_FALSE(acts.ChooseTreeRow(6));
    EXPECT_FALSE(acts.ChooseTreeRow(-1));
    user.Type(D::SearchText, u"column").Key(u"VK_RETURN");
    EXPECT_EQ(Focus(), (VFocusTarget{&size, 2}));
    dialog.StartSearch();
    EXPECT_EQ(dialog.At<VEditControl>(D::SearchText).GetSelection(), (VEditControl::Range{0, 6}));
    user.Key(u"VK_ESCAPE");
    EXPECT_EQ(Shown(), "Terminal .Size* .Modes Rows") << "the page that was chosen is in sight";
    user.Type(D::SearchText, u"qqq").Key(u"VK_DOWN").Key(u"VK_RETURN");
    EXPECT_EQ(dialog.GetFocus(), D::SearchText);
    user.Key(u"VK_ESCAPE").Key(u"VK_ESCAPE");
    EXPECT_FALSE(dialog.IsRunning());
}

TEST_F(TreeSearch, MarksWhatItFinds)
{
    user.Type(D::SearchText, u"rows");
    EXPECT_TRUE(size.Control(1).IsFound());
    EXPECT_FALSE(size.Control(2).IsFound());
    EXPECT_TRUE(modes.Control(1).IsFound());
    user.Type(D::SearchText, u"columns");
    EXPECT_FALSE(size.Control(1).IsFound());
    EXPECT_TRUE(size.Control(2).IsFound());
    dialog.RemovePage(&size);
    EXPECT_FALSE(size.Control(2).IsFound());
    EXPECT_EQ(Shown(), "");
    user.Key(u"VK_ESCAPE");
    EXPECT_FALSE(modes.Control(1).IsFound());
}

TEST_F(TreeSearch, FollowsWhatChanges)
{
    auto panel = std::make_unique<Panel>();
    const auto shown = [this] {
        dialog.RunPosted();
        return Shown();
    };
    user.Type(D::SearchText, u"panel");
    EXPECT_EQ(Shown(), "");
    modes.Put(3, panel.get());
    EXPECT_EQ(shown(), "(Terminal)* .Modes ..[Rows of the panel]!");
    EXPECT_TRUE(panel->Control(1).IsFound());
    user.Key(u"VK_RETURN");
    EXPECT_EQ(Focus(), (VFocusTarget{panel.get(), 1}));
    user.Type(D::SearchText, u"beep").Focus(D::PageTree);
    EXPECT_TRUE(VUserInput(dialog).OpenTreeRow(3));
    EXPECT_EQ(dialog.GetActivePage(), &modes) << "a control that is disabled can be looked at";
    user.Type(D::SearchText, u"panel").Key(u"VK_DOWN");
    EXPECT_EQ(shown(), "(Terminal) .Modes ..[Rows of the panel]!*");
    panel->Control(1).SetText(u"&Lines of the panel");
    EXPECT_EQ(shown(), "(Terminal) .Modes ..[Lines of the panel]!*") << "renamed, and still selected";
    panel->Control(1).Show(false);
    EXPECT_EQ(shown(), "");
    panel->Control(1).Show(true);
    EXPECT_NE(shown(), "");
    panel.reset();
    EXPECT_TRUE(VUserInput(dialog).OpenTreeRow(2)) << "the panel has gone, the list doesn't know yet";
    EXPECT_EQ(shown(), "");

    user.Type(D::SearchText, u"insert");
    dialog.HidePage(&modes);
    EXPECT_EQ(Shown(), "");
    dialog.ShowPage(&modes);
    EXPECT_EQ(Shown(), "(Terminal)* .Modes ..[Insert]!") << "the page that was hidden is no longer active";
}

TEST_F(TreeSearch, AnotherLanguageIsSearchedAtOnce)
{
    static constexpr auto kSpoken = layout::Page(u"Spoken", Check(1, u"&Box", Also{u"crate"}));
    VPropertyTreePage spoken(kSpoken);
    dialog.AddPage(&spoken);
    EXPECT_EQ(dialog.Search(u"crate").size(), 1u);
    SetTextHook([](std::u16string_view text) { return VUnicodeString(text == u"crate" ? u"kiste" : text); });
    EXPECT_EQ(dialog.Search(u"crate").size(), 0u);
    EXPECT_EQ(dialog.Search(u"kiste").size(), 1u);
    SetTextHook(nullptr);
}

} // namespace
} // namespace ostrand::test
