// global list; global get, session get
#include "tools/global_record.h"
#include "tools/output.h"
#include "tools/session_record.h"
#include "tools/value_commands.h"
#include "tools/value_json.h"

namespace ostrand::tool {

namespace {

constexpr size_t kValueWidth = 40;
constexpr size_t kDefaultWidth = 30;

std::string ListText(ValueRecord& record)
{
    const std::unique_ptr<ValueRecord> defaults = record.Defaults(false);
    std::vector<std::vector<std::string>> rows = {{"NAME", "TYPE", "STATE", "VALUE", "DEFAULT"}};
    for (const NamedValue& value : record.Values())
        rows.push_back({NameOf(value), ValueClassName(value.entry.type),
                        StateOf(*value.value) + std::string(value.entry.isInTable ? "" : ", never saved"),
                        Shortened(TextOf(value), kValueWidth),
                        Shortened(DefaultText(value.entry, FindValue(*defaults, value.value->name)), kDefaultWidth)});
    return Table(rows);
}

std::string ListJson(ValueRecord& record)
{
    Json list = Json::array();
    for (const NamedValue& value : record.Values())
        list.push_back(RowToJson(value));
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

Exit OpenGlobalRecord(const Request& request, Access access, OpenedRecord& opened)
{
    ConfigFolder& folder = opened.sessions.Folder();
    if (const Exit done = folder.OpenGlobal(request, access); done != Exit::Done)
        return done;
    opened.record =
        std::make_unique<GlobalRecord>(VUnknownPointer<GlobalConfig>::Share(&folder.Config()), &folder.GlobalKey());
    return Exit::Done;
}

Exit OpenSessionRecord(const Request& request, Access access, OpenedRecord& opened)
{
    VUnknownPointer<SessionConfig> session;
    if (const Exit done = opened.sessions.Open(request, access, session); done != Exit::Done)
        return done;
    opened.record = std::make_unique<SessionRecord>(std::move(session));
    return Exit::Done;
}

Exit ListValues(const Request& request, RecordOpener open)
{
    OpenedRecord opened;
    if (const Exit done = open(request, Access::Read, opened); done != Exit::Done)
        return done;
    opened.sessions.Folder().WarnOfDamage(*opened.record);
    return Print(request.asJson ? ListJson(*opened.record) : ListText(*opened.record));
}

Exit GetValue(const Request& request, RecordOpener open)
{
    OpenedRecord opened;
    if (const Exit done = open(request, Access::Read, opened); done != Exit::Done)
        return done;
    const std::optional<NamedValue> value = AskedValue(*opened.record, request.name);
    if (!value)
        return Exit::Failed;
    if (const std::string damage = opened.sessions.Folder().DamageOf(*opened.record, *value); !damage.empty())
        return Fail(Exit::Failed, damage);
    return Print(request.asJson ? WriteJson(RowToJson(*value)) : BareText(JsonOf(*value)));
}

} // namespace ostrand::tool
