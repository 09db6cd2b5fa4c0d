// The log of one key's versions, whole or damaged: what can be read from it. The form of its records stands in
// history_record.h; file_history.h keeps logs as files. The first record of a log is full, as a rule, the others are
// steps.
#pragma once

#include "stores/history_record.h"

#include <string>
#include <vector>

namespace ostrand {

/// A log that was read. Its records are the good ones, by growing numbers; damage between them is passed over.
class HistoryLog {
public:
    static constexpr size_t kNone = static_cast<size_t>(-1);
    /// Bytes of the largest log.
    static constexpr size_t kLimit = size_t{1} << 26;

    explicit HistoryLog(std::string bytes);
    HistoryLog(const HistoryLog&) = delete;
    HistoryLog& operator=(const HistoryLog&) = delete;

    const std::vector<HistoryRecord>& Records() const { return m_records; }
    /// Bytes up to the end of the last good record.
    size_t GoodSize() const { return m_goodSize; }
    /// The highest version that a record had, though it may be damaged now; 0 for none.
    unsigned HighestNumber() const { return m_highest; }
    /// Place in `Records`, kNone for none.
    size_t Find(unsigned number) const;

    // `current`: the text of the last version from another source, or null. The way back from it leads to versions
    // that damage cut off from their full record. It is ignored where it isn't the last version's text.

    /// Whether a way leads to each record.
    std::vector<bool> Reachable(const std::string* current) const;
    /// The text of a record; false where damage leaves no way to it.
    bool Read(size_t record, const std::string* current, std::string& text) const;

    /// The log as it is without what lies before a record, whose text is given.
    std::string From(size_t record, const std::string& text) const;

private:
    bool IsNextTo(size_t record) const;
    bool ReadForward(size_t record, std::string& text) const;
    bool ReadBackward(size_t record, const std::string* current, std::string& text) const;
    bool IsLast(const std::string* current) const;
    void AddRecords();

    std::string m_bytes;
    std::vector<HistoryRecord> m_records;
    size_t m_goodSize = 0;
    unsigned m_highest = 0;
};

} // namespace ostrand
