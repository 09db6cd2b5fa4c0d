// A message box with a check box that asks not to be shown again.
#pragma once

#include "dialogs/kit/dialog.h"
#include "dialogs/kit/edited.h"

namespace ostrand {

/// Texts as they are shown.
struct OptionalMessage {
    VUnicodeString text;
    VUnicodeString boxText = {}; ///< empty: the usual one
    VUnicodeString firstButton;
    bool hasSecondButton = false; ///< "No"
    VIcon icon = VIcon::None;
    bool isSecondDefault = false;
};

/// Ends with 1 for the first button, 2 for the second and for Escape. A click on the check box goes to the value at
/// once, whatever ends the box: the caller looks at the value before it shows the box, and saves it.
class OSTRAND_API OptionalMessageBox final : public VDialog {
public:
    enum Id : VControlId { Picture = 1, Text, NeverAgain, First, Second };

    /// Borrows the value.
    OptionalMessageBox(const OptionalMessage& message, VProfile<int>& value,
                       IDialogServices& services = DialogServices(), void* parentWindow = nullptr);

private:
    VEdited<bool> m_neverAgain;
};

/// `icon`: 0 warning, 1 information, 2 question, any other none. `defaultButton`: 256 the second one, else the first.
/// The answer is the box's result.
OSTRAND_API int ShowOptionalMessageBox(void* parentWindow, const char16_t* text, const char16_t* boxText,
                                       VProfile<int>& value, const char16_t* firstButton, bool hasSecondButton,
                                       int icon, unsigned defaultButton);

} // namespace ostrand
