// Map files: which character a font or a set of line drawing glyphs has at each place. Text files that people write by
// hand, in any encoding that VTextFile reads.
//
//   file  = { line }          empty lines are skipped
//   line  = number rest       as "%x" reads it: blanks, a sign, "0x" or not, hexadecimal digits; `rest` is ignored
//
// Each line fills the next entry; one without a number leaves its entry 0. Lines behind the last entry aren't read.
#pragma once

#include "core/report.h"
#include "platform/export.h"

#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

namespace ostrand {

inline constexpr size_t kFontMapSize = 256;
inline constexpr size_t kLineDrawingMapSize = 128;

/// Entries that the file doesn't reach become 0. False for a file that can't be opened or read, or in which this many
/// entries are not to be had from a million characters; the report then has the platform's code and the path.
[[nodiscard]] OSTRAND_API bool ReadMapFile(std::u16string_view path, std::span<uint16_t> entries,
                                           IReportMessageParams& report);

/// The map that a session names by a path template; no entries for an empty name. A template that doesn't expand and a
/// file that can't be read are told to the router, and there are no entries, too.
std::vector<uint16_t> LoadMapFile(std::u16string_view nameTemplate, size_t size);

} // namespace ostrand
