// schema global, session, terminal and so on
#include "tools/output.h"
#include "tools/schema_pages.h"

namespace ostrand::tool {

namespace {

constexpr size_t kDefaultWidth = 36;

Json RowToSchema(const NamedValue& value)
{
    const VSchemaEntry& row = value.entry;
    const VBound& bound = row.bound;
    Json oldNames = Json::array();
    if (row.formerly)
        oldNames.push_back(Lossless(row.formerly));
    return {{"name", Lossless(row.name)},
            {"nameInOrvane", Lossless(row.NameFor(true))},
            {"type", ValueClassName(row.type)},
            {"default", row.computed ? Json() : JsonOf(value)},
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
std::string Notes(const VSchemaEntry& row)
{
    std::string notes;
    const auto add = [&notes](const std::string& note) { notes += " " + note; };
    if (row.nameInOrvane)
        add("In Orvane: " + Lossless(row.nameInOrvane) + ".");
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

std::string SchemaJson(const SchemaPage& page)
{
    Json list = Json::array();
    for (const NamedValue& value : page.values)
        list.push_back(RowToSchema(value));
    return WriteJson(list);
}

std::string SchemaText(const SchemaPage& page)
{
    std::vector<std::vector<std::string>> rows = {{"NAME", "TYPE", "DEFAULT", "RANGE", "MEANING"}};
    for (const NamedValue& value : page.values)
        rows.push_back({Lossless(value.entry.name), ValueClassName(value.entry.type),
                        Shortened(DefaultText(value.entry, value), kDefaultWidth), BoundText(value.entry.bound),
                        Lossless(value.entry.meaning) + Notes(value.entry)});
    return Table(rows);
}

std::string SchemaMarkdown(const SchemaPage& page)
{
    std::string text = "# " + std::string(page.title) + "\n\n" + page.about +
                       "\n\n| Name | Type | Default | Range | Meaning |\n|---|---|---|---|---|\n";
    for (const NamedValue& value : page.values) {
        const VSchemaEntry& row = value.entry;
        const std::string usual = row.computed ? Lossless(row.computed) : "`" + TextOf(value) + "`";
        text += "| " + Lossless(row.name) + " | " + ValueClassName(row.type) + " | " + usual + " | " +
                BoundText(row.bound) + " | " + Lossless(row.meaning) + Notes(row) + " |\n";
    }
    std::string rules;
    for (const VSchemaView& schema : page.rules)
        for (size_t i = 0; i < schema.GetCount(); ++i)
            if (schema[i].IsRule())
                rules += "- " + Lossless(schema[i].meaning) + "\n";
    if (!rules.empty())
        text += "\n## Rules\n\nThey run after reading and after a merge, on current values only.\n\n" + rules;
    return text;
}

} // namespace

Exit Describe(const Request& request, const SchemaPage& page)
{
    if (request.asJson)
        return Print(SchemaJson(page));
    return Print(request.asMarkdown ? SchemaMarkdown(page) : SchemaText(page));
}

} // namespace ostrand::tool
