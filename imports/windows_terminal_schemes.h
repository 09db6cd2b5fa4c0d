// Colour schemes of Windows Terminal: one scheme, a list of schemes, or a settings file with a member "schemes".
//
//   file    = scheme | "[" {scheme} "]" | "{" .. "schemes": "[" {scheme} "]" .. "}"
//   scheme  = "{" "name": text, "foreground": colour, "background": colour, "black": colour .. "brightWhite": colour
//   "}" colour  = "#rgb" | "#rrggbb"
//
// JSON in UTF-8, comments and a last comma allowed, other members ignored. Of members of one name the last counts.
// Purple is magenta.
#pragma once

#include "imports/imported_scheme.h"

namespace ostrand {

/// False, with the line of bad JSON or the member that is wrong, if there is no scheme to be had.
[[nodiscard]] bool ReadWindowsTerminalSchemes(const SchemeFile& file, SchemeImport& out, ImportFault& error);

} // namespace ostrand
