#include "tests/vectors/json_values.h"

#include <stdexcept>

namespace ostrand::vectors {

namespace {

template <class... V>
struct ClassList {};
using PlainClasses = ClassList<VProfile<int>, VProfile<unsigned int>, VProfile<unsigned long>, VProfile<bool>,
                               VProfile<VTriState>, VProfileString, VProfileStringList, VProfileMargins, VProfileColors,
                               VProfile2<VLogFont, VProfileBinary>, VProfile2<VWindowPlacement, VProfileBinary>>;

template <class V>
using ValueOf = decltype(V::saved);

template <class V>
bool ShowIf(const VProfileData& value, Json& out)
{
    const auto* const object = dynamic_cast<const V*>(&value);
    if (!object)
        return false;
    out = ToJson(Current(*object));
    return true;
}

template <class V>
bool SetIf(VProfileData& value, const Json& json)
{
    auto* const object = dynamic_cast<V*>(&value);
    if (!object)
        return false;
    ValueOf<V> fresh{};
    FromJson(json, fresh);
    *object = fresh;
    return true;
}

template <class... V>
bool ShowPlain(ClassList<V...>, const VProfileData& value, Json& out)
{
    return (ShowIf<V>(value, out) || ...);
}

template <class... V>
bool SetPlain(ClassList<V...>, VProfileData& value, const Json& json)
{
    return (SetIf<V>(value, json) || ...);
}

template <class State>
bool SetState(VProfileData& value, const Json& json)
{
    auto* const state = dynamic_cast<State*>(&value);
    if (!state)
        return false;
    VReportMessageParams report;
    const VVariant text{json.is_string() ? ToText(json) : VUnicodeString()};
    if (json.is_object())
        FieldsFromJson(json, *state);
    else if (!state->SetVariant(&text, report))
        throw std::runtime_error("the state refused its text");
    return true;
}

template <class N>
void TakeField(const Json& json, const char* name, N& field)
{
    if (json.contains(name))
        FromJson(json.at(name), field);
}

Json ColumnToJson(const VListViewFields::ColumnInfo& column)
{
    return {{"width", column.width}, {"visible", column.visible}, {"order", column.order}};
}

VListViewFields::ColumnInfo ColumnFromJson(const Json& json)
{
    VListViewFields::ColumnInfo column;
    TakeField(json, "width", column.width);
    TakeField(json, "visible", column.visible);
    TakeField(json, "order", column.order);
    return column;
}

} // namespace

void FromJson(const Json& json, int& value) { value = static_cast<int>(ToNumber(json)); }
void FromJson(const Json& json, unsigned& value) { value = ToNumber(json); }
void FromJson(const Json& json, unsigned long& value) { value = ToNumber(json); }
void FromJson(const Json& json, bool& value) { value = json; }
void FromJson(const Json& json, VTriState& value) { value = static_cast<VTriState>(ToNumber(json)); }
void FromJson(const Json& json, VUnicodeString& value) { value = ToText(json); }
void FromJson(const Json& json, VStringArray& value) { value = ToList(json); }

Json FieldsToJson(const VListViewFields& fields)
{
    Json columns = Json::array();
    for (const auto& column : fields.columns)
        columns.push_back(ColumnToJson(column));
    return {{"first", fields.first},
            {"second", fields.second},
            {"third", fields.third},
            {"fourth", fields.fourth},
            {"column_count", fields.columnCount},
            {"columns", columns}};
}

Json FieldsToJson(const VExplorerFrameFields& fields)
{
    return {{"first", fields.first}, {"second", fields.second}, {"third", fields.third}};
}

void FieldsFromJson(const Json& json, VListViewFields& fields)
{
    TakeField(json, "first", fields.first);
    TakeField(json, "second", fields.second);
    TakeField(json, "third", fields.third);
    TakeField(json, "fourth", fields.fourth);
    TakeField(json, "column_count", fields.columnCount);
    if (!json.contains("columns"))
        return;
    fields.columns.RemoveAll();
    for (const Json& column : json.at("columns"))
        fields.columns.Append(ColumnFromJson(column));
}

void FieldsFromJson(const Json& json, VExplorerFrameFields& fields)
{
    TakeField(json, "first", fields.first);
    TakeField(json, "second", fields.second);
    TakeField(json, "third", fields.third);
}

Json CurrentValue(const VProfileData& value)
{
    Json out;
    if (const auto* const blob = dynamic_cast<const VProfileBlob*>(&value))
        out = FromBytes(blob->data);
    else if (!ShowPlain(PlainClasses(), value, out))
        throw std::runtime_error("a value of a class that has no JSON form");
    return out;
}

void SetCurrentValue(VProfileData& value, const Json& json)
{
    if (auto* const blob = dynamic_cast<VProfileBlob*>(&value))
        blob->SetData(ToBytes(json));
    else if (!SetState<VProfileListViewState>(value, json) && !SetState<VProfileExplorerFrameState>(value, json) &&
             !SetPlain(PlainClasses(), value, json))
        throw std::runtime_error("a value of a class that has no JSON form");
}

Json StateOf(const VProfileData& value, const Json& current)
{
    return {{"value", current}, {"dirty", value.dirty}, {"modified", value.IsModified()}};
}

} // namespace ostrand::vectors
