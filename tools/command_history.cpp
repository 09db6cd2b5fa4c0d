// history list, show, diff, restore
#include "core/messages.h"
#include "platform/error_codes.h"
#include "stores/file_changes.h"
#include "stores/iso_time.h"
#include "tools/commands.h"
#include "tools/config_folder.h"
#include "tools/json_writer.h"
#include "tools/output.h"

#include <algorithm>
#include <ctime>

namespace ostrand::tool {

namespace {

constexpr size_t kValueWidth = 60;

/// "2026-11-24T18:52:02+01:00", by the zone of the process; empty for an unknown time.
std::string LocalTime(uint64_t ticks)
{
    constexpr uint64_t kTicksOfSecond = 10'000'000;
    constexpr std::time_t kSecondsTo1970 = 11'644'473'600;
    if (ticks == 0)
        return {};
    const std::time_t seconds = static_cast<std::time_t>(ticks / kTicksOfSecond) - kSecondsTo1970;
    const std::tm* const local = std::localtime(&seconds);
    char text[40];
    std::string time;
    if (local)
        time.assign(text, std::strftime(text, sizeof text, "%Y-%m-%dT%H:%M:%S%z", local));
    if (time.size() > 2) // +0100
        time.insert(time.size() - 2, ":");
    return time;
}

/// The versions of one key.
class History {
public:
    Exit Open(const Request& request, Access access)
    {
        if (const Exit opened = m_folder.Open(request, access); opened != Exit::Done)
            return opened;
        m_cited = request.key.empty() ? "the root" : "key " + Cited(request.key);
        if (!FromUtf8(request.key, m_key))
            return Fail(Exit::Failed, m_folder.Path() + ": there is no " + m_cited);
        return Load();
    }
    /// Reads the list again.
    Exit Load()
    {
        VReportMessageParams report;
        m_versions.clear();
        if (!m_folder.Extras().ListVersions(m_key.c_str(), m_versions, report))
            return FailStore(report);
        const bool isThere = m_key.IsEmpty() || m_folder.Root().KeyExists(m_key.c_str());
        return m_versions.empty() && !isThere ? Fail(Exit::Failed, m_folder.Path() + ": there is no " + m_cited)
                                              : Exit::Done;
    }

    const std::vector<StoreVersion>& Versions() const { return m_versions; }
    const VUnicodeString& Key() const { return m_key; }
    const std::string& CitedKey() const { return m_cited; }

    Exit Find(unsigned number, const StoreVersion*& version) const
    {
        const auto found = std::find_if(m_versions.begin(), m_versions.end(),
                                        [number](const StoreVersion& v) { return v.number == number; });
        if (found == m_versions.end())
            return FailKey("has no version " + std::to_string(number) +
                           (m_versions.empty() ? "" : "; kept are " + Kept()));
        version = &*found;
        return Exit::Done;
    }
    Exit Read(unsigned number, std::string& text) const
    {
        const StoreVersion* version = nullptr;
        if (const Exit found = Find(number, version); found != Exit::Done)
            return found;
        VReportMessageParams report;
        return m_folder.Extras().ReadVersion(m_key.c_str(), number, text, report) ? Exit::Done : FailStore(report);
    }
    /// The same for a version that has a text.
    Exit ReadWhole(unsigned number, std::string& text) const
    {
        const StoreVersion* version = nullptr;
        if (const Exit found = Find(number, version); found != Exit::Done)
            return found;
        if (version->isDeleted)
            return FailKey("was deleted by version " + std::to_string(number) + ", which has no text");
        return Read(number, text);
    }

    Exit FailKey(const std::string& text) const
    {
        return Fail(Exit::Failed, m_folder.Path() + ": " + m_cited + " " + text);
    }
    Exit FailStore(IReportMessageParams& report) const
    {
        return Fail(Exit::Store, m_folder.Path() + ": " + m_cited + ": " + ReportText(report));
    }

private:
    std::string Kept() const
    {
        return std::to_string(m_versions.front().number) + " to " + std::to_string(m_versions.back().number);
    }

    ConfigFolder m_folder;
    VUnicodeString m_key;
    std::string m_cited;
    std::vector<StoreVersion> m_versions;
};

Json JsonOf(const StoreVersion& version)
{
    Json conflicts = Json::array();
    for (const VUnicodeString& name : version.conflicts)
        conflicts.push_back(Lossless(name));
    Json json = {{"version", version.number},
                 {"time", nullptr},
                 {"by", nullptr},
                 {"deleted", version.isDeleted},
                 {"conflicts", conflicts}};
    if (version.time != 0)
        json["time"] = IsoTime({version.time});
    if (!version.by.empty())
        json["by"] = version.by;
    return json;
}

std::string NotesOf(const StoreVersion& version)
{
    std::string notes = version.isDeleted ? "deleted" : "";
    for (const VUnicodeString& name : version.conflicts)
        notes += (notes.empty() ? "over another program's " : ", ") + Cited(Lossless(name));
    return notes;
}

std::string ListText(const std::vector<StoreVersion>& versions)
{
    std::vector<std::vector<std::string>> rows = {{"VERSION", "TIME", "BY", "NOTES"}};
    for (const StoreVersion& version : versions) {
        const std::string time = LocalTime(version.time);
        rows.push_back({std::to_string(version.number), time.empty() ? "unknown" : time,
                        version.by.empty() ? "(other means)" : Plain(version.by), NotesOf(version)});
    }
    return Table(rows);
}

Json NullIfEmpty(const std::string& text)
{
    VUnicodeString decoded;
    FromUtf8(text, decoded);
    return text.empty() ? Json() : Json(Lossless(decoded));
}

std::string DiffJson(unsigned from, unsigned to, const std::vector<ValueChange>& changes)
{
    Json list = Json::array();
    for (const ValueChange& change : changes)
        list.push_back({{"name", Lossless(change.name)},
                        {"before", NullIfEmpty(change.before)},
                        {"after", NullIfEmpty(change.after)}});
    return WriteJson({{"from", from}, {"to", to}, {"changes", list}});
}

std::string ChangeText(const ValueChange& change)
{
    const std::string name = Plain(Lossless(change.name));
    const auto shown = [](const std::string& value) { return Shortened(Plain(value), kValueWidth); };
    if (change.before.empty())
        return "added    " + name + " = " + shown(change.after) + "\n";
    if (change.after.empty())
        return "removed  " + name + " = " + shown(change.before) + "\n";
    return "changed  " + name + " = " + shown(change.before) + " -> " + shown(change.after) + "\n";
}

std::string DiffText(const std::vector<ValueChange>& changes, bool isSameText)
{
    if (changes.empty())
        return isSameText ? "Nothing changed.\n" : "No value changed, only comments, order or spelling.\n";
    std::string text;
    for (const ValueChange& change : changes)
        text += ChangeText(change);
    return text;
}

/// The version to compare with: the given one, or the one behind the first.
Exit FindOther(const History& history, const Request& request, unsigned& other)
{
    other = request.otherVersion;
    const StoreVersion* version = nullptr;
    if (other != 0)
        return Exit::Done;
    if (const Exit found = history.Find(request.version, version); found != Exit::Done)
        return found;
    if (version == &history.Versions().back())
        return history.FailKey("has no version after " + std::to_string(request.version) + "; name another one");
    other = (version + 1)->number;
    return Exit::Done;
}

/// Opens the history of the asked key, and reads the asked version, which must be no deletion.
Exit OpenVersion(const Request& request, Access access, History& history, std::string& text)
{
    const Exit opened = history.Open(request, access);
    return opened == Exit::Done ? history.ReadWhole(request.version, text) : opened;
}

} // namespace

Exit ListHistory(const Request& request)
{
    History history;
    if (const Exit opened = history.Open(request, Access::Read); opened != Exit::Done)
        return opened;
    if (!request.asJson)
        return Print(history.Versions().empty() ? "No versions are kept.\n" : ListText(history.Versions()));
    Json list = Json::array();
    for (const StoreVersion& version : history.Versions())
        list.push_back(JsonOf(version));
    return Print(WriteJson(list));
}

Exit ShowHistory(const Request& request)
{
    History history;
    std::string text;
    if (const Exit opened = OpenVersion(request, Access::Read, history, text); opened != Exit::Done)
        return opened;
    if (!request.asJson)
        return Print(text);
    const StoreVersion* version = nullptr;
    history.Find(request.version, version);
    Json json = JsonOf(*version);
    VUnicodeString decoded;
    FromUtf8(text, decoded);
    json["text"] = Lossless(decoded);
    return Print(WriteJson(json));
}

Exit DiffHistory(const Request& request)
{
    History history;
    unsigned other = 0;
    std::string before;
    std::string after;
    Exit exit = history.Open(request, Access::Read);
    if (exit == Exit::Done)
        exit = FindOther(history, request, other);
    if (exit == Exit::Done)
        exit = history.Read(request.version, before);
    if (exit == Exit::Done)
        exit = history.Read(other, after);
    if (exit != Exit::Done)
        return exit;
    const std::vector<ValueChange> changes = CompareTexts(before, after);
    return Print(request.asJson ? DiffJson(request.version, other, changes) : DiffText(changes, before == after));
}

Exit RestoreHistory(const Request& request)
{
    History history;
    std::string text;
    if (const Exit opened = OpenVersion(request, Access::Write, history, text); opened != Exit::Done)
        return opened;
    const unsigned newest = history.Versions().back().number;
    VReportMessageParams report;
    if (VProfileStore store; !store.Extras().RestoreVersion(history.Key().c_str(), request.version, report))
        return history.FailStore(report);
    if (const Exit loaded = history.Load(); loaded != Exit::Done)
        return loaded;
    const unsigned number = history.Versions().back().number;
    if (request.asJson)
        return Print(WriteJson({{"restored", request.version}, {"version", number}}));
    const std::string version = "version " + std::to_string(request.version);
    if (number == newest)
        return Print("Nothing to do: " + history.CitedKey() + " is as in " + version + ".\n");
    return Print("Restored " + version + " of " + history.CitedKey() + " as version " + std::to_string(number) + ".\n");
}

} // namespace ostrand::tool
