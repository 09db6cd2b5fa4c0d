// What a control is called where it can't be seen: by screen readers and in search results.
#pragma once

#include "dialogs/kit/form.h"

namespace ostrand {

/// Label, caption, or the caption of the group around it; without marks and a colon at the end.
OSTRAND_API VUnicodeString AccessibleName(const VForm& form, size_t item);
/// The group around an item; null for none.
OSTRAND_API const VControl* GroupAround(const VForm& form, size_t item);

} // namespace ostrand
