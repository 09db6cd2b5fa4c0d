// Hives as folders with a file store in each:
//
//   of the user       $XDG_CONFIG_HOME/hollowmere/registry, or ~/.config/hollowmere/registry
//   of the machine    /etc/xdg/hollowmere/registry
//
// An administrator who writes /etc/xdg/hollowmere/registry/Software/Policies/Hollowmere.ini with the line
// "Save Passwords = 0" forbids stored passwords for all users.
#pragma once

#include "platform/export.h"
#include "profile/hives.h"

#include <string>

namespace ostrand {

/// Where a hive lies, in the platform's spelling; empty for one that has no place, which then holds nothing and takes
/// nothing.
OSTRAND_API std::string HiveFolder(VHive hive);

using VHiveFolderFunction = std::string (*)(VHive);
/// Replaces HiveFolder's answer; null brings the usual folders back. For tests and for programs with folders of their
/// own, before the first use.
OSTRAND_API void SetHiveFolderFunction(VHiveFolderFunction function);

} // namespace ostrand
