// Folders of the user that the system knows.
#pragma once

#include "core/strings.h"

namespace ostrand {

enum class VKnownFolder {
    Home,
    Config, ///< where programs keep the user's settings, each in a folder of its own
    Downloads,
    Documents,
};

/// Native, and not necessarily there. False, `path` untouched, for a user without a home folder.
OSTRAND_API bool GetKnownFolder(VKnownFolder folder, VUnicodeString& path);

} // namespace ostrand
