// What keys do where nobody has said otherwise.
#pragma once

#include "platform/export.h"

namespace ostrand {

class IKeymap;

/// Writes the 53 default bindings, codes and strings, and touches no other key.
OSTRAND_API void InstallDefaultKeymap(IKeymap& keymap);

} // namespace ostrand
