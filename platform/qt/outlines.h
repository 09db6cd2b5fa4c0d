// Outlines of boxes and edits in dark windows.
#pragma once

#include <QWidget>

namespace ostrand::qt {

/// Qt's own style draws them darker than the window, and so out of sight in a dark one. They become lighter there; all
/// else of the palette stays.
void ShowOutlines(QWidget& form);

} // namespace ostrand::qt
