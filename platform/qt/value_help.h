// What the view tells of the value behind a control, and what it offers to do with it.
#pragma once

#include "dialogs/kit/form.h"

#include <QMenu>

namespace ostrand::qt {

class FormWidget;

/// What the marks say, for those who don't see them. Empty without a mark.
VUnicodeString MarkWords(const VMarks& marks, bool isFound = false);

/// The value's meaning and origin as a tooltip. False for a control without a value that any record knows.
bool ShowOrigin(VForm& form, VControlId id, QWidget& widget, const QPoint& position);

/// The widget's own menu, with undo and reset for a control that edits a value; null if there is neither. It deletes
/// itself when it closes.
QMenu* MakeValueMenu(FormWidget& form, VControlId id, QWidget& widget);

} // namespace ostrand::qt
