// The Modes page of a session: the modes in which its terminal begins, those of one that runs, and which the host may
// switch.
#pragma once

#include "config/session/terminal_config.h"
#include "dialogs/kit/property_page.h"

namespace ostrand {

class OSTRAND_API SessionEmulationModesPage final : public VPropertyTreePage {
public:
    enum Id : VControlId {
        CursorKeys = 1,
        LineWrap,
        NewLine,
        Keypad,
        CurrentModes,
        CurrentCursorKeys,
        CurrentLineWrap,
        CurrentNewLine,
        CurrentKeypad,
        SwitchesColumns,
        SwitchesCursorKeys,
        SwitchesKeypad,
        SwitchesLineWrap
    };

    /// Borrows the terminal. Current modes are shown and kept in any case, and may be changed with `editCurrentModes`.
    SessionEmulationModesPage(TerminalConfig& terminal, bool editCurrentModes);

    bool OnInitDialog() override;

private:
    void DoDataExchange(VDataExchange& dx) override;

    TerminalConfig& m_terminal;
    const bool m_editCurrentModes;
    VEdited<bool> m_cursorKeys, m_lineWrap, m_newLine;
    VEdited<int> m_keypad;
    VEdited<bool> m_switchesColumns, m_switchesCursorKeys, m_switchesKeypad, m_switchesLineWrap;

    // Of a running terminal; no values, so nothing to compare with or to look up.
    bool m_currentCursorKeys, m_currentLineWrap, m_currentNewLine;
    int m_currentKeypad;
};

} // namespace ostrand
