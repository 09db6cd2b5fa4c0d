// A value as it stands in a store, whatever its kind, for those that carry values around without knowing what they
// mean.
#pragma once

#include "profile/key.h"

#include <cstdint>
#include <variant>
#include <vector>

namespace ostrand {

using StoreBlock = std::vector<uint8_t>;
/// A kind that this version doesn't know.
struct ForeignValue {
    bool operator==(const ForeignValue&) const = default;
};
/// In the order of VProfileValueType; the foreign one behind them.
using StoreValue = std::variant<unsigned, VUnicodeString, StoreBlock, VStringArray, ForeignValue>;

/// A value of the kind that an iterator told. False, `out` untouched, where it isn't there as that kind, or of a kind
/// that this version doesn't know.
OSTRAND_API bool ReadStoredValue(const VProfileKey& key, const char16_t* name, VProfileValueType type, StoreValue& out);
/// Whatever its kind; costs a question for each kind that it isn't.
OSTRAND_API bool FindStoredValue(const VProfileKey& key, const char16_t* name, StoreValue& out);
/// False for a foreign value, and where the key refuses.
OSTRAND_API bool WriteStoredValue(VProfileKey& key, const char16_t* name, const StoreValue& value);

} // namespace ostrand
