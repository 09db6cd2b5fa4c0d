// "Did you mean": the nearest of the known names to a mistyped one.
#pragma once

#include <span>
#include <string>
#include <string_view>

namespace ostrand::tool {

/// Empty when none is near: a third of the letters may be wrong, missing or too many, two of them at least. Ignores
/// case in ASCII.
std::string NearestName(std::string_view typed, std::span<const std::string> names);

} // namespace ostrand::tool
