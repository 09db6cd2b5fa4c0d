// What changed between two texts, as places with their old and new bytes. Made for files of one value a line: whole
// lines as a rule, the changed part of a line where it is long.
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

namespace ostrand {

/// One changed place. The views are into the texts that were compared.
struct TextHunk {
    size_t at; ///< byte in the old text
    std::string_view before, after;
};

/// In the order of the text, apart from each other. Lines that stand once in both texts part the changes ("patience",
/// after Bram Cohen), so the time is that of sorting the lines between the first and the last change. Beyond a megabyte
/// of such lines all of them are one place.
std::vector<TextHunk> DiffTexts(std::string_view before, std::string_view after);

} // namespace ostrand
