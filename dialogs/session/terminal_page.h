// The Terminal page of a session: its bells and scrolling, what keeps an idle connection alive, what ends a word.
#pragma once

#include "config/session/session_config.h"
#include "dialogs/kit/property_page.h"

namespace ostrand {

class OSTRAND_API SessionTerminalPage final : public VPropertyTreePage {
public:
    enum Id : VControlId {
        AudioBell = 1,
        VisualBell,
        CloseOnDisconnect,
        ClearOnDisconnect,
        AutoReconnect,
        JumpScroll,
        ScrollToClear,
        ScrollOnOutput,
        ScrollOnKeypress,
        MinimizeToTray,
        SendString,
        IdleString,
        StringSeconds,
        StringUnit,
        SendNoOp,
        NoOpSeconds,
        NoOpUnit,
        SetDelimiters,
        Delimiters
    };

    /// The session is shared.
    explicit SessionTerminalPage(SessionConfig& session);

    bool OnInitDialog() override;
    void OnSetActive() override { EnableNoOp(); }
    /// The session has another protocol.
    void Refresh() override { EnableNoOp(); }

private:
    void DoDataExchange(VDataExchange& dx) override;
    void CheckTray(VDataExchange& dx);
    void CheckSeconds(VDataExchange& dx, VControlId edit);
    void EnableString();
    void EnableNoOp();
    void EnableDelimiters();

    const VUnknownPointer<SessionConfig> m_session;
    VEdited<bool> m_audioBell, m_visualBell, m_closeOnDisconnect, m_clearOnDisconnect;
    VEdited<VTriState> m_autoReconnect;
    VEdited<bool> m_jumpScroll, m_scrollToClear, m_scrollOnOutput, m_scrollOnKeypress;
    VEdited<VTriState> m_minimizeToTray;
    VEdited<bool> m_sendString;
    VEdited<VUnicodeString> m_idleString;
    VEdited<int> m_stringSeconds;
    VEdited<bool> m_sendNoOp;
    VEdited<int> m_noOpSeconds;
    VEdited<bool> m_setDelimiters;
    VEdited<VUnicodeString> m_delimiters;
};

} // namespace ostrand
