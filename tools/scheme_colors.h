// The colours of a scheme as people write them: "#rrggbb", one for all attributes or one for each.
#pragma once

#include "config/global/color_scheme.h"
#include "tools/json_writer.h"

#include <cstdint>
#include <string>

namespace ostrand::tool {

/// "#rrggbb" of 0x00BBGGRR.
std::string ColorText(uint32_t color);

/// One text where all are the same; else an object by attribute: {"normal": ..., "bold": ...}.
Json ColorsToJson(const ColorScheme::Colors& colors);

/// `field` is the name of the colours, alone for all attributes, or with ".bold", ".bold-underline" and so on behind it
/// for one. False, with the problem, for an unknown attribute, and for a word that is no colour.
bool SetColors(ColorScheme::Colors& colors, const std::string& field, const std::string& word, std::string& problem);

} // namespace ostrand::tool
