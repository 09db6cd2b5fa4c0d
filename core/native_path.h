// From the library's 16-bit paths, where both "\" and "/" part folders, to those of the platform. The only way from a
// text to the file system: nothing else hands a path to it.
#pragma once

#include "core/strings.h"

namespace ostrand {

/// UTF-8 with "/" for "\". False for a text that names nothing: one with a lone surrogate or a zero character.
OSTRAND_API bool ToNativePath(std::u16string_view path, std::string& out);

/// The text as this system's users expect to see it: with "/" for "\", but unchanged where paths begin at drives.
OSTRAND_API VUnicodeString InNativeSpelling(std::u16string_view path);

/// What stands behind the last separator of either kind.
OSTRAND_API std::string_view BaseName(std::string_view path);

} // namespace ostrand
