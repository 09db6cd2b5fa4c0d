// Synchronize tasks in one key.

#include "config/session/synchronize.h"
#include "tests/vectors/json_store.h"
#include "tests/vectors/json_values.h"

namespace ostrand::vectors {

namespace {

constexpr const char16_t* kName = u"QuickSync";

Json FromTask(const SynchronizeTask& task)
{
    Json sources = Json::array();
    for (const SynchronizeSource& source : task.sources)
        sources.push_back(
            {{"session", FromText(source.session)}, {"path", FromText(source.path)}, {"recurse", source.recurse}});
    Json targets = Json::array();
    for (const SynchronizeTarget& target : task.targets)
        targets.push_back({{"session", FromText(target.session)}, {"path", FromText(target.path)}});
    return {{"name", FromText(task.name)},
            {"type", task.type},
            {"master_overwrites", task.masterOverwrites},
            {"sources", sources},
            {"targets", targets}};
}

SynchronizeTask ToTask(const Json& json)
{
    SynchronizeTask task;
    task.name = ToText(json.at("name"));
    task.type = json.at("type");
    task.masterOverwrites = json.at("master_overwrites");
    for (const Json& source : json.at("sources"))
        task.sources.Append({ToText(source.at("session")), ToText(source.at("path")), source.at("recurse")});
    for (const Json& target : json.at("targets"))
        task.targets.Append({ToText(target.at("session")), ToText(target.at("path"))});
    return task;
}

/// The record of one case; older times are UTC.
class Scene {
public:
    explicit Scene(const Json& theCase) : m_store(StoreOf(theCase))
    {
        profile.timeZone = std::make_unique<VTimeZoneInformation>();
        isAnyRead = m_store && profile.Load(m_store->Key(), VUnicodeString(kName));
    }
    JsonStore& Store() { return m_store.value(); }

    /// "tasks", "filter" and "file_time", where they are given.
    void Set(const Json& fields)
    {
        if (fields.contains("tasks")) {
            profile.tasks.RemoveAll();
            for (const Json& task : fields.at("tasks"))
                profile.tasks.Append(ToTask(task));
        }
        if (fields.contains("filter"))
            profile.filter = ToText(fields.at("filter"));
        if (fields.contains("file_time"))
            profile.lastSyncTime = VFileTime{fields.at("file_time").get<uint64_t>()};
    }

    SynchronizeProfile profile;
    bool isAnyRead = false;

private:
    std::optional<JsonStore> m_store;
};

Json Load(const Json& theCase)
{
    Scene scene(theCase);
    const SynchronizeProfile& profile = scene.profile;
    Json tasks = Json::array();
    for (const SynchronizeTask& task : profile.tasks)
        tasks.push_back(FromTask(task));
    return {{"selected_task", profile.selectedTask},
            {"selected_item", profile.selectedItem},
            {"file_time", profile.lastSyncTime.ticks},
            {"filter", FromText(profile.filter)},
            {"tasks", tasks},
            {"modified", profile.IsModified()},
            {"result", scene.isAnyRead}};
}

Json Change(const Json& theCase)
{
    Scene scene(theCase);
    scene.Set(theCase.at("set"));
    Json got = {{"modified", scene.profile.IsModified()}};
    if (theCase.at("accept")) {
        scene.profile.AcceptChanges();
        got["modified_after_accept"] = scene.profile.IsModified();
    }
    return got;
}

Json Save(const Json& theCase)
{
    Scene scene(theCase);
    scene.Set(theCase);
    scene.profile.Save(scene.Store().Key(), theCase.at("force"));
    SynchronizeProfile again;
    again.Load(scene.Store().Key(), VUnicodeString(kName));
    return {{"store", scene.Store().Values()},
            {"modified", scene.profile.IsModified()},
            {"tasks_read_back", again.tasks.GetCount()}};
}

constexpr std::array kKinds = {Kind{"load", Load}, Kind{"change", Change}, Kind{"save", Save}};

} // namespace

std::span<const Kind> SynchronizeKinds() { return kKinds; }

} // namespace ostrand::vectors
