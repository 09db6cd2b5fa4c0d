// What both forms of the Connection page share: what the session is called, which protocols it uses, what is said of
// it.
#pragma once

#include "config/session/session_config.h"
#include "dialogs/kit/property_page.h"
#include "dialogs/session/protocol_box.h"
#include "dialogs/session/session_options_setup.h"

namespace ostrand {

class SessionOptionsDialogBase;

/// Choosing a protocol changes the session at once, since the protocol's pages are built from it. All else is written
/// when the page is left, and only then checked.
class OSTRAND_API SessionConnectPage : public VPropertyTreePage {
public:
    enum Id : VControlId { Name = 1, Protocol, FileTransfer, Description };

    bool OnInitDialog() override;
    void OnSetActive() override;
    bool OnKillActive() override;
    /// Leads to the name, and selects it.
    void OnReceivedFocus() override;

protected:
    /// The session is shared.
    SessionConnectPage(const VTemplate& shown, SessionConfig& session, const SessionOptionsSetup& setup);

    SessionConfig& Session() const { return *m_session; }
    bool IsReadOnly() const { return m_isReadOnly; }
    using SetProtocol = void (SessionConfig::*)(const VUnicodeString&);
    /// Gives the session the protocol that the user chose, and shows the pages that go with it. `otherRow` is that of
    /// the other list's protocol, -1 without one; `showSide` shows or hides what only a real protocol has. False for a
    /// choice that changes nothing, or that can't be made.
    bool TakeChoice(ProtocolBox& box, int otherRow, SetProtocol set, void (SessionOptionsDialogBase::*showSide)(bool));
    /// Refuses a protocol that isn't there, and lets a save write the chosen one.
    void ExchangeProtocol(VDataExchange& dx, const ProtocolBox& box, bool isChecked, SetProtocol set);

private:
    void DoDataExchange(VDataExchange& dx) override;
    virtual void FillProtocols() = 0;
    virtual void EnableProtocols() = 0;
    virtual void ExchangeProtocols(VDataExchange& dx, bool isChecked) = 0;

    const VUnknownPointer<SessionConfig> m_session;
    const bool m_isNewSession;
    const bool m_isReadOnly;
    const bool m_isNameFixed;
    bool m_validateOnExchange = false;
    VUnicodeString m_name;
    VEdited<VUnicodeString> m_description;
};

} // namespace ostrand
