// A colour scheme from X resources, as terminals of the X Window System take them.
//
//   resource = [ program ] binding { component binding } name ":" colour      binding is "*" or "."
//   name     = "foreground" | "background" | "colorBD" | "color0" .. "color15"
//
// The names come with a small or a capital first letter; "colorBD" is the colour of bold text. Of two lines for one
// colour that of a named program goes before one for all, otherwise the later one counts. Foreground and background are
// taken from lines for all programs, for terminals and for their text area "VT100", not from those of other programs or
// of scroll bars. The lines themselves, and what is defined in them, are told in x_lines.h; colours in color_text.h.
#pragma once

#include "imports/imported_scheme.h"

namespace ostrand {

/// The scheme gets the file's name without its extension. False, with a line, if there is none to be had.
[[nodiscard]] bool ReadXresourcesSchemes(const SchemeFile& file, SchemeImport& out, ImportFault& error);

} // namespace ostrand
