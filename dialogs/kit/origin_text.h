// What users are told of a value's origin.
#pragma once

#include "dialogs/kit/binding.h"

namespace ostrand {

/// All that is known of the value behind a control, one sentence a line; empty where no record knows it. Opens the
/// store, so it is for the moment when somebody asks.
OSTRAND_API VUnicodeString OriginText(VBinding& binding);

/// What the third state of a box means here: the global value of the same name. Empty without one.
OSTRAND_API VUnicodeString ThirdStateWords(const VBinding& binding);

} // namespace ostrand
