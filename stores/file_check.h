// Faults of a key's file, for people: what reads as missing, and what looks like damage.
#pragma once

#include "platform/export.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace ostrand {

enum class FileFaultKind {
    Unparseable,   ///< neither a comment nor a whole value; kept, and reads as missing
    DuplicateName, ///< a later line has the same name, and counts
    ZeroByte,
    InvalidUtf8,
    ConflictMark,  ///< left by a tool that merges texts
    NoLastLineEnd, ///< the last line may have been cut
    CutLine,       ///< the last line was cut: it has no end, and is neither a comment nor a whole value
};

/// Whether no save and no person's edit leaves such a line. The other kinds stay as they are in a repair.
OSTRAND_API bool IsDamage(FileFaultKind kind);

struct FileFault {
    FileFaultKind kind;
    size_t line;         ///< from 1
    std::u16string name; ///< of the value, where the line has one
    bool operator==(const FileFault&) const = default;
};

/// The fault of one line by itself, given with its line end. `name` is that of its value, also of one whose value is
/// broken, and untouched where the line has none.
std::optional<FileFaultKind> CheckLine(std::string_view line, std::u16string& name);

/// All faults in the order of their lines; for each line the gravest, and for a last one that isn't cut its missing end
/// besides.
OSTRAND_API std::vector<FileFault> CheckText(std::string_view text);

/// A half sentence: "doesn't parse, and reads as missing".
OSTRAND_API const char16_t* DescribeFault(FileFaultKind kind);

} // namespace ostrand
