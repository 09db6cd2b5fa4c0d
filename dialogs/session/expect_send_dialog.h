// One logon action: what is waited for, what is sent, and whether that is a secret.
#pragma once

#include "config/session/logon_actions.h"
#include "dialogs/kit/dialog.h"

namespace ostrand {

class OSTRAND_API ExpectSendPropertiesDialog final : public VDialog {
public:
    enum Id : VControlId { Expect = 1, Send, Hide, Ok, Cancel };

    /// Borrows the action, and changes it by OK alone.
    ExpectSendPropertiesDialog(VForm& owner, LogonAction& action);

private:
    void DoDataExchange(VDataExchange& dx) override;
    void OnHide();

    LogonAction& m_action;
    LogonAction m_edited;
};

} // namespace ostrand
