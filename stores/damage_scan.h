// A first look at a whole file: whether it can be what a save left, or must be checked line by line. It takes a
// fraction of the time of reading the file, so it is made at every reading.
#pragma once

#include <string_view>

namespace ostrand {

/// A line that a version control system leaves where it can't merge; without its line end.
bool IsMergeMark(std::string_view line);

/// Whether the text has a sign of damage: it is empty, lacks its last line end, has a zero byte, bytes that are no
/// UTF-8, or a merge mark. A text without its last line end may still be as a person wrote it; the others never are
/// good.
bool LooksDamaged(std::string_view text);

} // namespace ostrand
