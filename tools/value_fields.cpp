#include "tools/value_fields.h"

#include "tools/text.h"
#include "tools/words.h"

#include <array>
#include <limits>
#include <type_traits>
#include <utility>

namespace ostrand::tool {

namespace {

using Refusal = std::optional<std::string>;

/// One number, real or truth value from a word.
template <class T>
Refusal SetScalar(T& field, const std::string& word)
{
    if constexpr (std::is_same_v<T, bool>) {
        const auto truth = ReadTruth(word);
        if (!truth)
            return "true or false";
        field = *truth;
    } else if constexpr (std::is_floating_point_v<T>) {
        const auto real = ReadReal(word);
        if (!real)
            return "a decimal number";
        field = *real;
    } else {
        constexpr int64_t kLow = std::numeric_limits<T>::min();
        constexpr int64_t kHigh = std::numeric_limits<T>::max();
        const auto number = ReadNumber(word);
        if (!number || *number < kLow || *number > kHigh)
            return "a number " + FromTo(kLow, kHigh);
        field = static_cast<T>(*number);
    }
    return std::nullopt;
}

template <class R, auto M>
consteval Field<R> Plain(const char* name)
{
    return {name, [](const R& r) { return Json(r.*M); },
            [](R& r, const std::string& word) { return SetScalar(r.*M, word); }};
}

Json GetFace(const VLogFont& font) { return Lossless(font.GetFace()); }

Refusal SetFace(VLogFont& font, const std::string& word)
{
    VUnicodeString face;
    if (!FromUtf8(word, face) || face.GetLength() > font.face.size())
        return "at most 32 characters";
    font.SetFace(face);
    return std::nullopt;
}

using Column = VListViewFields::ColumnInfo;

Json GetColumns(const VListViewFields& state)
{
    // A merge leaves more columns than count.
    Json columns = Json::array();
    for (const Column& c : state.columns)
        if (static_cast<int>(columns.size()) < state.columnCount)
            columns.push_back({{"width", c.width}, {"visible", c.visible}, {"order", c.order}});
    return columns;
}

std::vector<std::string> Cut(const std::string& text, char separator)
{
    std::vector<std::string> parts;
    size_t from = 0;
    for (size_t to = text.find(separator); to != std::string::npos; to = text.find(separator, from)) {
        parts.push_back(text.substr(from, to - from));
        from = to + 1;
    }
    parts.push_back(text.substr(from));
    return parts;
}

/// "WIDTH:VISIBLE:ORDER,WIDTH:VISIBLE:ORDER", as the columns are shown too; nothing for none.
Refusal SetColumns(VListViewFields& state, const std::string& word)
{
    constexpr const char* kTakes = "WIDTH:VISIBLE:ORDER for each column, with commas between";
    VArray<Column> columns;
    for (const std::string& text : word.empty() ? std::vector<std::string>() : Cut(word, ',')) {
        const std::vector<std::string> parts = Cut(text, ':');
        Column column;
        if (parts.size() != 3 || SetScalar(column.width, parts[0]) || SetScalar(column.visible, parts[1]) ||
            SetScalar(column.order, parts[2]))
            return kTakes;
        columns.Append(column);
    }
    state.columnCount = static_cast<int>(columns.GetCount());
    state.columns = std::move(columns);
    return std::nullopt;
}

constexpr auto kFontFields = std::to_array<Field<VLogFont>>({
    Plain<VLogFont, &VLogFont::height>("height"),
    Plain<VLogFont, &VLogFont::width>("width"),
    Plain<VLogFont, &VLogFont::escapement>("escapement"),
    Plain<VLogFont, &VLogFont::orientation>("orientation"),
    Plain<VLogFont, &VLogFont::weight>("weight"),
    Plain<VLogFont, &VLogFont::italic>("italic"),
    Plain<VLogFont, &VLogFont::underline>("underline"),
    Plain<VLogFont, &VLogFont::strikeOut>("strikeOut"),
    Plain<VLogFont, &VLogFont::charSet>("charSet"),
    Plain<VLogFont, &VLogFont::outPrecision>("outPrecision"),
    Plain<VLogFont, &VLogFont::clipPrecision>("clipPrecision"),
    Plain<VLogFont, &VLogFont::quality>("quality"),
    Plain<VLogFont, &VLogFont::pitchAndFamily>("pitchAndFamily"),
    {"face", GetFace, SetFace},
    Plain<VLogFont, &VLogFont::pointSize>("pointSize"),
});

constexpr auto kPlacementFields = std::to_array<Field<VWindowPlacement>>({
    Plain<VWindowPlacement, &VWindowPlacement::length>("length"),
    Plain<VWindowPlacement, &VWindowPlacement::flags>("flags"),
    Plain<VWindowPlacement, &VWindowPlacement::showCommand>("showCommand"),
    Plain<VWindowPlacement, &VWindowPlacement::minPositionX>("minPositionX"),
    Plain<VWindowPlacement, &VWindowPlacement::minPositionY>("minPositionY"),
    Plain<VWindowPlacement, &VWindowPlacement::maxPositionX>("maxPositionX"),
    Plain<VWindowPlacement, &VWindowPlacement::maxPositionY>("maxPositionY"),
    Plain<VWindowPlacement, &VWindowPlacement::normalLeft>("normalLeft"),
    Plain<VWindowPlacement, &VWindowPlacement::normalTop>("normalTop"),
    Plain<VWindowPlacement, &VWindowPlacement::normalRight>("normalRight"),
    Plain<VWindowPlacement, &VWindowPlacement::normalBottom>("normalBottom"),
});

constexpr auto kMarginFields = std::to_array<Field<VMarginData>>({
    Plain<VMarginData, &VMarginData::left>("left"),
    Plain<VMarginData, &VMarginData::right>("right"),
    Plain<VMarginData, &VMarginData::top>("top"),
    Plain<VMarginData, &VMarginData::bottom>("bottom"),
});

constexpr auto kColorNames =
    std::to_array<const char*>({"color0", "color1", "color2", "color3", "color4", "color5", "color6", "color7",
                                "color8", "color9", "color10", "color11", "color12", "color13", "color14", "color15"});

template <size_t... I>
consteval auto ColorFields(std::index_sequence<I...>)
{
    return std::array{
        Field<CustomColors>{kColorNames[I], [](const CustomColors& c) { return Json(c[I]); },
                            [](CustomColors& c, const std::string& word) { return SetScalar(c[I], word); }}...};
}

constexpr auto kColorFields = ColorFields(std::make_index_sequence<kColorNames.size()>());

constexpr auto kListViewFields = std::to_array<Field<VListViewFields>>({
    Plain<VListViewFields, &VListViewFields::first>("first"),
    Plain<VListViewFields, &VListViewFields::second>("second"),
    Plain<VListViewFields, &VListViewFields::third>("third"),
    Plain<VListViewFields, &VListViewFields::fourth>("fourth"),
    {"columns", GetColumns, SetColumns},
});

constexpr auto kExplorerFrameFields = std::to_array<Field<VExplorerFrameFields>>({
    Plain<VExplorerFrameFields, &VExplorerFrameFields::first>("first"),
    Plain<VExplorerFrameFields, &VExplorerFrameFields::second>("second"),
    Plain<VExplorerFrameFields, &VExplorerFrameFields::third>("third"),
});

} // namespace

// clang-format off
template <> std::span<const Field<VLogFont>> FieldsOf() { return kFontFields; }
template <> std::span<const Field<VWindowPlacement>> FieldsOf() { return kPlacementFields; }
template <> std::span<const Field<VMarginData>> FieldsOf() { return kMarginFields; }
template <> std::span<const Field<CustomColors>> FieldsOf() { return kColorFields; }
template <> std::span<const Field<VListViewFields>> FieldsOf() { return kListViewFields; }
template <> std::span<const Field<VExplorerFrameFields>> FieldsOf() { return kExplorerFrameFields; }
// clang-format on

std::string FromTo(int64_t low, int64_t high) { return "from " + std::to_string(low) + " to " + std::to_string(high); }

} // namespace ostrand::tool
