// explain, session explain: why a value is what it is
#include "profile/policy.h"
#include "tools/output.h"
#include "tools/value_commands.h"
#include "tools/value_json.h"
#include "tools/value_source.h"

#include <optional>

namespace ostrand::tool {

namespace {

struct Explanation {
    NamedValue value;
    std::optional<NamedValue> usual;
    ValueSource source;
    bool isDifferent;
    std::optional<VPolicyValue> lock;
};

std::string StoredText(const Explanation& why)
{
    const ValueSource& source = why.source;
    if (source.place.line > 0)
        return PlaceText(source.place) + (source.detail.empty() ? "" : ", " + source.detail);
    return why.value.entry.isInTable ? "not yet; the next save writes it"
                                     : "no; it is read, and never saved with the others";
}

std::string LockText(const std::optional<VPolicyValue>& lock)
{
    if (!lock)
        return "no";
    return "by an administrator's policy, to " + std::to_string(lock->value) + ", in " + PlaceText(lock->place);
}

std::string ExplainText(const Explanation& why)
{
    const VSchemaEntry& entry = why.value.entry;
    std::vector<std::vector<std::string>> lines = {
        {"value", TextOf(why.value)},
        {"stored", StoredText(why)},
        {"default", DefaultText(entry, why.usual) + (why.isDifferent ? ", which is another" : ", which is the same")},
        {"locked", LockText(why.lock)},
        {"type", ValueClassName(entry.type)},
    };
    if (const std::string range = BoundText(entry.bound); !range.empty())
        lines.push_back({"range", range});
    return NameOf(why.value) + "\n" + Lossless(entry.meaning) + "\n\n" + Table(lines);
}

std::string ExplainJson(const Explanation& why)
{
    Json entry = RowToJson(why.value);
    entry["default"] = why.value.entry.computed || !why.usual ? Json() : JsonOf(*why.usual);
    entry["isDefault"] = !why.isDifferent;
    AddSource(entry, why.source);
    entry["locked"] = nullptr;
    if (why.lock)
        entry["locked"] = {{"value", why.lock->value}, {"file", why.lock->place.file}, {"line", why.lock->place.line}};
    entry["meaning"] = Lossless(why.value.entry.meaning);
    return WriteJson(entry);
}

} // namespace

Exit ExplainValue(const Request& request, RecordOpener open)
{
    OpenedRecord opened;
    if (const Exit done = open(request, Access::Read, opened); done != Exit::Done)
        return done;
    ValueRecord& record = *opened.record;
    const std::optional<NamedValue> value = AskedValue(record, request.name);
    if (!value)
        return Exit::Failed;
    if (const std::string damage = opened.sessions.Folder().DamageOf(record, *value); !damage.empty())
        Warn(damage + "; its default is shown");
    ValueSources sources(opened.sessions.Folder(), record);
    const Explanation why = {*value, sources.DefaultOf(*value), sources.SourceOf(*value), sources.IsDifferent(*value),
                             FindPolicy(value->value->name.c_str())};
    return Print(request.asJson ? ExplainJson(why) : ExplainText(why));
}

} // namespace ostrand::tool
