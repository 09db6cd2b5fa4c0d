// How the dialog looks: screen, size, colours.
#pragma once

#include "examples/host/arguments.h"

#include <QPalette>

namespace host {

/// Ahead of the QApplication. False where a dialog is to be shown and there is no display.
bool ChooseScreen(const Arguments& arguments);
/// With the QApplication there.
void ChooseColors(const Arguments& arguments);

QPalette DarkPalette();

} // namespace host
