// One open file of a POSIX system.
#pragma once

#include "platform/files.h"

#include <sys/stat.h>

namespace ostrand::posix {

/// Takes over the open descriptor.
std::unique_ptr<IFile> MakeFile(int descriptor);

VFileInfo InfoOf(const struct stat& raw);

} // namespace ostrand::posix
