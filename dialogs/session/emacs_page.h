// The Emacs page of a session: ALT as the meta key.
#pragma once

#include "config/session/terminal_config.h"
#include "dialogs/kit/property_page.h"

namespace ostrand {

class OSTRAND_API SessionEmacsPage final : public VPropertyTreePage {
public:
    enum Id : VControlId { AltIsMeta = 1, KeepAltGr, Sends };

    /// Borrows the terminal.
    explicit SessionEmacsPage(TerminalConfig& terminal);

    bool OnInitDialog() override;

private:
    void EnableMeta();

    VEdited<bool> m_altIsMeta, m_keepAltGr, m_sends8thBit;
};

} // namespace ostrand
