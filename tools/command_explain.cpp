// explain: why a global value is what it is
#include "profile/policy.h"
#include "tools/commands.h"
#include "tools/global_rows.h"
#include "tools/output.h"
#include "tools/value_json.h"
#include "tools/value_source.h"

#include <optional>

namespace ostrand::tool {

namespace {

/// What an administrator decided about the value.
struct Lock {
    unsigned value = 0;
    ValuePlace place;
};

struct Explanation {
    ValueSource source;
    bool isDifferent;
    std::optional<Lock> lock;
};

std::optional<Lock> LockOf(const char16_t* name)
{
    Lock lock;
    if (!FindPolicy(name, lock.place) || !ReadPolicyDword(name, &lock.value))
        return std::nullopt;
    return lock;
}

std::string StoredText(const GlobalRow& row, const ValueSource& source)
{
    if (source.place.line > 0)
        return PlaceText(source.place) + (source.detail.empty() ? "" : ", " + source.detail);
    return row.isInTable ? "not yet; the next save writes it" : "no; it is read, and never saved with the others";
}

std::string LockText(const std::optional<Lock>& lock)
{
    if (!lock)
        return "no";
    return "by an administrator's policy, to " + std::to_string(lock->value) + ", in " + PlaceText(lock->place);
}

std::string ExplainText(const GlobalRow& row, const Explanation& why, GlobalConfig& config, GlobalConfig& defaults)
{
    std::vector<std::vector<std::string>> lines = {
        {"value", TextOf(row, config)},
        {"stored", StoredText(row, why.source)},
        {"default", DefaultText(row, defaults) + (why.isDifferent ? ", which is another" : ", which is the same")},
        {"locked", LockText(why.lock)},
        {"type", ValueClassName(row.type)},
    };
    if (const std::string range = BoundText(row.bound); !range.empty())
        lines.push_back({"range", range});
    return NameOf(row, config.IsOrvane()) + "\n" + Lossless(row.meaning) + "\n\n" + Table(lines);
}

std::string ExplainJson(const GlobalRow& row, const Explanation& why, GlobalConfig& config, GlobalConfig& defaults)
{
    Json entry = RowToJson(row, config);
    entry["default"] = row.computed ? Json() : JsonOf(row, defaults);
    entry["isDefault"] = !why.isDifferent;
    AddSource(entry, why.source);
    entry["locked"] = nullptr;
    if (why.lock)
        entry["locked"] = {{"value", why.lock->value}, {"file", why.lock->place.file}, {"line", why.lock->place.line}};
    entry["meaning"] = Lossless(row.meaning);
    return WriteJson(entry);
}

} // namespace

Exit ExplainGlobal(const Request& request)
{
    const GlobalRow* const row = FindRow(request);
    if (!row)
        return Exit::Failed;
    ConfigFolder folder;
    if (const Exit opened = folder.OpenGlobal(request, Access::Read); opened != Exit::Done)
        return opened;
    if (const std::string damage = folder.DamageOf(*row); !damage.empty())
        Warn(damage + "; its default is shown");
    ValueSources sources(folder);
    const Explanation why = {sources.SourceOf(*row), sources.IsDifferent(*row),
                             LockOf(row->NameFor(request.IsOrvane()))};
    const auto write = request.asJson ? ExplainJson : ExplainText;
    return Print(write(*row, why, folder.Config(), sources.Defaults()));
}

} // namespace ostrand::tool
