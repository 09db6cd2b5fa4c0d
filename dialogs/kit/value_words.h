// Values as users read them beside the control that edits them.
#pragma once

#include "dialogs/kit/control.h"
#include "profile/schema_entry.h"
#include "profile/values.h"

namespace ostrand {

/// "on", the chosen option, the entry of a list, a number, a text in quotes; of a masked edit nothing but whether it is
/// empty.
OSTRAND_API VUnicodeString ValueWords(const VControl& control, bool value);
OSTRAND_API VUnicodeString ValueWords(const VControl& control, VTriState value);
OSTRAND_API VUnicodeString ValueWords(const VControl& control, int value);
OSTRAND_API VUnicodeString ValueWords(const VControl& control, unsigned value);
OSTRAND_API VUnicodeString ValueWords(const VControl& control, const VUnicodeString& value);

/// "0 to 9", "at least 20"; empty without a bound.
OSTRAND_API VUnicodeString BoundWords(const VBound& bound);

} // namespace ostrand
