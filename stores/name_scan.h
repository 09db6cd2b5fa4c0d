// Looking for one name in the text of a file that isn't cut into lines.
#pragma once

#include "stores/asked_name.h"

#include <cstdint>
#include <string_view>

namespace ostrand {

enum class ScanResult { None, One, Several };

/// How many lines have the name; `place` is where it stands in the only one. Costs a third of cutting the text, so it
/// pays for one name. The name must be ASCII and not empty.
ScanResult ScanForName(std::string_view text, const AskedName& name, uint32_t& place);

} // namespace ostrand
