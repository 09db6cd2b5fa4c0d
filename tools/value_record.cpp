#include "tools/value_record.h"

#include "config/global/color_scheme_list.h"
#include "core/fold.h"
#include "tools/output.h"
#include "tools/suggest.h"
#include "tools/value_json.h"

#include <algorithm>

namespace ostrand::tool {

bool ValueRecord::Set(const NamedValue& value, std::span<const std::string> words, std::string& problem)
{
    return SetFromWords(value.entry, *value.value, words, problem);
}

std::optional<NamedValue> FindValue(ValueRecord& record, std::u16string_view name)
{
    const std::vector<NamedValue> values = record.Values();
    const auto found = std::find_if(values.begin(), values.end(),
                                    [name](const NamedValue& v) { return EqualNoCase(v.value->name, name); });
    return found == values.end() ? std::nullopt : std::optional(*found);
}

std::optional<NamedValue> AskedValue(ValueRecord& record, const std::string& typed)
{
    VUnicodeString name;
    const bool isUtf8 = FromUtf8(typed, name);
    std::optional<NamedValue> value = isUtf8 ? FindValue(record, name) : std::nullopt;
    if (!value)
        Fail(Exit::Failed, UnknownName(typed, NamesOf(record), record.WhyUnknown(name)));
    return value;
}

std::string UnknownName(const std::string& typed, std::span<const std::string> names, const std::string& why)
{
    const std::string near = NearestName(typed, names);
    const std::string text = "no value is named " + Cited(typed);
    if (!why.empty())
        return text + "; " + why;
    return near.empty() ? text : text + "; did you mean " + Cited(near) + "?";
}

std::string NameOf(const NamedValue& value) { return Lossless(value.value->name); }

std::vector<std::string> NamesOf(ValueRecord& record)
{
    std::vector<std::string> names;
    for (const NamedValue& value : record.Values())
        names.push_back(NameOf(value));
    return names;
}

Json JsonOf(const NamedValue& value) { return ValueToJson(value.entry.type, *value.value); }

std::string TextOf(const NamedValue& value) { return ValueToText(JsonOf(value)); }

bool IsPending(const VProfileData& value)
{
    const auto* const schemes = dynamic_cast<const ProfileColorSchemeList*>(&value);
    return schemes ? schemes->IsAnyPending() : value.IsDirty();
}

const char* StateOf(const VProfileData& value)
{
    if (value.IsModified())
        return "changed";
    return IsPending(value) ? "pending" : "clean";
}

bool IsSecret(const VSchemaEntry& entry)
{
    return entry.type == VValueClass::Encoded || entry.type == VValueClass::Encrypted;
}

Json RowToJson(const NamedValue& value)
{
    Json row = {{"name", NameOf(value)},
                {"type", ValueClassName(value.entry.type)},
                {"value", JsonOf(value)},
                {"state", StateOf(*value.value)},
                {"saved", value.entry.isInTable}};
    if (value.part)
        row["part"] = value.part;
    return row;
}

std::string DefaultText(const VSchemaEntry& entry, const std::optional<NamedValue>& usual)
{
    if (entry.computed)
        return "(" + Lossless(entry.computed) + ")";
    return usual ? TextOf(*usual) : "";
}

std::string BoundText(const VBound& bound)
{
    switch (bound.kind) {
    case VBound::Kind::AtLeast:
        return "at least " + std::to_string(bound.low);
    case VBound::Kind::Within:
    case VBound::Kind::Among:
        return std::to_string(bound.low) + " to " + std::to_string(bound.high);
    case VBound::Kind::None:
        break;
    }
    return {};
}

} // namespace ostrand::tool
