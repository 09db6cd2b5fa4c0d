// What importers say about a file, and the sizes that they refuse.
#pragma once

#include "core/format.h"
#include "core/strings.h"

#include <cstddef>

namespace ostrand {

/// Something wrong in a file: why it can't be read, or what was passed over. `text` is a half sentence without the
/// file's name, as people read it behind "FILE:LINE: ".
struct ImportFault {
    size_t line = 0; ///< from 1; 0 where the text names a member instead, or means the whole file
    VUnicodeString text;
};

/// Larger files are no settings that somebody has; an importer refuses them before it looks inside.
inline constexpr size_t kMaxImportBytes = size_t{32} << 20;

/// Fills the fault and is false, so that a failure is one line.
template <class... Arguments>
bool FailImport(ImportFault& fault, size_t line, std::u16string_view format, const Arguments&... arguments)
{
    fault = {line, Format(format, arguments...)};
    return false;
}

/// False, with the reason, for a file above the limit.
inline bool FitsImport(std::string_view bytes, ImportFault& fault)
{
    return bytes.size() <= kMaxImportBytes || FailImport(fault, 0, u"is larger than any file of this kind");
}

} // namespace ostrand
