#include "dialogs/session/session_options_dialog.h"

#include "core/entry.h"

namespace ostrand {

bool SessionOptionsDialog::OnInitDialog()
{
    const bool wantsFocus = SessionOptionsDialogBase::OnInitDialog();
    InitDialog();
    return wantsFocus;
}

void SessionOptionsDialog::OnOpened()
{
    if (WantsReadOnlyPrompt())
        PostToSelf([this] { ShowReadOnlyPrompt(); });
}

void SessionOptionsDialog::OnDestroy()
{
    SessionOptionsDialogBase::OnDestroy();
    Destroy();
}

int ShowSessionOptionsDialog(GlobalConfig* globalConfig, ISessionConfig* sessionConfig, IUnknown* owner, int mode,
                             bool isNewSession, bool lockName, int maxColumns, bool editCurrentModes,
                             unsigned blinkPeriod, bool printingEnabled, void* parentWindow)
{
    auto* const session = dynamic_cast<SessionConfig*>(sessionConfig);
    if (!session)
        return kResultCancel;
    if (!globalConfig)
        GetGlobalConfig(globalConfig, -1);
    const SessionOptionsSetup setup{owner,       mode,           isNewSession, lockName, maxColumns, editCurrentModes,
                                    blinkPeriod, printingEnabled};
    return SessionOptionsDialog(*globalConfig, *session, setup, DialogServices(), parentWindow).DoModal();
}

} // namespace ostrand
