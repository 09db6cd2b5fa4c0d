// The Emulation page of a session: which terminal, with which keyboard, how large, and what it keeps.
#pragma once

#include "config/session/session_config.h"
#include "dialogs/kit/property_page.h"

namespace ostrand {

class OSTRAND_API SessionEmulationPage final : public VPropertyTreePage {
public:
    enum Id : VControlId {
        Terminal = 1,
        AnsiColor,
        UseScheme,
        OtherKeyboard,
        Keyboard,
        KeymapFile,
        Browse,
        Rows,
        Columns,
        Resize,
        Scrollback
    };

    /// The session is shared. Columns and lines of scrollback have these bounds.
    SessionEmulationPage(SessionConfig& session, int maxColumns, int maxScrollback);

    bool OnInitDialog() override;

private:
    void DoDataExchange(VDataExchange& dx) override;
    void CheckKeymapFile(VDataExchange& dx);
    /// The size as it was read goes along while the present one is still that.
    void WriteSizeAsRead();
    /// The keyboard that goes with the terminal, or the one that was picked; and what may be edited.
    void ShowKeyboard();
    void EnableScheme();
    void OnTerminal();
    void OnKeyboard();
    void OnBrowse();

    const VUnknownPointer<SessionConfig> m_session;
    const int m_maxColumns;
    const int m_maxScrollback;
    VUnicodeString m_pickedKeyboard;
    VEdited<VUnicodeString> m_emulation;
    VEdited<bool> m_ansiColor, m_useScheme, m_otherKeyboard;
    VEdited<VUnicodeString> m_keyboard, m_keymapFile;
    VEdited<int> m_rows, m_columns, m_resize, m_scrollback;
};

} // namespace ostrand
