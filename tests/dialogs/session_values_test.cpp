// What the pages of a session do to its values: each control to its own one, and nothing to those that nobody touched.
#include "tests/dialogs/session_dialog_scene.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace ostrand::test {
namespace {

using C = SessionConnectPage;
using A = SessionLogonScriptsPage;
using L = SessionLogFilePage;
using E = SessionEmulationPage;
using M = SessionEmulationModesPage;
using T = SessionTerminalPage;
using X = SessionEmacsPage;
using D = VPropertyTreeDialog;
using testing::AnyOf;
using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;

class SessionValuePages : public SessionDialogScene {
protected:
    static VPropertyTreePage& PageNamed(const SessionOptionsDialog& dialog, std::u16string_view label)
    {
        for (VPropertyTreePage* const page : dialog.GetVisiblePages())
            if (page->GetTreeLabel() == label)
                return *page;
        throw std::logic_error("no such page in sight");
    }
    /// As far as it goes: texts become as long as the control takes them.
    static void Move(VForm& page, VControlId id)
    {
        FormDriver user(page);
        if (const auto* const radio = dynamic_cast<VRadioControl*>(page.Find(id)))
            user.Choose(id, radio->GetIndex() == 0 ? 1 : 0);
        else if (const auto* const list = dynamic_cast<VListControl*>(page.Find(id)))
            user.Choose(id, list->GetSelection() + 1);
        else if (page.Control(id).GetItem().Has(VItemFlag::DigitsOnly))
            user.Type(id, u"123");
        else if (const auto* const edit = dynamic_cast<VEditControl*>(page.Find(id)))
            user.Type(id, std::u16string(edit->GetMaxChars() > 0 ? edit->GetMaxChars() : 100000, u'x'));
        else
            user.Click(id);
    }
    static LogonActionList OneAction()
    {
        LogonActionList actions;
        actions.Append({true, u"assword:", u"secret"});
        return actions;
    }
};

TEST_F(SessionValuePages, EachControlReachesItsOwnValue)
{
    const struct {
        const char16_t* page;
        VControlId control;
        const char16_t* value;
    } kControls[] = {
        {u"Connection", C::Description, u"Description"},
        {u"Logon Actions", A::Automate, u"Use Login Script"},
        {u"Logon Actions", A::SendReturn, u"Send Initial Carriage Return"},
        {u"Logon Actions", A::UseScript, u"Use Script File"},
        {u"Logon Actions", A::ScriptFile, u"Script Filename"},
        {u"Terminal", T::AudioBell, u"Audio Bell"},
        {u"Terminal", T::VisualBell, u"Visual Bell"},
        {u"Terminal", T::CloseOnDisconnect, u"Close On Disconnect"},
        {u"Terminal", T::ClearOnDisconnect, u"Clear On Disconnect"},
        {u"Terminal", T::AutoReconnect, u"Auto Reconnect"},
        {u"Terminal", T::JumpScroll, u"Jump Scroll"},
        {u"Terminal", T::ScrollToClear, u"Scroll To Clear"},
        {u"Terminal", T::ScrollOnOutput, u"Scroll To Bottom On Output"},
        {u"Terminal", T::ScrollOnKeypress, u"Scroll To Bottom On Keypress"},
        {u"Terminal", T::MinimizeToTray, u"Minimize To Tray"},
        {u"Terminal", T::SendString, u"Idle Check"},
        {u"Terminal", T::IdleString, u"Idle String"},
        {u"Terminal", T::StringSeconds, u"Idle Timeout"},
        {u"Terminal", T::SendNoOp, u"Idle NO-OP Check"},
        {u"Terminal", T::NoOpSeconds, u"Idle NO-OP Timeout"},
        {u"Terminal", T::SetDelimiters, u"Use Word Delimiter Chars"},
        {u"Terminal", T::Delimiters, u"Word Delimiter Chars"},
        {u"Emulation", E::Terminal, u"Emulation"},
        {u"Emulation", E::AnsiColor, u"ANSI Color"},
        {u"Emulation", E::UseScheme, u"Color Scheme Overrides Ansi Color"},
        {u"Emulation", E::OtherKeyboard, u"Use Alternate Keyboard"},
        {u"Emulation", E::Keyboard, u"Keymap Name"},
        {u"Emulation", E::Rows, u"Rows"},
        {u"Emulation", E::Columns, u"Cols"},
        {u"Emulation", E::Resize, u"Resize Mode"},
        {u"Emulation", E::Scrollback, u"Scrollback"},
        {u"Modes", M::CursorKeys, u"Cursor Key Mode"},
        {u"Modes", M::LineWrap, u"Line Wrap"},
        {u"Modes", M::NewLine, u"Newline Mode"},
        {u"Modes", M::Keypad, u"Keypad Mode"},
        {u"Modes", M::SwitchesColumns, u"Enable 80-132 Column Switching"},
        {u"Modes", M::SwitchesCursorKeys, u"Enable Cursor Key Mode Switching"},
        {u"Modes", M::SwitchesKeypad, u"Enable Keypad Mode Switching"},
        {u"Modes", M::SwitchesLineWrap, u"Enable Line Wrap Mode Switching"},
        {u"Emacs", X::AltIsMeta, u"Emacs Mode"},
        {u"Emacs", X::KeepAltGr, u"Preserve Alt-Gr"},
        {u"Emacs", X::Sends, u"Emacs Mode 8 Bit"},
        {u"Log File", L::FileName, u"Log Filename"},
        {u"Log File", L::Prompt, u"Log Prompt"},
        {u"Log File", L::StartOnConnect, u"Start Log Upon Connect"},
        {u"Log File", L::Raw, u"Raw Log"},
        {u"Log File", L::NewAtMidnight, u"New Log File At Midnight"},
        {u"Log File", L::Mode, u"Log Mode"},
        {u"Log File", L::OnConnect, u"Custom Log Message Connect"},
        {u"Log File", L::OnDisconnect, u"Custom Log Message Disconnect"},
        {u"Log File", L::OnEachLine, u"Custom Log Message Each Line"},
        {u"Log File", L::OnlyCustom, u"Log Only Custom"},
    };
    const auto session = Session();
    session->useLoginScript = true;
    session->useScriptFile = true;
    session->idleCheck = true;
    session->idleString = u"x";
    session->idleNoOpCheck = true;
    session->useWordDelimiterChars = true;
    session->terminal.emulation = u"ANSI"; // the next one has colours, too
    session->terminal.ansiColor = true;
    session->terminal.useAlternateKeyboard = true;
    session->terminal.keymapName = u"VT100"; // as ANSI's own
    session->terminal.emacsMode = true;
    session->logFilename = u"%D.log";
    session->customLogMessageEachLine = u"%h";
    session->WriteLogonActions(OneAction());
    session->AcceptChanges();

    size_t bindings = 0;
    const auto whole = Dialog(*session);
    for (const VPropertyTreePage* const page : whole->GetVisiblePages())
        bindings += page->GetBindings().size();
    constexpr size_t kElsewhere = 1; // the keymap's file, which must exist
    EXPECT_EQ(std::size(kControls) + kElsewhere, bindings) << "a control is missing here";
    for (const auto& each : kControls) {
        SCOPED_TRACE(ToUtf8(each.value));
        const auto dialog = Dialog(*session);
        dialog->Open();
        VPropertyTreePage& page = PageNamed(*dialog, each.page);
        ASSERT_TRUE(dialog->SelectPage(page));
        Move(page, each.control);
        FormDriver(*dialog).Click(D::Ok);
        EXPECT_EQ(dialog->Close(), kResultOk);
        EXPECT_THAT(Modified(*session), ElementsAre(each.value));
        session->RevertChanges();
    }
}

TEST_F(SessionValuePages, OpeningAndLeavingChangesNothing)
{
    const auto session = Session(u"Telnet", u"FTP");
    for (int i = 0; VProfileData* const member = session->GetMember(i); ++i)
        if (auto* const box = dynamic_cast<VProfile<bool>*>(member))
            *box = !box->value;
        else if (auto* const text = dynamic_cast<VProfileString*>(member))
            *text = u" %D, as it was \u20ac";
    session->terminal.emulation = u"VT220";
    session->terminal.keymapName = u"VT220";
    session->terminal.useAlternateKeyboard = false;
    session->description.SetText(u"one\r\ntwo\r\n");
    session->WriteLogonActions(OneAction());
    session->AcceptChanges();
    const auto dialog = Dialog(*session);
    dialog->Open();
    for (VPropertyTreePage* const page : dialog->GetVisiblePages())
        EXPECT_TRUE(dialog->SelectPage(*page));
    FormDriver(*dialog).Click(D::Ok);
    EXPECT_EQ(dialog->Close(), kResultOk);
    EXPECT_THAT(Modified(*session), IsEmpty());
}

TEST_F(SessionValuePages, DamagedSessionsLoseNothing)
{
    for (const StoreValue& damage :
         {StoreValue(0xFFFFFFFFu), StoreValue(VUnicodeString(std::u16string(100000, u'\u001F'))),
          StoreValue(VUnicodeString(u"  ")), StoreValue(StoreBlock(7, 0xFF)), StoreValue(VStringArray())}) {
        SCOPED_TRACE(damage.index());
        scene.PutSession(u"Lab\\Router");
        for (const VSchemaRow<SessionValues>& row : SessionValues::Schema().Rows())
            if (row.name && std::u16string_view(row.name) != u"Is Session")
                scene.Put(u"Sessions\\Lab\\Router", row.name, damage);
        const auto session = scene.Open(u"Lab\\Router");
        ASSERT_TRUE(session);
        const auto* const text = std::get_if<VUnicodeString>(&damage);
        EXPECT_EQ(session->logFilename.Value().GetLength(), text ? text->GetLength() : 0);
        session->newLogFileAtMidnight = false; // which would hold its page, as the next ones would
        session->idleCheck = false;
        session->terminal.rows = 24;
        session->terminal.cols = 80;
        session->terminal.scrollback = 500;
        session->AcceptChanges();
        SessionOptionsDialogBase::PageStates().RemoveAll();                    // begins on the first page
        SessionOptionsDialog dialog(Global(), *session, {.maxColumns = 1024}); // whose messages nobody sees
        dialog.Open();
        for (VPropertyTreePage* const page : dialog.GetVisiblePages())
            EXPECT_TRUE(dialog.SelectPage(*page));
        FormDriver(dialog).Click(D::Ok);
        dialog.Search(u"log");
        dialog.Close();
        // Rules of the pages: an empty list begins with two actions, blanks are no log data, and a terminal that isn't
        // there becomes the first, with its keyboard.
        EXPECT_THAT(Modified(*session), Each(AnyOf(u"Login Script V2", u"Log Only Custom",
                                                   u"Custom Log Message Connect", u"Custom Log Message Disconnect",
                                                   u"Custom Log Message Each Line", u"Emulation", u"Keymap Name")));
    }
}

} // namespace
} // namespace ostrand::test
