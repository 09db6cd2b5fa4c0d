// What dialogs want of the desktop that needs no window: sounds, addresses, programs, pictures of files.
#pragma once

#include "dialogs/kit/services.h"

namespace ostrand::qt {

/// By the first player that is installed, without a shell; beeps where none is, or no such file.
void PlaySoundOf(const VUnicodeString& path);
bool OpenAddressOf(const VUnicodeString& address);
bool StartProgramOf(const VUnicodeString& path, const VUnicodeString& arguments);

/// Pictures in an image file, 1 for a name of the icon theme or any other file that is there.
unsigned CountIconsOf(const VUnicodeString& path);
/// A QIcon of its own, to be given back.
VIconHandle LoadIconOf(const VUnicodeString& path, unsigned index);
void ReleaseIconOf(VIconHandle icon);

} // namespace ostrand::qt
