// Value objects behind JSON: a bool is true or false, a tri-state 0 to 2, a record its packed block in hexadecimal, a
// view's state its fields.
#pragma once

#include "profile/schema.h"
#include "profile/time_value.h"
#include "tests/vectors/json_text.h"

#include <array>

namespace ostrand::vectors {

/// A record that comes as a block.
template <class R>
concept PackedRecord = requires(const R& record, std::span<uint8_t, R::kStoredSize> block) { record.Pack(block); };

inline Json ToJson(int value) { return value; }
inline Json ToJson(unsigned value) { return value; }
inline Json ToJson(unsigned long value) { return value; }
inline Json ToJson(bool value) { return value; }
inline Json ToJson(VTriState value) { return static_cast<unsigned>(value); }
inline Json ToJson(const VUnicodeString& value) { return FromText(value); }
inline Json ToJson(const VStringArray& value) { return FromList(value); }
template <PackedRecord R>
Json ToJson(const R& record)
{
    std::array<uint8_t, R::kStoredSize> block;
    record.Pack(block);
    return FromBytes(block);
}

void FromJson(const Json& json, int& value);
void FromJson(const Json& json, unsigned& value);
void FromJson(const Json& json, unsigned long& value);
void FromJson(const Json& json, bool& value);
void FromJson(const Json& json, VTriState& value);
void FromJson(const Json& json, VUnicodeString& value);
void FromJson(const Json& json, VStringArray& value);
/// A block that is shorter than the record leaves zeros behind it.
template <PackedRecord R>
void FromJson(const Json& json, R& record)
{
    std::array<uint8_t, R::kStoredSize> block{};
    const std::vector<uint8_t> bytes = ToBytes(json);
    if (bytes.size() > block.size())
        Unknown("block, longer than the record:", json);
    std::copy(bytes.begin(), bytes.end(), block.begin());
    record.Unpack(block);
}

Json FieldsToJson(const VListViewFields& fields);
Json FieldsToJson(const VExplorerFrameFields& fields);
/// Sets the fields that the object names.
void FieldsFromJson(const Json& json, VListViewFields& fields);
void FieldsFromJson(const Json& json, VExplorerFrameFields& fields);

/// The current value of any leaf. A view's state is its text.
Json CurrentValue(const VProfileData& value);
/// Replaces the current value of any leaf; a view's state comes as its text or as fields.
void SetCurrentValue(VProfileData& value, const Json& json);

/// {"value", "dirty", "modified"}
Json StateOf(const VProfileData& value, const Json& current);
inline Json StateOf(const VProfileData& value) { return StateOf(value, CurrentValue(value)); }

/// Of all members of a record, by their names.
inline Json StatesOf(VProfileData& record)
{
    Json states = Json::object();
    for (int i = 0; const VProfileData* const member = record.GetMember(i); ++i)
        states[FromText(member->name).get<std::string>()] = StateOf(*member);
    return states;
}

/// The current value itself, of a value class V.
template <class V>
const auto& Current(const V& value)
{
    if constexpr (std::is_base_of_v<VProfileDword, V>)
        return value.value;
    else
        return value.Value();
}

} // namespace ostrand::vectors
