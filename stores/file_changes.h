// What changed between two texts of a key's file, value by value. Only what an application reads counts: neither
// comments nor spelling, and of several lines of one name the last whole one.
#pragma once

#include "platform/export.h"

#include <string>
#include <string_view>
#include <vector>

namespace ostrand {

/// A value as both texts spell it; empty where it isn't there.
struct ValueChange {
    std::u16string name;
    std::string before;
    std::string after;
    bool operator==(const ValueChange&) const = default;
};

/// In the order of the text after; what was removed follows in the order of the text before. Texts are of at most
/// 64 MB (FileDocument::kLimit).
OSTRAND_API std::vector<ValueChange> CompareTexts(std::string_view before, std::string_view after);

} // namespace ostrand
