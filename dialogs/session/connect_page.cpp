#include "dialogs/session/connect_page.h"

#include "core/messages.h"
#include "dialogs/session/session_name_field.h"
#include "dialogs/session/session_options_dialog_base.h"

#include <utility>

namespace ostrand {

SessionConnectPage::SessionConnectPage(const VTemplate& shown, SessionConfig& session, const SessionOptionsSetup& setup)
    : VPropertyTreePage(shown),
      m_session(VUnknownPointer<SessionConfig>::Share(&session)),
      m_isNewSession(setup.isNewSession),
      m_isReadOnly(VIsReadOnly(setup.mode)),
      m_isNameFixed(m_isReadOnly || setup.lockName),
      m_name(session.GetSessionName()),
      m_description(*this, Description, session.description)
{
}

bool SessionConnectPage::OnInitDialog()
{
    FillProtocols();
    return VPropertyTreePage::OnInitDialog();
}

void SessionConnectPage::OnSetActive()
{
    Control(Name).Enable(!m_isNameFixed);
    EnableProtocols();
}

bool SessionConnectPage::OnKillActive()
{
    m_validateOnExchange = true;
    return VPropertyTreePage::OnKillActive();
}

void SessionConnectPage::OnReceivedFocus()
{
    if (SetFocus(Name))
        At<VEditControl>(Name).SelectAll();
    else
        VPropertyTreePage::OnReceivedFocus();
}

void SessionConnectPage::DoDataExchange(VDataExchange& dx)
{
    const bool isChecked = dx.Validating() && std::exchange(m_validateOnExchange, false);
    if (isChecked && Control(Name).IsEnabled())
        DDX_SessionName(dx, Name, *m_session, m_name, m_isNewSession);
    else
        DDX_Text(dx, Name, m_name);
    dx.ThenWrite([this] { m_session->SetSessionName(m_name); });
    // Who may change nothing needn't be told what to change.
    ExchangeProtocols(dx, isChecked && !m_isReadOnly);
    m_description.Exchange(dx);
}

void SessionConnectPage::ExchangeProtocol(VDataExchange& dx, const ProtocolBox& box, bool isChecked, SetProtocol set)
{
    if (isChecked && box.IsMissing())
        dx.Fail(box.GetControl(), kProtocolNotAvailable, box.GetName());
    if (box.HasSelection())
        dx.ThenWrite([this, set, name = box.GetName()] { ((*m_session).*set)(name); });
}

bool SessionConnectPage::TakeChoice(ProtocolBox& box, int otherRow, SetProtocol set,
                                    void (SessionOptionsDialogBase::*showSide)(bool))
{
    if (!box.IsChanged())
        return false;
    if (box.IsMissing()) {
        VReportMessageParams report;
        Fail(report, kProtocolNotAvailable, box.GetName());
        VMessageBox(*this, report);
        box.PutBack();
        return false;
    }
    const VUnicodeString name = box.GetName();
    const int before = box.GetCurrentRow();
    box.Accept();
    ((*m_session).*set)(name);
    if (auto* const dialog = dynamic_cast<SessionOptionsDialogBase*>(GetParentDialog())) {
        dialog->UpdateSessionProtocolPages(before, box.GetRow(), otherRow);
        (dialog->*showSide)(name != kNoProtocol);
    }
    return true;
}

} // namespace ostrand
