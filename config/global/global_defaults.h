// Defaults that the global record and sessions share.
#pragma once

#include "profile/log_font.h"
#include "profile/margins.h"
#include "profile/window_placement.h"

namespace ostrand {

/// Normal size, placed by the system: maximised position (-4,-4), empty rectangle.
VWindowPlacement DefaultFramePlacement();
/// Half an inch on each side.
VMarginData DefaultPageMargins();
/// Ten points of Courier New.
VLogFont DefaultPrinterFont();

} // namespace ostrand
