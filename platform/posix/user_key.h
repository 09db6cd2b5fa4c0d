// The key that protects one user's secrets: 32 random bytes in a file of that user's.
#pragma once

#include "core/secret_bytes.h"

#include <cstddef>

namespace ostrand::posix {

inline constexpr size_t kUserKeySize = 32; // bytes

/// The key in "hollowmere/protection.key" below the user's data folder (XDG_DATA_HOME, by default .local/share in the
/// home folder). kErrorFileNotFound where there is none yet; kErrorAccessDenied for a file that somebody else owns or
/// may read; kErrorInvalidData for one of another size.
unsigned ReadUserKey(VSecretBytes& key);

/// The same, and makes the key where there is none. Of two processes that make it at the same time both get the one
/// that was first. A file that is there is never replaced, since nothing else opens what it protects.
unsigned ReadOrMakeUserKey(VSecretBytes& key);

} // namespace ostrand::posix
