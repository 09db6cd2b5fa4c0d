// One append to a log of file_history.h.
#pragma once

#include "stores/file_history.h"

#include <memory>
#include <string>
#include <string_view>

namespace ostrand {

/// Used for one append, under the store's lock.
class HistoryWriter {
public:
    HistoryWriter(std::string path, const HistoryLimits& limits, HistoryMemo& memo)
        : m_path(std::move(path)),
          m_limits(limits),
          m_memo(memo)
    {
    }

    /// See FileHistory::Append. After a failure the memo is empty.
    unsigned Run(std::string_view before, std::string_view after, const HistoryNote& note);

private:
    unsigned Open();
    unsigned FindEnd();
    unsigned ReadEnd(uint64_t size, std::string& end);
    unsigned Repair();
    unsigned GoOnAfter(const HistoryRecord& last);
    unsigned CutTo(uint64_t size);
    bool IsWithout(std::string_view before, const HistoryNote& note) const;
    void AddEdit(std::string_view before, uint64_t time);
    void Add(StoreVersion version, bool isFull, std::string_view before, std::string_view after);
    unsigned Write(std::string_view after);
    unsigned WriteAnew(std::string_view after, uint64_t most);
    unsigned Replace(const std::string& log);

    std::string m_path;
    const HistoryLimits& m_limits;
    HistoryMemo& m_memo;
    std::unique_ptr<IFile> m_file;
    std::string m_added; // records to be written
};

} // namespace ostrand
