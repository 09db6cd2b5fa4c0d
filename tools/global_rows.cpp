#include "tools/global_rows.h"

#include "core/fold.h"
#include "tools/output.h"
#include "tools/suggest.h"
#include "tools/value_json.h"

namespace ostrand::tool {

namespace {

/// Why the name isn't one, where the schema tells: the other application's name, or an old one.
std::string Explanation(std::u16string_view name, bool isOrvane)
{
    for (const GlobalRow* row : GlobalRows()) {
        const std::string own = Cited(NameOf(*row, isOrvane));
        if (EqualNoCase(row->NameFor(!isOrvane), name))
            return std::string("the other application's name of ") + own + "; see --app";
        if (row->formerly && EqualNoCase(row->formerly, name))
            return "an old name of " + own;
    }
    return {};
}

} // namespace

const GlobalRow* FindRow(const Request& request)
{
    VUnicodeString name;
    const bool isUtf8 = FromUtf8(request.name, name);
    const GlobalRow* const row = isUtf8 ? FindGlobalRow(name, request.IsOrvane()) : nullptr;
    if (row)
        return row;
    std::string text = "no value is named " + Cited(request.name);
    if (const std::string why = Explanation(name, request.IsOrvane()); !why.empty()) {
        text += "; it is " + why;
    } else if (const std::string near = NearestName(request.name, RowNames(request.IsOrvane())); !near.empty()) {
        text += "; did you mean " + Cited(near) + "?";
    }
    Fail(Exit::Failed, text);
    return nullptr;
}

std::vector<std::string> RowNames(bool isOrvane)
{
    std::vector<std::string> names;
    for (const GlobalRow* row : GlobalRows())
        names.push_back(NameOf(*row, isOrvane));
    return names;
}

std::string NameOf(const GlobalRow& row, bool isOrvane) { return Lossless(row.NameFor(isOrvane)); }

Json JsonOf(const GlobalRow& row, GlobalConfig& config) { return ValueToJson(row.type, *row.Member(config)); }

std::string TextOf(const GlobalRow& row, GlobalConfig& config) { return ValueToText(JsonOf(row, config)); }

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

Json RowToJson(const GlobalRow& row, GlobalConfig& config)
{
    return {{"name", NameOf(row, config.IsOrvane())},
            {"type", ValueClassName(row.type)},
            {"value", JsonOf(row, config)},
            {"state", StateOf(*row.Member(config))},
            {"saved", row.isInTable}};
}

std::string DefaultText(const GlobalRow& row, GlobalConfig& defaults)
{
    return row.computed ? "(" + Lossless(row.computed) + ")" : TextOf(row, defaults);
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
