// Colour schemes among the saved sessions of PuTTY, as a registry export holds them.
//
//   key    = .. "\PuTTY\Sessions\" name                          a byte of the name may stand as "%XX"
//   value  = "Colour" number "=" red "," green "," blue          0 to 21, each colour 0 to 255 in decimal
//
// 0 foreground, 1 bold foreground, 2 background, 3 bold background, 4 text under the cursor, 5 cursor, then black,
// bright black, red, bright red and so on to white, bright white. Sessions without colours are passed over. Keys and
// values that the file deletes again are gone.
#pragma once

#include "imports/imported_scheme.h"

namespace ostrand {

/// False, with a line, if the export is damaged or has no scheme.
[[nodiscard]] bool ReadTerminalThemeSchemes(const SchemeFile& file, SchemeImport& out, ImportFault& error);

} // namespace ostrand
