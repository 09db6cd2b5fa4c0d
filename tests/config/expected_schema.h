// A record against a list of its values (tests/config/expected_values.h): what its schema says, and what a record
// without a key holds.
#pragma once

#include "profile/value.h"
#include "tests/config/expected_values.h"

#include <functional>

namespace ostrand::test {

/// A schema's entries without its rules.
std::vector<const VSchemaEntry*> EntriesOf(const VSchemaView& schema);

/// The entries are those of the list, in its order and with its facts.
void ExpectSchemaIsTheList(const std::vector<const VSchemaEntry*>& entries, const std::vector<ExpectedValue>& list);

/// The table's members of a record that was read without a key are the list's, and hold its defaults; `defaultOf` tells
/// one that is computed.
void ExpectDefaultsOfTheList(
    const std::vector<VProfileData*>& members, const std::vector<ExpectedValue>& list, bool isOrvane = false,
    const std::function<StoreValue(const ExpectedValue&)>& defaultOf = [](const ExpectedValue& value) {
        return value.defaultValue;
    });

} // namespace ostrand::test
