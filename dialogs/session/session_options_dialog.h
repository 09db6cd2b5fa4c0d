// SessionOptionsDialog: the dialog on one session's options, in either application.
//
//     session->AcceptChanges();
//     if (ShowSessionOptionsDialog(global, session, nullptr, 0, false, false, 1024, false, 530, true, window) ==
//         kResultOk && session->IsModified())
//         SessionFolderAccess().SaveSession(*session, false, report);
#pragma once

#include "dialogs/session/session_options_dialog_base.h"

namespace ostrand {

class OSTRAND_API SessionOptionsDialog final : public SessionOptionsDialogBase {
public:
    using SessionOptionsDialogBase::SessionOptionsDialogBase;

private:
    bool OnInitDialog() override;
    void OnOpened() override;
    void OnDestroy() override;
};

/// Runs the dialog with the process's services; the answer is its closing code. The arguments behind the session are
/// those of SessionOptionsSetup. A null `globalConfig` means that of the process; a session of another implementation,
/// or none, is answered as a Cancel. `parentWindow` is the toolkit's own, or null.
OSTRAND_API int ShowSessionOptionsDialog(GlobalConfig* globalConfig, ISessionConfig* sessionConfig, IUnknown* owner,
                                         int mode, bool isNewSession, bool lockName, int maxColumns,
                                         bool editCurrentModes, unsigned blinkPeriod, bool printingEnabled,
                                         void* parentWindow);

} // namespace ostrand
