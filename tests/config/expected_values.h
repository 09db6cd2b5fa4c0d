// The lists of values in tests/data; the head of global_values.txt tells their form.
#pragma once

#include "profile/schema_entry.h"
#include "stores/memory_store.h"

#include <string>
#include <variant>
#include <vector>

namespace ostrand::test {

/// How a default comes about that is no constant.
enum class Computed { Not, Clock, FontSmoothing, StoreExists, FromOtherValues };

struct ExpectedValue {
    std::u16string name;
    std::u16string nameInOrvane; // the same where the application makes no difference
    std::u16string formerly;
    bool formerlyIsDefault = false;
    std::string type;
    Computed computed = Computed::Not;
    bool hasDefault = true;
    bool isPending = true;   // where it has a default
    StoreValue defaultValue; // as it is stored; the text of a view's state
    VBound bound;
    bool isMerged = true;
    bool isInTable = true;

    const std::u16string& NameFor(bool isOrvane) const { return isOrvane ? nameInOrvane : name; }
};

/// Throws std::runtime_error, naming the line, for one that it can't read.
std::vector<ExpectedValue> ReadExpectedValues(const char* list = "global_values.txt");

} // namespace ostrand::test
