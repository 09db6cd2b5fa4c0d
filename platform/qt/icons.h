// Pictures of the desktop's style.
#pragma once

#include "dialogs/kit/standard_icon.h"

#include <QIcon>

class QWidget;

namespace ostrand::qt {

/// Null for VIcon::None.
QIcon StandardIcon(VIcon icon, const QWidget* widget);

} // namespace ostrand::qt
