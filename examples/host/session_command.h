// `ostrand-options session PATH`: from opening a session to saving it, or to a picture of its dialog.
#pragma once

#include "examples/host/arguments.h"

namespace host {

/// The program's exit code.
int ShowSession(const Arguments& arguments);

} // namespace host
