// From the library's 16-bit paths, where both "\" and "/" part folders, to those of the platform. The only way from a
// text to the file system: nothing else hands a path to it.
#pragma once

#include "core/strings.h"

namespace ostrand {

/// UTF-8 with "/" for "\". False for a text that names nothing: one with a lone surrogate or a zero character.
OSTRAND_API bool ToNativePath(std::u16string_view path, std::string& out);

/// `folder` and `name` with exactly one separator between: "/" where the folder begins with one, else "\".
OSTRAND_API VUnicodeString NameInFolder(std::u16string_view folder, std::u16string_view name);

/// What stands behind the last separator of either kind.
OSTRAND_API std::string_view BaseName(std::string_view path);

} // namespace ostrand
