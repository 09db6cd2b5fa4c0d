// The list of values in tests/data/global_values.txt, whose head tells its form.
#pragma once

#include "profile/schema_entry.h"
#include "stores/memory_store.h"

#include <string>
#include <variant>
#include <vector>

namespace ostrand::test {

/// How a default comes about that is no constant.
enum class Computed { Not, Clock, FontSmoothing, StoreExists, ByOthers };

struct ExpectedValue {
    std::u16string name;
    std::u16string nameInOrvane; // the same where the application makes no difference
    std::u16string formerly;
    std::string type;
    Computed computed = Computed::Not;
    bool hasDefault = true;
    StoreValue defaultValue; // as it is stored; the text of a view's state
    VBound bound;
    bool isMerged = true;
    bool isInTable = true;

    const std::u16string& NameFor(bool isOrvane) const { return isOrvane ? nameInOrvane : name; }
};

/// Throws std::runtime_error, naming the line, for one that it can't read.
std::vector<ExpectedValue> ReadExpectedValues();

} // namespace ostrand::test
