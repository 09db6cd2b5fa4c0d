#include "dialogs/kit/message.h"

#include "dialogs/kit/form.h"

namespace ostrand {

int VMessageBox(VForm& form, const VUnicodeString& text, VIcon icon, VButtons buttons, int defaultButton)
{
    return form.Services().ShowMessage(form.Window(), {text, icon, buttons, defaultButton});
}

int VMessageBox(VForm& form, IReportMessageParams& report, VIcon icon, VButtons buttons, int defaultButton)
{
    return form.Services().ShowMessage(form.Window(), {TextOf(report), icon, buttons, defaultButton, report.GetCode()});
}

} // namespace ostrand
