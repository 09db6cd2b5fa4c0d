// The desktop's choosers of files, colours and fonts. Each answers false when cancelled, with its request as it was.
#pragma once

#include "dialogs/kit/services.h"

class QFont;
class QWidget;

namespace ostrand::qt {

int ShowMessageBox(QWidget* parent, const VMessage& message);
bool ChooseFolder(QWidget* parent, const VUnicodeString& title, VUnicodeString& path);
bool ChooseFile(QWidget* parent, VFileRequest& request);
bool ChooseColor(QWidget* parent, VColorRequest& request);
bool ChooseFont(QWidget* parent, VFontRequest& request);

/// Sizes in pixels of 1/96 inch below zero; a family that the desktop lacks keeps its name.
QFont ToQtFont(const VLogFont& font);
/// What a chosen font says; of the rest, such as the character set, `before` is kept.
VLogFont FromQtFont(const QFont& chosen, const VLogFont& before);

} // namespace ostrand::qt
