#include "dialogs/session/emulation_modes_page.h"

namespace ostrand {

namespace {

using enum SessionEmulationModesPage::Id;
using namespace layout;

// clang-format off
constexpr auto kPage = Page(u"Modes\nEmulation Modes",
    Group(u"&Initial modes",
        Check(CursorKeys, u"&Cursor key mode", Also{u"application arrow"}),
        Check(LineWrap, u"&Line wrap", Also{u"autowrap"}),
        Check(NewLine, u"&New line mode", Also{u"lnm"}),
        Radio(Keypad, Option(u"N&umeric keypad"), Option(u"&Application keypad"))),
    Group(CurrentModes, u"Cu&rrent modes",
        Check(CurrentCursorKeys, u"Cur&sor key mode"),
        Check(CurrentLineWrap, u"Lin&e wrap"),
        Check(CurrentNewLine, u"Ne&w line mode"),
        Radio(CurrentKeypad, Option(u"Nu&meric keypad"), Option(u"A&pplication keypad"))),
    Group(u"M&ode switching",
        Check(SwitchesColumns, u"Ena&ble 80/132 column switching", Also{u"width"}),
        Check(SwitchesCursorKeys, u"Enable cursor &key mode switching", Also{u"arrow"}),
        Check(SwitchesKeypad, u"Enable ke&ypad mode switching"),
        Check(SwitchesLineWrap, u"Enable line wrap mo&de switching")));
// clang-format on

} // namespace

SessionEmulationModesPage::SessionEmulationModesPage(TerminalConfig& terminal, bool editCurrentModes)
    : VPropertyTreePage(kPage),
      m_terminal(terminal),
      m_editCurrentModes(editCurrentModes),
      m_cursorKeys(*this, CursorKeys, terminal.cursorKeyMode),
      m_lineWrap(*this, LineWrap, terminal.lineWrap),
      m_newLine(*this, NewLine, terminal.newlineMode),
      m_keypad(*this, Keypad, terminal.keypadMode),
      m_switchesColumns(*this, SwitchesColumns, terminal.enable80132ColumnSwitching),
      m_switchesCursorKeys(*this, SwitchesCursorKeys, terminal.enableCursorKeyModeSwitching),
      m_switchesKeypad(*this, SwitchesKeypad, terminal.enableKeypadModeSwitching),
      m_switchesLineWrap(*this, SwitchesLineWrap, terminal.enableLineWrapModeSwitching),
      m_currentCursorKeys(terminal.currentCursorKeyMode),
      m_currentLineWrap(terminal.currentLineWrap),
      m_currentNewLine(terminal.currentNewlineMode),
      m_currentKeypad(terminal.currentKeypadMode)
{
}

bool SessionEmulationModesPage::OnInitDialog()
{
    for (const VControlId id : {CurrentModes, CurrentCursorKeys, CurrentLineWrap, CurrentNewLine, CurrentKeypad})
        Control(id).Enable(m_editCurrentModes);
    return VPropertyTreePage::OnInitDialog();
}

void SessionEmulationModesPage::DoDataExchange(VDataExchange& dx)
{
    VPropertyTreePage::DoDataExchange(dx);
    DDX_Check(dx, CurrentCursorKeys, m_currentCursorKeys);
    DDX_Check(dx, CurrentLineWrap, m_currentLineWrap);
    DDX_Check(dx, CurrentNewLine, m_currentNewLine);
    DDX_Radio(dx, CurrentKeypad, m_currentKeypad);
    dx.ThenWrite([this] {
        m_terminal.currentCursorKeyMode = m_currentCursorKeys;
        m_terminal.currentLineWrap = m_currentLineWrap;
        m_terminal.currentNewlineMode = m_currentNewLine;
        m_terminal.currentKeypadMode = m_currentKeypad;
    });
}

} // namespace ostrand
