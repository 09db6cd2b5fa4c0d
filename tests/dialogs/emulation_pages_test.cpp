// The Emulation page and those below it.
#include "config/session/emulations.h"
#include "core/messages.h"
#include "dialogs/session/emacs_page.h"
#include "dialogs/session/emulation_modes_page.h"
#include "dialogs/session/emulation_page.h"
#include "tests/config/session_scene.h"
#include "tests/support/page_driver.h"
#include "tests/support/temp_folder.h"

#include <gtest/gtest.h>

namespace ostrand::test {
namespace {

using P = SessionEmulationPage;
using M = SessionEmulationModesPage;
using X = SessionEmacsPage;

class EmulationPages : public testing::Test {
protected:
    EmulationPages()
    {
        GlobalConfig* global = nullptr;
        GetGlobalConfig(global, -1); // fills the tables
        scene.PutSession(u"Lab\\Router1");
        session = scene.Open(u"Lab\\Router1");
        session->AcceptChanges();
    }
    TerminalConfig& Terminal() { return session->terminal; }
    static void ChooseTerminal(PageDriver<P>& page, std::u16string_view name)
    {
        page.Choose(P::Terminal, page.At<VListControl>(P::Terminal).Find(name));
    }

    SessionScene scene;
    TempFolder folder;
    VUnknownPointer<SessionConfig> session;
};

TEST_F(EmulationPages, ATerminalBringsItsColorAndKeyboard)
{
    PageDriver<P> page(*session, 132, 1000);
    const auto keyboard = [&] { return page.At<VListControl>(P::Keyboard).GetSelectedText(); };
    const struct {
        const char16_t* name;
        bool hasColor;
    } kTerminals[] = {{u"SCOANSI", true}, {u"Linux", true}, {u"VT220", false}, {u"ANSI", true}, {u"VT100", false}};
    for (const auto& each : kTerminals) {
        ChooseTerminal(page, each.name);
        EXPECT_EQ(page.At<VCheckControl>(P::AnsiColor).IsChecked(), each.hasColor) << ToUtf8(each.name);
        EXPECT_EQ(page[P::UseScheme].IsEnabled(), each.hasColor);
    }
    EXPECT_EQ(keyboard(), u"Default") << "that of VT100";
    EXPECT_FALSE(page[P::Keyboard].IsEnabled());

    page.Click(P::OtherKeyboard);
    page.Choose(P::Keyboard, page.At<VListControl>(P::Keyboard).Find(u"Linux"));
    ChooseTerminal(page, u"VT220");
    EXPECT_EQ(keyboard(), u"Linux") << "what was picked stays";
    EXPECT_FALSE(page[P::KeymapFile].IsEnabled());
    page.Click(P::OtherKeyboard);
    EXPECT_EQ(keyboard(), u"VT220");
    ASSERT_TRUE(page.Leave());
    EXPECT_EQ(Terminal().emulation.Value(), u"VT220");
    EXPECT_EQ(Terminal().keymapName.Value(), u"VT220") << "the terminal's own, though another one was picked";
    EXPECT_FALSE(Terminal().ansiColor);
}

TEST_F(EmulationPages, AnUnknownTerminalBecomesTheFirst)
{
    Terminal().emulation = u"Teletype";
    Terminal().useAlternateKeyboard = true;
    Terminal().keymapName = u"Nobody's";
    PageDriver<P> page(*session, 132, 1000);
    EXPECT_TRUE(page.Leave());
    EXPECT_EQ(Terminal().emulation, Emulations()[0].name);
    EXPECT_EQ(Terminal().keymapName, KeymapNames()[static_cast<size_t>(Emulations()[0].keymap)]);
}

TEST_F(EmulationPages, ChecksInTheirOrder)
{
    PageDriver<P> page(*session, 132, 1000);
    page.Click(P::OtherKeyboard).Choose(P::Keyboard, 0); // "Custom"
    page.Type(P::Scrollback, u"1001").Type(P::Rows, u"4").Type(P::Columns, u"133");
    EXPECT_EQ(page.RefusalText(), u"Please enter an integer between 0 and 1000.");
    page.Type(P::Scrollback, u"1000");
    for (const char16_t* const rows : {u"4", u"201"}) {
        page.Type(P::Rows, rows);
        EXPECT_EQ(page.RefusalText(), u"Please enter an integer between 5 and 200.");
    }
    page.Type(P::Rows, u"200");
    for (const char16_t* const columns : {u"19", u"133"}) {
        page.Type(P::Columns, columns);
        EXPECT_EQ(page.RefusedLeave(), kColumnsOutOfRange);
        EXPECT_EQ(page.services.messages.back().text.Find(u"Please enter an integer between 20 and 132."), 0u);
    }
    page.Type(P::Columns, u"132");
    EXPECT_EQ(page.RefusedLeave(), kKeymapFileNameEmpty);
    page.Type(P::KeymapFile, VUnicodeString(folder.WidePath()) + u"/%S.key");
    EXPECT_EQ(page.RefusedLeave(), kKeymapFileNotFound);
    EXPECT_EQ(page->GetFocus(), P::KeymapFile);
    EXPECT_EQ(Terminal().rows.value, 24) << "nothing is written before all checks have passed";
    folder.Write("Router1.key", "");
    EXPECT_TRUE(page.Leave());
    EXPECT_EQ(Terminal().keymapFilename.Value(), VUnicodeString(folder.WidePath()) + u"/%S.key");
    EXPECT_EQ(Terminal().keymapName.Value(), u"Custom");
    EXPECT_EQ(Terminal().rows.value, 200);
    EXPECT_EQ(Terminal().rowsAsRead, 200) << "the size as read goes along";

    Terminal().colsAsRead = 80;
    page.Return();
    page.Type(P::Rows, u"50");
    EXPECT_TRUE(page.Leave());
    EXPECT_EQ(Terminal().rowsAsRead, 200) << "unless it was another one";
}

TEST_F(EmulationPages, CurrentModesAreKept)
{
    TerminalConfig& terminal = Terminal();
    for (const bool mayEdit : {false, true}) {
        terminal.currentLineWrap = true;
        terminal.currentKeypadMode = 1;
        PageDriver<M> page(terminal, mayEdit);
        for (const VControlId id :
             {M::CurrentModes, M::CurrentCursorKeys, M::CurrentLineWrap, M::CurrentNewLine, M::CurrentKeypad})
            EXPECT_EQ(page[id].IsEnabled(), mayEdit) << id;
        page.Click(M::NewLine);
        if (mayEdit)
            page.Click(M::CurrentCursorKeys).Choose(M::CurrentKeypad, 0);
        EXPECT_TRUE(page.Leave());
        EXPECT_TRUE(terminal.currentLineWrap);
        EXPECT_EQ(terminal.currentCursorKeyMode, mayEdit);
        EXPECT_EQ(terminal.currentKeypadMode, mayEdit ? 0 : 1);
    }
}

TEST_F(EmulationPages, MetaSendsOneOfTwo)
{
    Terminal().preserveAltGr = true;
    PageDriver<X> page(Terminal());
    EXPECT_FALSE(page[X::KeepAltGr].IsEnabled());
    EXPECT_EQ(page.At<VRadioControl>(X::Sends).GetIndex(), 1) << "the escape";
    page.Click(X::AltIsMeta).Choose(X::Sends, 0);
    EXPECT_TRUE(page.At<VCheckControl>(X::KeepAltGr).IsChecked());
    ASSERT_TRUE(page.Leave());
    EXPECT_TRUE(Terminal().emacsMode8Bit);
    page.Return();
    page.Click(X::AltIsMeta).Click(X::AltIsMeta);
    EXPECT_FALSE(page.At<VCheckControl>(X::KeepAltGr).IsChecked()) << "cleared for good";
}

} // namespace
} // namespace ostrand::test
