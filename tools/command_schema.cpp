// schema global: what settings there are, as a table, as JSON, as a page for people.
#include "tools/commands.h"
#include "tools/global_rows.h"
#include "tools/output.h"

namespace ostrand::tool {

namespace {

constexpr size_t kDefaultWidth = 36;

Json RowToSchema(const GlobalRow& row, GlobalConfig& defaults)
{
    const VBound& bound = row.bound;
    Json oldNames = Json::array();
    if (row.formerly)
        oldNames.push_back(Lossless(row.formerly));
    return {{"name", NameOf(row, false)},
            {"nameInOrvane", NameOf(row, true)},
            {"type", ValueClassName(row.type)},
            {"default", row.computed ? Json() : JsonOf(row, defaults)},
            {"computed", row.computed ? Json(Lossless(row.computed)) : Json()},
            {"minimum", bound.kind == VBound::Kind::None ? Json() : Json(bound.low)},
            {"maximum",
             bound.kind == VBound::Kind::None || bound.kind == VBound::Kind::AtLeast ? Json() : Json(bound.high)},
            {"saved", row.isInTable},
            {"merged", row.isMerged},
            {"oldNames", oldNames},
            {"meaning", Lossless(row.meaning)}};
}

/// What a reader should know beside type, default and bound.
std::string Notes(const GlobalRow& row)
{
    std::string notes;
    const auto add = [&notes](const std::string& note) { notes += " " + note; };
    if (row.nameInOrvane)
        add("In Orvane: " + NameOf(row, true) + ".");
    if (row.formerly)
        add("Formerly: " + Lossless(row.formerly) + ".");
    if (row.bound.kind == VBound::Kind::Among)
        add("Any other stored number becomes the default.");
    if (!row.isMerged)
        add("Never merged.");
    if (!row.isInTable)
        add("Read, never saved with the record.");
    return notes;
}

std::string SchemaJson(GlobalConfig& defaults)
{
    Json list = Json::array();
    for (const GlobalRow* row : GlobalRows())
        list.push_back(RowToSchema(*row, defaults));
    return WriteJson(list);
}

std::string SchemaText(GlobalConfig& defaults)
{
    std::vector<std::vector<std::string>> rows = {{"NAME", "TYPE", "DEFAULT", "RANGE", "MEANING"}};
    for (const GlobalRow* row : GlobalRows())
        rows.push_back({NameOf(*row, false), ValueClassName(row->type),
                        Shortened(DefaultText(*row, defaults), kDefaultWidth), BoundText(row->bound),
                        Lossless(row->meaning) + Notes(*row)});
    return Table(rows);
}

std::string SchemaMarkdown(GlobalConfig& defaults)
{
    std::string text =
        "# Global settings\n\n"
        "Made by `ostrandcfg schema global --markdown`; don't edit. All values stand in the key `Global` of "
        "the store. A value that is missing there, or of another kind, has its default. A number outside "
        "its range is corrected when it is read, and the next save writes the corrected one.\n\n"
        "| Name | Type | Default | Range | Meaning |\n|---|---|---|---|---|\n";
    for (const GlobalRow* row : GlobalRows()) {
        const std::string value = row->computed ? Lossless(row->computed) : "`" + TextOf(*row, defaults) + "`";
        text += "| " + NameOf(*row, false) + " | " + ValueClassName(row->type) + " | " + value + " | " +
                BoundText(row->bound) + " | " + Lossless(row->meaning) + Notes(*row) + " |\n";
    }
    text += "\n## Rules\n\nThey run after reading and after a merge, on current values only.\n\n";
    for (const VSchemaRow<GlobalConfig>& row : GlobalConfig::Schema().Rows())
        if (row.IsRule())
            text += "- " + Lossless(row.meaning) + "\n";
    return text;
}

} // namespace

Exit SchemaOfGlobal(const Request& request)
{
    const VUnknownPointer<GlobalConfig> defaults = GlobalDefaults(false, false);
    if (request.asJson)
        return Print(SchemaJson(*defaults));
    return Print(request.asMarkdown ? SchemaMarkdown(*defaults) : SchemaText(*defaults));
}

} // namespace ostrand::tool
