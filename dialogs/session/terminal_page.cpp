#include "dialogs/session/terminal_page.h"

#include "config/session/module_guard.h"
#include "core/messages.h"
#include "core/paths/folders.h"
#include "core/product.h"
#include "dialogs/kit/number_text.h"

namespace ostrand {

namespace {

using P = SessionTerminalPage;
using enum P::Id;
using namespace layout;

// clang-format off
constexpr auto kPage = Page(u"Terminal\nTerminal",
    Row(Column(Check(AudioBell, u"&Audio bell", Also{u"sound beep"}),
               Check(VisualBell, u"&Visual bell", Also{u"flash"}),
               Check(CloseOnDisconnect, u"Clo&se on disconnect", Also{u"quit window"}),
               Check(ClearOnDisconnect, u"Clea&r on disconnect", Also{u"erase screen"}),
               TriState(AutoReconnect, u"A&uto reconnect", Also{u"connect again"})),
        Column(Check(JumpScroll, u"&Jump scroll", Also{u"fast"}),
               Check(ScrollToClear, u"Scr&oll to clear screen", Also{u"history"}),
               Check(ScrollOnOutput, u"Scroll &to bottom on output"),
               Check(ScrollOnKeypress, u"Scroll to &bottom on keypress"))),
    TriState(MinimizeToTray, u"Mi&nimize to Sentrel in the system tray", Also{u"icon hide"}),
    Group(u"Anti-idle",
        Row(Check(SendString, u"Sen&d string:", Also{u"keep alive timeout"}),
            Edit(IdleString, Grow, Named{u"Anti-idle string"}, Also{u"keep alive"})),
        Field(u"&every", Edit(StringSeconds, DigitsOnly, Width{8}), Label(StringUnit, u"seconds")),
        Check(SendNoOp, u"Send &protocol NO-OP", Also{u"keep alive timeout"}),
        Field(u"ever&y", Edit(NoOpSeconds, DigitsOnly, Width{8}), Label(NoOpUnit, u"seconds"))),
    Group(u"Selection",
        Row(Check(SetDelimiters, u"Set &word delimiter characters:", Also{u"double click"}),
            Edit(Delimiters, Grow, Named{u"Word delimiter characters"}))));
// clang-format on

constexpr int kFewestSeconds = 10;
constexpr int kMostSeconds = 9999999;

bool SupportsNoOp(const SessionConfig& session)
{
    bool supports = false;
    if (session.HasTerminalProtocol())
        GuardModule(*session.terminalProtocol.GetActiveRow(), u"SupportsNoOp",
                    [&] { supports = session.GetTerminalConnectConfig()->SupportsNoOp(); });
    return supports;
}

} // namespace

SessionTerminalPage::SessionTerminalPage(SessionConfig& session)
    : VPropertyTreePage(kPage),
      m_session(VUnknownPointer<SessionConfig>::Share(&session)),
      m_audioBell(*this, AudioBell, session.terminal.audioBell),
      m_visualBell(*this, VisualBell, session.terminal.visualBell),
      m_closeOnDisconnect(*this, CloseOnDisconnect, session.terminal.closeOnDisconnect),
      m_clearOnDisconnect(*this, ClearOnDisconnect, session.terminal.clearOnDisconnect),
      m_autoReconnect(*this, AutoReconnect, session.autoReconnect),
      m_jumpScroll(*this, JumpScroll, session.terminal.jumpScroll),
      m_scrollToClear(*this, ScrollToClear, session.terminal.scrollToClear),
      m_scrollOnOutput(*this, ScrollOnOutput, session.terminal.scrollToBottomOnOutput),
      m_scrollOnKeypress(*this, ScrollOnKeypress, session.terminal.scrollToBottomOnKeypress),
      m_minimizeToTray(*this, MinimizeToTray, session.minimizeToTray),
      m_sendString(*this, SendString, session.idleCheck),
      m_idleString(*this, IdleString, session.idleString),
      m_stringSeconds(*this, StringSeconds, session.idleTimeout, VWhen::WhileEnabled),
      m_sendNoOp(*this, SendNoOp, session.idleNoOpCheck),
      m_noOpSeconds(*this, NoOpSeconds, session.idleNoOpTimeout, VWhen::WhileEnabled),
      m_setDelimiters(*this, SetDelimiters, session.useWordDelimiterChars),
      m_delimiters(*this, Delimiters, session.wordDelimiterChars)
{
    On({SendString}, VEventKind::Clicked, &P::EnableString);
    On({SendNoOp}, VEventKind::Clicked, &P::EnableNoOp);
    On({SetDelimiters}, VEventKind::Clicked, &P::EnableDelimiters);
}

bool SessionTerminalPage::OnInitDialog()
{
    const bool wantsFocus = VPropertyTreePage::OnInitDialog();
    EnableString();
    EnableDelimiters();
    return wantsFocus;
}

void SessionTerminalPage::DoDataExchange(VDataExchange& dx)
{
    CheckTray(dx);
    if (At<VCheckControl>(SendString).IsChecked()) {
        if (Control(IdleString).GetText().IsEmpty())
            dx.Fail(IdleString, kAntiIdleStringEmpty);
        CheckSeconds(dx, StringSeconds);
    }
    if (At<VCheckControl>(SendNoOp).IsChecked()) // also while the protocol has none
        CheckSeconds(dx, NoOpSeconds);
    VPropertyTreePage::DoDataExchange(dx);
}

void SessionTerminalPage::CheckTray(VDataExchange& dx)
{
    VCheckControl& box = At<VCheckControl>(MinimizeToTray);
    if (!dx.Validating() || box.GetState() != VTriState::True || HasProgramBeside(u"Sentrel"))
        return;
    dx.Fail(MinimizeToTray, kComponentNotInstalled, VGetAppName());
    box.SetState(VTriState::False); // so that the next try passes
}

void SessionTerminalPage::CheckSeconds(VDataExchange& dx, VControlId edit)
{
    const std::optional<int64_t> seconds = ParseWholeNumber(Control(edit).GetText());
    if (seconds && *seconds >= kFewestSeconds && *seconds <= kMostSeconds)
        return;
    dx.Fail(edit, {TranslateFormat(u"Please enter a value between %1 and %2.", NumberText(kFewestSeconds),
                                   NumberText(kMostSeconds)),
                   VIcon::Warning});
}

void SessionTerminalPage::EnableString()
{
    for (const VControlId id : {IdleString, StringSeconds, StringUnit})
        Control(id).Enable(At<VCheckControl>(SendString).IsChecked());
}

void SessionTerminalPage::EnableNoOp()
{
    const bool isOffered = SupportsNoOp(*m_session);
    Control(SendNoOp).Enable(isOffered);
    for (const VControlId id : {NoOpSeconds, NoOpUnit})
        Control(id).Enable(isOffered && At<VCheckControl>(SendNoOp).IsChecked());
}

void SessionTerminalPage::EnableDelimiters()
{
    Control(Delimiters).Enable(At<VCheckControl>(SetDelimiters).IsChecked());
}

} // namespace ostrand
