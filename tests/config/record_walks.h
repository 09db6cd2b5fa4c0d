// What walks over every value of a record, whatever its class, stand on.
#pragma once

#include "profile/schema.h"
#include "stores/memory_store.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <utility>
#include <vector>

namespace ostrand::test {

/// Another current value than the one it has.
void Change(VProfileData& value);

/// What a damaged or foreign store may hold in place of this value.
std::vector<StoreValue> Unfit(const StoreValue& value);

/// Bytes of an object of this class.
size_t FieldSize(VValueClass type);

/// The fields of a schema's rows lie one behind the other from `first` to `behindLast`: none between them lacks a row.
template <class C>
void ExpectRowsTile(C& record, const void* first, const void* behindLast)
{
    const auto addressOf = [](const void* object) { return reinterpret_cast<uintptr_t>(object); };
    std::vector<std::pair<uintptr_t, uintptr_t>> fields; // first byte, behind the last
    for (const auto& row : C::Schema().Rows()) {
        if (row.IsRule())
            continue;
        // dynamic_cast<void*> finds where the object begins, wherever its VProfileData lies.
        const uintptr_t start = addressOf(dynamic_cast<void*>(row.member(record)));
        fields.emplace_back(start, start + FieldSize(row.type));
    }
    std::sort(fields.begin(), fields.end());
    for (size_t i = 1; i < fields.size(); ++i)
        EXPECT_EQ(fields[i].first, fields[i - 1].second)
            << "a field without a row stands behind the row's field number " << i;
    EXPECT_EQ(fields.front().first, addressOf(first));
    EXPECT_LT(addressOf(behindLast) - fields.back().second, sizeof(VProfile<bool>));
}

} // namespace ostrand::test
