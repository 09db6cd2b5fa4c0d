// global list, global get
#include "tools/commands.h"
#include "tools/config_folder.h"
#include "tools/global_rows.h"
#include "tools/output.h"
#include "tools/value_json.h"

namespace ostrand::tool {

namespace {

constexpr size_t kValueWidth = 40;
constexpr size_t kDefaultWidth = 30;

std::string ListText(GlobalConfig& config)
{
    const VUnknownPointer<GlobalConfig> defaults = GlobalDefaults(config.IsOrvane(), false);
    std::vector<std::vector<std::string>> rows = {{"NAME", "TYPE", "STATE", "VALUE", "DEFAULT"}};
    for (const GlobalRow* row : GlobalRows())
        rows.push_back({NameOf(*row, config.IsOrvane()), ValueClassName(row->type),
                        StateOf(*row->Member(config)) + std::string(row->isInTable ? "" : ", never saved"),
                        Shortened(TextOf(*row, config), kValueWidth),
                        Shortened(DefaultText(*row, *defaults), kDefaultWidth)});
    return Table(rows);
}

std::string ListJson(GlobalConfig& config)
{
    Json list = Json::array();
    for (const GlobalRow* row : GlobalRows())
        list.push_back(RowToJson(*row, config));
    return WriteJson(list);
}

/// For scripts: a text without quotes, the parts of a list or a structured value one a line.
std::string BareText(const Json& value)
{
    if (value.is_string())
        return Plain(value.get_ref<const std::string&>()) + "\n";
    if (!value.is_structured() || value.contains("size"))
        return ValueToText(value) + "\n";
    std::string out;
    for (const auto& [name, part] : value.items())
        if (value.is_array())
            out += BareText(part);
        else if (name != "hex")
            out += ValueToText(Json::object({{name, part}})) + "\n";
    return out;
}

} // namespace

Exit ListGlobal(const Request& request)
{
    ConfigFolder folder;
    if (const Exit opened = folder.OpenGlobal(request, Access::Read); opened != Exit::Done)
        return opened;
    folder.WarnOfDamage();
    return Print(request.asJson ? ListJson(folder.Config()) : ListText(folder.Config()));
}

Exit GetGlobal(const Request& request)
{
    const GlobalRow* const row = FindRow(request);
    if (!row)
        return Exit::Failed;
    ConfigFolder folder;
    if (const Exit opened = folder.OpenGlobal(request, Access::Read); opened != Exit::Done)
        return opened;
    if (const std::string damage = folder.DamageOf(*row); !damage.empty())
        return Fail(Exit::Failed, damage);
    if (request.asJson)
        return Print(WriteJson(RowToJson(*row, folder.Config())));
    return Print(BareText(JsonOf(*row, folder.Config())));
}

} // namespace ostrand::tool
