// One open file of a POSIX system, and its watch over folders.
#pragma once

#include "platform/files.h"

#include <sys/stat.h>

namespace ostrand::posix {

/// Takes over the open descriptor.
std::unique_ptr<IFile> MakeFile(int descriptor);

unsigned MakeWatch(std::unique_ptr<IFolderWatch>& watch);

VFileInfo InfoOf(const struct stat& raw);

} // namespace ostrand::posix
