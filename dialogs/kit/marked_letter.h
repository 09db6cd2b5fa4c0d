// The letters that "&" marks in captions and labels, as keys held with Alt.
#pragma once

#include "dialogs/kit/form.h"

namespace ostrand {

/// Acts on the first control in tab order that the letter reaches, within forms in places too: presses a button or box,
/// chooses an option, leads to the control that a label or a group's caption stands ahead of. `letter` is lower case.
OSTRAND_API bool PressMarkedLetter(VForm& top, char16_t letter);

} // namespace ostrand
