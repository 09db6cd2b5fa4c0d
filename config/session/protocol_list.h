// The protocols that this library knows how to find: which product has them, and in which module file they lie.
#pragma once

#include "core/strings.h"

#include <span>

namespace ostrand {

struct VProtocolListRow {
    int productId;
    const char16_t* name;
    const char16_t* moduleFile; ///< by its name on the original platform; see ModuleFileName
};

/// In the order of loading.
OSTRAND_API std::span<const VProtocolListRow> GetProtocolList();

/// The file's name with the ending that modules have on this platform.
OSTRAND_API VUnicodeString ModuleFileName(std::u16string_view moduleFile);

} // namespace ostrand
