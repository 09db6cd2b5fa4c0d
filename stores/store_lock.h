// The lock that programs on one store take for each save, and the folders on its way.
#pragma once

#include "platform/platform.h"

#include <memory>
#include <string>

namespace ostrand {

inline constexpr unsigned kFolderMode = 0700;
inline constexpr unsigned kFileMode = 0600;
/// Milliseconds to wait for another process that is writing to the store.
inline constexpr unsigned kLockPatience = 1000;

/// Those of the platform, asked anew each time: a test may have put others there.
inline IFiles& Files() { return *Platform().files; }

bool IsMissing(unsigned code);
/// A folder with all the folders above it that are missing.
unsigned MakeFolders(const std::string& folder);
/// The folder that a path lies in.
std::string FolderOf(const std::string& path);
/// Keeps other processes out until `lock` closes. Makes the store's folder where it is missing. kErrorNotSupported on a
/// medium without locks, where only one program at a time is safe.
unsigned LockStore(const std::string& root, unsigned patience, std::unique_ptr<IFile>& lock);

} // namespace ostrand
