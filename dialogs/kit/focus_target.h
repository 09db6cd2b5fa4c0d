// A control of some form, as the holder of the focus or the one who is to have it.
#pragma once

#include "dialogs/kit/template.h"

namespace ostrand {

class VForm;

struct VFocusTarget {
    VForm* form = nullptr; ///< null: none
    VControlId control = 0;
    bool operator==(const VFocusTarget&) const = default;
};

} // namespace ostrand
