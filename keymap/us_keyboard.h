// The US keyboard of 101 keys: what its keys are and what they type. For systems that don't tell the user's own layout.
#pragma once

#include "core/strings.h"

namespace ostrand {

/// From a scan code of set 1, as of a keyboard whose Num Lock is off. 0 for a key that the keyboard lacks.
OSTRAND_API unsigned UsVirtualKey(unsigned scanCode, bool isExtended);

/// What the key types with these modifiers held, also a control character; empty for nothing.
OSTRAND_API VUnicodeString UsKeyText(unsigned virtualKey, bool shift, bool control);

} // namespace ostrand
