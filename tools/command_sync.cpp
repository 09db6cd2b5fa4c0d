// sync show
#include "config/session/synchronize.h"
#include "core/format.h"
#include "tools/commands.h"
#include "tools/config_folder.h"
#include "tools/json_writer.h"
#include "tools/output.h"

namespace ostrand::tool {

namespace {

Json ToJson(const SynchronizeTask& task)
{
    Json sources = Json::array();
    for (const SynchronizeSource& source : task.sources)
        sources.push_back(
            {{"session", Lossless(source.session)}, {"path", Lossless(source.path)}, {"recurse", source.recurse}});
    Json targets = Json::array();
    for (const SynchronizeTarget& target : task.targets)
        targets.push_back({{"session", Lossless(target.session)}, {"path", Lossless(target.path)}});
    return {{"name", Lossless(task.name)},
            {"type", task.type},
            {"masterOverwrites", task.masterOverwrites},
            {"sources", sources},
            {"targets", targets}};
}

/// "2024-02-29T12:34:56.789Z"; empty for never and for what is no date.
std::string TimeText(VFileTime time)
{
    VCalendarTime at;
    if (time.ticks == 0 || !ToCalendar(time, at))
        return {};
    return Lossless(Format(u"%1!04u!-%2!02u!-%3!02u!T%4!02u!:%5!02u!:%6!02u!.%7!03u!Z", at.year, at.month, at.day,
                           at.hour, at.minute, at.second, at.millisecond));
}

std::string PlaceText(const VUnicodeString& session, const VUnicodeString& path)
{
    const std::string local = Plain(Lossless(path));
    return session.IsEmpty() ? local : Plain(Lossless(session)) + ": " + local;
}

std::string TaskText(const SynchronizeTask& task)
{
    std::string text = Plain(Lossless(task.name)) + "\n";
    std::vector<std::vector<std::string>> lines = {
        {"  type", std::to_string(task.type) + (task.masterOverwrites ? ", the master overwrites" : "")}};
    for (const SynchronizeSource& source : task.sources)
        lines.push_back(
            {"  from", PlaceText(source.session, source.path) + (source.recurse ? ", with subfolders" : "")});
    for (const SynchronizeTarget& target : task.targets)
        lines.push_back({"  to", PlaceText(target.session, target.path)});
    return text + Table(lines);
}

} // namespace

Exit ShowSynchronizeTasks(const Request& request)
{
    ConfigFolder folder;
    if (const Exit opened = folder.OpenGlobal(request, Access::Read); opened != Exit::Done)
        return opened;
    folder.WarnOfBrokenLines(u"QuickSync");
    const SynchronizeProfile& profile = folder.Config().quickSynchronizeTask;
    const std::string time = TimeText(profile.lastSyncTime);
    if (request.asJson) {
        Json tasks = Json::array();
        for (const SynchronizeTask& task : profile.tasks)
            tasks.push_back(ToJson(task));
        return Print(WriteJson({{"lastSync", time.empty() ? Json() : Json(time)},
                                {"filter", Lossless(profile.filter)},
                                {"tasks", tasks}}));
    }
    std::string text = Table({{"last synchronized", time.empty() ? "never" : time},
                              {"filter", profile.filter.IsEmpty() ? "none" : Plain(Lossless(profile.filter))}});
    for (const SynchronizeTask& task : profile.tasks)
        text += "\n" + TaskText(task);
    return Print(text);
}

} // namespace ostrand::tool
