#include "tools/value_json.h"

#include "config/global/color_scheme_list.h"
#include "keymap/profile_keymap.h"
#include "profile/schema.h"
#include "profile/time_value.h"
#include "tools/binding_text.h"
#include "tools/text.h"
#include "tools/value_fields.h"
#include "tools/words.h"

#include <algorithm>
#include <limits>
#include <optional>

namespace ostrand::tool {

namespace {

using Words = std::span<const std::string>;

/// Why words were not taken: "takes <takes>, not <given>".
struct Refusal {
    std::string takes;
    std::string given;
};
using Outcome = std::optional<Refusal>;

std::string Given(Words words) { return words.size() == 1 ? Cited(words[0]) : std::to_string(words.size()) + " words"; }

std::string HexOf(std::span<const uint8_t> bytes)
{
    constexpr std::string_view kDigits = "0123456789abcdef";
    std::string hex;
    for (const uint8_t byte : bytes) {
        hex += kDigits[byte >> 4];
        hex += kDigits[byte & 0xF];
    }
    return hex;
}

// Numbers

template <class T>
Json ToJson(const VProfile<T>& value)
{
    return value.value;
}

Json ToJson(const VProfile<VTriState>& value)
{
    return value.value == VTriState::Undetermined ? Json() : Json(value.value == VTriState::True);
}

/// "an int", "a font", "margins".
std::string TypeText(VValueClass type)
{
    const std::string name = ValueClassName(type);
    if (name.ends_with('s'))
        return name;
    return (name.starts_with('i') || name.starts_with('e') ? "an " : "a ") + name;
}

/// The number as the user may give it: the class's 32 bits, narrowed by the entry's bound.
Outcome SetNumber(const VSchemaEntry& entry, Words words, int64_t low, int64_t high, int64_t& out)
{
    const VBound& bound = entry.bound;
    std::string range;
    if (bound.kind == VBound::Kind::AtLeast) {
        range = " of at least " + std::to_string(bound.low);
    } else if (bound.kind != VBound::Kind::None) {
        range = " " + FromTo(bound.low, bound.high);
    } else {
        range = " " + FromTo(low, high);
    }
    const auto number = words.size() == 1 ? ReadNumber(words[0]) : std::nullopt;
    if (!number || *number < low || *number > high || !bound.Allows(*number)) {
        const std::string given = number ? words[0] : Given(words);
        return Refusal{TypeText(entry.type) + range, given};
    }
    out = *number;
    return std::nullopt;
}

template <class T>
Outcome Set(VProfile<T>& value, const VSchemaEntry& entry, Words words)
{
    // Stores hold 32 bits, whatever the class's own size.
    constexpr int64_t kLow = std::is_signed_v<T> ? std::numeric_limits<int32_t>::min() : 0;
    constexpr int64_t kHigh =
        std::is_signed_v<T> ? std::numeric_limits<int32_t>::max() : std::numeric_limits<uint32_t>::max();
    int64_t number = 0;
    Outcome refusal = SetNumber(entry, words, kLow, kHigh, number);
    if (!refusal)
        value = static_cast<T>(number);
    return refusal;
}

Outcome Set(VProfile<bool>& value, const VSchemaEntry&, Words words)
{
    const auto truth = words.size() == 1 ? ReadTruth(words[0]) : std::nullopt;
    if (!truth)
        return Refusal{"a bool, true or false", Given(words)};
    value = *truth;
    return std::nullopt;
}

Outcome Set(VProfile<VTriState>& value, const VSchemaEntry&, Words words)
{
    const auto truth = words.size() == 1 ? ReadTruth(words[0]) : std::nullopt;
    if (truth)
        value = *truth ? VTriState::True : VTriState::False;
    else if (words.size() == 1 && words[0] == "undetermined")
        value = VTriState::Undetermined;
    else
        return Refusal{"a tristate, true, false or undetermined", Given(words)};
    return std::nullopt;
}

// Texts

Json ToJson(const VProfileString& value) { return Lossless(value.Value()); }

Outcome Set(VProfileString& value, const VSchemaEntry&, Words words)
{
    VUnicodeString text;
    if (words.size() != 1 || !FromUtf8(words[0], text))
        return Refusal{"one string", Given(words)};
    value = text;
    return std::nullopt;
}

/// What a secret is stays with those who ask for it.
template <class V, class T>
Json ToJson(const VProfileSecret<V, T>& value)
{
    return value.IsEmpty() ? "<empty>" : "<set>";
}

template <class V, class T>
Outcome Set(VProfileSecret<V, T>& value, const VSchemaEntry&, Words words)
{
    VUnicodeString text;
    if (words.size() != 1 || !FromUtf8(words[0], text))
        return Refusal{"one string", std::to_string(words.size()) + " words"}; // which may be the secret
    value.SetValue(text.c_str());
    return std::nullopt;
}

Json ToJson(const VProfileStringList& value)
{
    Json list = Json::array();
    for (const VUnicodeString& text : value.Value())
        list.push_back(Lossless(text));
    return list;
}

Outcome Set(VProfileStringList& value, const VSchemaEntry&, Words words)
{
    VStringArray list;
    for (const std::string& word : words) {
        VUnicodeString text;
        if (!FromUtf8(word, text))
            return Refusal{"strings", Cited(word)};
        list.Append(text);
    }
    value = list;
    return std::nullopt;
}

/// One text with a line feed between lines, whatever ends them in the store.
Json ToJson(const VProfileMultiLineString& value)
{
    std::string text;
    for (const VUnicodeString& line : value.Value())
        text += (&line == value.Value().begin() ? "" : "\n") + Lossless(line);
    return text;
}

/// A word that holds line feeds, or a line in each word.
Outcome Set(VProfileMultiLineString& value, const VSchemaEntry&, Words words)
{
    VUnicodeString text, line;
    for (const std::string& word : words) {
        if (!FromUtf8(word, line))
            return Refusal{"lines of text", Cited(word)};
        text += &word == words.data() ? u"" : u"\n";
        text += line;
    }
    if (text.IsEmpty())
        value = VStringArray();
    else
        value.SetText(text.c_str());
    return std::nullopt;
}

Json ToJson(const VProfileTime& value)
{
    VUnicodeString text;
    return FormatTimeText(value.Value(), text) ? Json(Lossless(text)) : Json();
}

Outcome Set(VProfileTime& value, const VSchemaEntry&, Words words)
{
    VUnicodeString text;
    VFileTime time;
    if (words.size() != 1 || !FromUtf8(words[0], text) || !ParseTimeText(text, time))
        return Refusal{"a time, YEAR:MONTH:DAY:HOUR:MINUTE:SECOND:MILLISECOND", Given(words)};
    value = time;
    return std::nullopt;
}

// Structured values

template <class R>
Json FieldsToJson(const R& record)
{
    Json object = Json::object();
    for (const Field<R>& field : FieldsOf<R>())
        object[field.name] = field.get(record);
    return object;
}

template <class R>
std::string FieldNames()
{
    std::string names;
    for (const Field<R>& field : FieldsOf<R>())
        names += (names.empty() ? "" : ", ") + std::string(field.name);
    return names;
}

template <class R>
Outcome SetField(R& record, const VSchemaEntry& entry, const std::string& word)
{
    const size_t equals = word.find('=');
    const auto fields = FieldsOf<R>();
    const auto field =
        std::find_if(fields.begin(), fields.end(), [&](const Field<R>& f) { return f.name == word.substr(0, equals); });
    const std::string type = TypeText(entry.type);
    if (equals == std::string::npos || field == fields.end())
        return Refusal{type + " as FIELD=VALUE with the fields " + FieldNames<R>(), Cited(word)};
    const std::string text = word.substr(equals + 1);
    if (const auto takes = field->set(record, text))
        return Refusal{type + " whose " + field->name + " is " + *takes, Cited(text)};
    return std::nullopt;
}

template <class R>
Outcome SetFields(R& record, const VSchemaEntry& entry, Words words)
{
    R changed = record;
    for (const std::string& word : words)
        if (Outcome refusal = SetField(changed, entry, word))
            return refusal;
    record = changed;
    return std::nullopt;
}

template <class R>
Json ToJson(const VProfile2<R, VProfileBinary>& value)
{
    std::array<uint8_t, R::kStoredSize> bytes;
    value.Pack(bytes);
    Json object = FieldsToJson(value.Value());
    object["hex"] = HexOf(bytes);
    return object;
}

template <class R>
Outcome Set(VProfile2<R, VProfileBinary>& value, const VSchemaEntry& entry, Words words)
{
    if (words.size() != 1 || !words[0].starts_with(kBlockMark))
        return SetFields(value.Value(), entry, words);
    const auto bytes = ReadBlock(words[0]);
    if (!bytes || bytes->size() != R::kStoredSize)
        return Refusal{TypeText(entry.type) + " as hex: and the digits of " + std::to_string(R::kStoredSize) + " bytes",
                       bytes ? "of " + std::to_string(bytes->size()) : Cited(words[0])};
    value.Unpack(std::span<const uint8_t, R::kStoredSize>(bytes->data(), R::kStoredSize));
    return std::nullopt;
}

template <class Fields>
Json ToJson(const VProfileViewState<Fields>& value)
{
    return FieldsToJson<Fields>(value);
}

template <class Fields>
Outcome Set(VProfileViewState<Fields>& value, const VSchemaEntry& entry, Words words)
{
    return SetFields<Fields>(value, entry, words);
}

Json ToJson(const VProfileBlob& value) { return {{"size", value.GetSize()}, {"hex", HexOf(value.data)}}; }

Outcome Set(VProfileBlob& value, const VSchemaEntry&, Words words)
{
    const auto bytes = words.size() == 1 ? ReadBlock(words[0]) : std::nullopt;
    if (!bytes)
        return Refusal{"a blob as hex: and pairs of digits", Given(words)};
    value.SetData(*bytes);
    return std::nullopt;
}

/// Their names; the schemes themselves have commands of their own.
Json ToJson(const ProfileColorSchemeList& list)
{
    Json names = Json::array();
    for (size_t i = 0; i < list.GetCount(); ++i)
        names.push_back(Lossless(list.GetAt(i).name));
    return names;
}

Outcome Set(ProfileColorSchemeList&, const VSchemaEntry&, Words words)
{
    return Refusal{"changes by the commands scheme set, new, rename and delete", Given(words)};
}

/// One line for each own binding; the key map itself has commands of its own.
Json ToJson(const ProfileKeymap& map)
{
    Json lines = Json::array();
    ForEachBinding(map, [&lines](unsigned index, const Binding& binding) {
        lines.push_back(KeyCombinationText(index) + " -> " + ActionText(binding));
    });
    return lines;
}

Outcome Set(ProfileKeymap&, const VSchemaEntry&, Words words)
{
    return Refusal{"its bindings from key map files, see keymap list and keymap convert", Given(words)};
}

/// One class of values: both ways of its objects.
struct ValueKind {
    VValueClass type;
    Json (*toJson)(const VProfileData&);
    Outcome (*set)(VProfileData&, const VSchemaEntry&, Words);
};

template <class V>
constexpr ValueKind Kind(VValueClass type)
{
    return {type, [](const VProfileData& value) { return ToJson(static_cast<const V&>(value)); },
            [](VProfileData& value, const VSchemaEntry& entry, Words words) {
                return Set(static_cast<V&>(value), entry, words);
            }};
}

constexpr std::array kKinds = {
    Kind<VProfile<bool>>(VValueClass::Bool),
    Kind<VProfile<int>>(VValueClass::Int),
    Kind<VProfile<unsigned int>>(VValueClass::UInt),
    Kind<VProfile<unsigned long>>(VValueClass::ULong),
    Kind<VProfile<VTriState>>(VValueClass::TriState),
    Kind<VProfileString>(VValueClass::String),
    Kind<VProfileStringList>(VValueClass::Strings),
    Kind<VProfileLogFont>(VValueClass::Font),
    Kind<VProfileWindowPlacement>(VValueClass::Placement),
    Kind<VProfileMargins>(VValueClass::Margins),
    Kind<VProfileColors>(VValueClass::Colors),
    Kind<VProfileListViewState>(VValueClass::ListView),
    Kind<VProfileExplorerFrameState>(VValueClass::ExplorerFrame),
    Kind<VProfileTime>(VValueClass::Time),
    Kind<VProfileBlob>(VValueClass::Blob),
    Kind<ProfileColorSchemeList>(VValueClass::ColorSchemes),
    Kind<VProfileMultiLineString>(VValueClass::MultiLine),
    Kind<ProfileKeymap>(VValueClass::Keymap),
    Kind<VProfileEncodedString>(VValueClass::Encoded),
    Kind<VProfileBlowfishString>(VValueClass::Encrypted),
};

const ValueKind& KindOf(VValueClass type)
{
    return *std::find_if(kKinds.begin(), kKinds.end(), [type](const ValueKind& kind) { return kind.type == type; });
}

std::string Joined(const Json& elements, const char* between, std::string (*text)(const Json&))
{
    std::string out;
    for (const Json& element : elements)
        out += (out.empty() ? "" : between) + text(element);
    return out;
}

/// "100:true:0" for one column of a list view.
std::string ColumnText(const Json& column)
{
    return Joined(column, ":", [](const Json& part) { return part.dump(); });
}

std::string FieldText(const Json& field)
{
    return field.is_array() ? Joined(field, ",", ColumnText) : ValueToText(field);
}

} // namespace

Json ValueToJson(VValueClass type, const VProfileData& value) { return KindOf(type).toJson(value); }

std::string ValueToText(const Json& value)
{
    if (value.is_null())
        return "undetermined";
    if (value.is_string())
        return Quoted(value.get_ref<const std::string&>());
    if (value.is_array())
        return "[" + Joined(value, ", ", ValueToText) + "]";
    if (!value.is_object())
        return value.dump();
    if (value.contains("size"))
        return std::string(kBlockMark) + value["hex"].get<std::string>();
    std::string out;
    for (const auto& [name, field] : value.items())
        if (name != "hex")
            out += (out.empty() ? "" : " ") + name + "=" + FieldText(field);
    return out;
}

std::string DifferenceText(const Json& value, const Json& other)
{
    if (!value.is_object() || value.contains("size"))
        return ValueToText(value);
    Json fields = Json::object();
    for (const auto& [name, field] : value.items())
        if (other.at(name) != field)
            fields[name] = field;
    return ValueToText(fields);
}

bool SetFromWords(const VSchemaEntry& entry, VProfileData& value, std::span<const std::string> words,
                  std::string& problem)
{
    const Outcome refusal = KindOf(entry.type).set(value, entry, words);
    if (refusal)
        problem = Cited(Lossless(value.name)) + " takes " + refusal->takes + ", not " + refusal->given;
    return !refusal;
}

} // namespace ostrand::tool
