// Names of imported sessions: what a foreign name becomes, where no session may have it.
//
//   - blanks and controls at both ends go; controls inside, and each of \/:*?"<>|, become "_"
//   - a dot in front, which hides a session, becomes "_"
//   - a name of a device gets "_" behind it, and an empty name becomes "Session"
//   - what is beyond 180 bytes of UTF-8 is cut, so that a file can have the name
//   - where the name is taken, ignoring case, " (2)" comes behind it, or the first number that is free. The names with
//     a meaning of their own below `Sessions` count as taken.
#pragma once

#include "core/strings.h"

#include <string>
#include <string_view>
#include <unordered_map>

namespace ostrand {

/// The same name, or a valid one by all rules but the last.
VUnicodeString ToSessionName(std::u16string_view name);

class ImportedNames {
public:
    ImportedNames();
    /// By all rules; the result counts as taken from now on.
    VUnicodeString Take(std::u16string_view name);

private:
    /// False where it is taken.
    bool TryTake(std::u16string_view name);

    std::unordered_map<std::u16string, unsigned> m_taken; // by folded name: the number that was tried last
};

} // namespace ostrand
