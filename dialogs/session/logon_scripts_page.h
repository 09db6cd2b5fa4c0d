// The Logon Actions page of a session: what is waited for and sent right after its connection is up.
#pragma once

#include "config/session/session_config.h"
#include "dialogs/kit/property_page.h"
#include "dialogs/session/logon_panel.h"

namespace ostrand {

class OSTRAND_API SessionLogonScriptsPage final : public VPropertyTreePage {
public:
    enum Id : VControlId {
        Automate = 1,
        SendReturn,
        Unread,
        Actions,
        Up,
        Down,
        Add,
        Edit,
        Delete,
        UseScript,
        ScriptFile,
        Browse,
        Panel
    };

    /// The session is shared.
    explicit SessionLogonScriptsPage(SessionConfig& session);

    bool OnInitDialog() override;
    void OnSetActive() override;
    /// The terminal's protocol has changed: brings its panel in the place of the former one's.
    void Refresh() override;
    bool OnKillActive() override;

private:
    void DoDataExchange(VDataExchange& dx) override;
    void DropPanel();
    void FillActions();
    /// From the session; false for a script that can't be read, or not to its end.
    bool ReadActions(LogonActionList& actions) const;
    LogonActionList TakeActions();
    void InsertAction(int row, const LogonAction& action);
    /// From here on the list is what the session is to have.
    void ActionsChanged();
    void EnableActions();
    void EnableScript();
    void MoveAction(int step, VControlId button);
    void OnAdd();
    void OnEdit();
    void OnDelete();
    void OnBrowse();
    VReportControl& List() { return At<VReportControl>(Actions); }

    const VUnknownPointer<SessionConfig> m_session;
    VEdited<bool> m_automate, m_sendReturn, m_useScript;
    VEdited<VUnicodeString> m_scriptFile;
    bool m_areActionsWritten = false; // by the next save; else the session keeps what it has, also what can't be shown
    std::unique_ptr<LogonPanel> m_panel;
    const ConnectProtocolTableElement* m_panelRow = nullptr; // whose the panel is
};

} // namespace ostrand
