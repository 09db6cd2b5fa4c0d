// What a connection lacks for its firewall: a user name, or a password.
#pragma once

#include "core/prompts.h"
#include "dialogs/kit/dialog.h"

namespace ostrand {

class OSTRAND_API FirewallCredentialDialog final : public VDialog {
public:
    enum Id : VControlId { Text = 1, IsSaved, Ok, Cancel };

    /// Borrows text and box, and changes them by OK alone.
    FirewallCredentialDialog(VFirewallCredential what, VUnicodeString& text, bool& isSaved, IDialogServices& services,
                             void* parentWindow);

private:
    void DoDataExchange(VDataExchange& dx) override;

    VUnicodeString& m_text;
    bool& m_isSaved;
};

} // namespace ostrand
