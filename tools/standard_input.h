// What a command reads from its standard input.
#pragma once

#include "core/strings.h"
#include "tools/request.h"

namespace ostrand::tool {

/// The whole input as one text without the line end that a shell's echo puts last. Failed after one line on stderr: not
/// UTF-8, or above 1 MiB.
Exit ReadInput(VUnicodeString& text);

} // namespace ostrand::tool
