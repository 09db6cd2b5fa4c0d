// A message box as a dialog asks for it, and its answer.
#pragma once

#include "core/report.h"
#include "dialogs/kit/standard_icon.h"

namespace ostrand {

/// How dialogs and boxes end.
inline constexpr int kResultOk = 1;
inline constexpr int kResultCancel = 2;
inline constexpr int kResultAbort = 3;
inline constexpr int kResultYes = 6;
inline constexpr int kResultNo = 7;

enum class VButtons : uint8_t { Ok, OkCancel, YesNo };

struct VMessage {
    VUnicodeString text; ///< as it is shown
    VIcon icon = VIcon::None;
    VButtons buttons = VButtons::Ok;
    int defaultButton = 0; ///< a result code; 0: the first
    unsigned code = 0;     ///< of a report's text; 0: a text without one
};

class VForm;

/// Shows a text, or a report's text, above the form's window. The answer is a result code; Escape is the last button.
OSTRAND_API int VMessageBox(VForm& form, const VUnicodeString& text, VIcon icon = VIcon::None,
                            VButtons buttons = VButtons::Ok, int defaultButton = 0);
OSTRAND_API int VMessageBox(VForm& form, IReportMessageParams& report, VIcon icon = VIcon::None,
                            VButtons buttons = VButtons::Ok, int defaultButton = 0);

} // namespace ostrand
