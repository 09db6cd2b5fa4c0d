#include "stores/file_history.h"

#include "platform/error_codes.h"
#include "stores/history_writer.h"
#include "stores/store_lock.h"

namespace ostrand {

namespace {

constexpr std::string_view kLogSuffix = ".log";
constexpr std::string_view kRootLog = "/%root.log";

/// The versions of one key with what is in no log yet.
class Versions {
public:
    Versions(std::string bytes, const HistoryCurrent& current) : m_log(std::move(bytes)), m_current(current) {}

    void List(std::vector<StoreVersion>& versions) const
    {
        const std::vector<bool> reachable = m_log.Reachable(m_current.text);
        for (size_t i = 0; i < reachable.size(); ++i)
            if (reachable[i])
                versions.push_back(m_log.Records()[i].version);
        if (!HasNew())
            return;
        StoreVersion& added = versions.emplace_back();
        added.number = NewNumber();
        added.time = m_current.time;
        added.isDeleted = m_current.text == nullptr;
    }

    unsigned Read(unsigned number, std::string& text) const
    {
        if (HasNew() && number == NewNumber()) {
            text = m_current.text ? *m_current.text : std::string();
            return kErrorSuccess;
        }
        const size_t record = m_log.Find(number);
        if (record == HistoryLog::kNone || !m_log.Reachable(m_current.text)[record])
            return kErrorFileNotFound;
        return m_log.Read(record, m_current.text, text) ? kErrorSuccess : kErrorInvalidData;
    }

private:
    bool HasNew() const
    {
        if (m_log.Records().empty())
            return m_current.text && !m_current.text->empty();
        const HistoryRecord& last = m_log.Records().back();
        return m_current.text ? HashText(*m_current.text) != last.hash : !last.version.isDeleted;
    }
    unsigned NewNumber() const
    {
        return (m_log.Records().empty() ? m_log.HighestNumber() : m_log.Records().back().version.number) + 1;
    }

    HistoryLog m_log;
    const HistoryCurrent& m_current;
};

/// A missing log is an empty one.
unsigned ReadLog(const std::string& path, std::string& bytes)
{
    VFileInfo info;
    const unsigned code = Files().ReadWhole(path, HistoryLog::kLimit, bytes, info);
    return IsMissing(code) ? kErrorSuccess : code;
}

} // namespace

std::string FileHistory::LogOf(std::string_view key) const
{
    std::string path = m_folder;
    if (key.empty())
        return path += kRootLog;
    while (!key.empty()) {
        const std::string_view level = key.substr(0, key.find('/'));
        key.remove_prefix(std::min(level.size() + 1, key.size()));
        path += '/';
        path += level;
        if (!key.empty() && level.ends_with(kLogSuffix))
            path.replace(path.size() - kLogSuffix.size(), 1, "%2E");
    }
    return path += kLogSuffix;
}

unsigned FileHistory::Append(std::string_view key, std::string_view before, std::string_view after,
                             const HistoryNote& note, HistoryMemo& memo)
{
    if (m_limits.versions == 0 || (before == after && !note.isDeletion))
        return kErrorSuccess;
    return HistoryWriter(LogOf(key), m_limits, memo).Run(before, after, note);
}

unsigned FileHistory::List(std::string_view key, const HistoryCurrent& current, std::vector<StoreVersion>& versions)
{
    versions.clear();
    std::string bytes;
    const unsigned code = ReadLog(LogOf(key), bytes);
    if (code == kErrorSuccess)
        Versions(std::move(bytes), current).List(versions);
    return code;
}

unsigned FileHistory::Read(std::string_view key, const HistoryCurrent& current, unsigned number, std::string& text)
{
    std::string bytes;
    const unsigned code = ReadLog(LogOf(key), bytes);
    return code == kErrorSuccess ? Versions(std::move(bytes), current).Read(number, text) : code;
}

unsigned FileHistory::ReadLast(std::string_view key, std::string& text)
{
    std::string bytes;
    const unsigned code = ReadLog(LogOf(key), bytes);
    if (code != kErrorSuccess)
        return code;
    const HistoryLog log(std::move(bytes));
    for (size_t i = log.Records().size(); i-- > 0 && !log.Records()[i].version.isDeleted;)
        if (log.Read(i, nullptr, text))
            return kErrorSuccess;
    return kErrorFileNotFound;
}

} // namespace ostrand
