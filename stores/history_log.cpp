#include "stores/history_log.h"

#include <algorithm>

namespace ostrand {

namespace {

/// Bytes that are moved on the way to one text, so that no log takes more than a second.
constexpr uint64_t kMostWork = uint64_t{1} << 31;

} // namespace

HistoryLog::HistoryLog(std::string bytes) : m_bytes(std::move(bytes)) { AddRecords(); }

void HistoryLog::AddRecords()
{
    const std::string_view log = m_bytes;
    const auto isLineStart = [log](size_t at) { return at == 0 || log[at - 1] == '\n'; };
    size_t end = 0; // of what is being looked at: its last line; found once for all starts before it
    // A start need not be that of a line, whose end may have been damaged.
    for (size_t start = log.find(kRecordStart); start != std::string_view::npos;) {
        if (isLineStart(start))
            m_highest = std::max(m_highest, ParseNumber(log.substr(start)));
        while (end <= start || (end < log.size() && !isLineStart(end)))
            end = std::min(log.find(kRecordEnd, std::max(start, end) + 1), log.size());
        HistoryRecord record;
        const bool isGood = end + kRecordEndSize <= log.size() &&
                            SizeOfLastRecord(log.substr(0, end + kRecordEndSize)) == end + kRecordEndSize - start &&
                            ParseRecord(log.substr(start, end + kRecordEndSize - start), record) &&
                            (m_records.empty() || record.version.number > m_records.back().version.number);
        if (isGood) {
            m_goodSize = end + kRecordEndSize;
            m_records.push_back(std::move(record));
        }
        start = log.find(kRecordStart, isGood ? m_goodSize : start + 1);
    }
}

size_t HistoryLog::Find(unsigned number) const
{
    const auto found = std::find_if(m_records.begin(), m_records.end(),
                                    [number](const HistoryRecord& record) { return record.version.number == number; });
    return found == m_records.end() ? kNone : static_cast<size_t>(found - m_records.begin());
}

bool HistoryLog::IsNextTo(size_t record) const
{
    return record + 1 < m_records.size() && !m_records[record + 1].isFull &&
           m_records[record + 1].version.number == m_records[record].version.number + 1;
}

bool HistoryLog::IsLast(const std::string* current) const
{
    return current && !m_records.empty() && HashText(*current) == m_records.back().hash;
}

std::vector<bool> HistoryLog::Reachable(const std::string* current) const
{
    std::vector<bool> reachable(m_records.size());
    for (size_t i = 0; i < m_records.size(); ++i)
        reachable[i] = m_records[i].isFull || (i > 0 && reachable[i - 1] && IsNextTo(i - 1));
    if (IsLast(current))
        reachable.back() = true;
    for (size_t i = m_records.size(); i-- > 1;)
        if (reachable[i] && IsNextTo(i - 1))
            reachable[i - 1] = true;
    return reachable;
}

bool HistoryLog::Read(size_t record, const std::string* current, std::string& text) const
{
    const auto isRight = [&] { return HashText(text) == m_records[record].hash; };
    return (ReadForward(record, text) && isRight()) || (ReadBackward(record, current, text) && isRight());
}

bool HistoryLog::ReadForward(size_t record, std::string& text) const
{
    size_t at = record;
    while (!m_records[at].isFull)
        if (at == 0 || !IsNextTo(--at))
            return false;
    uint64_t work = 0;
    for (; at <= record; ++at) {
        work += text.size();
        if (work > kMostWork || !ApplyForward(m_records[at], text))
            return false;
    }
    return true;
}

bool HistoryLog::ReadBackward(size_t record, const std::string* current, std::string& text) const
{
    if (!IsLast(current))
        return false;
    uint64_t work = 0;
    text = *current;
    for (size_t at = m_records.size() - 1; at > record; --at) {
        work += text.size();
        if (work > kMostWork || !IsNextTo(at - 1) || !ApplyBackward(m_records[at], text))
            return false;
    }
    return true;
}

std::string HistoryLog::From(size_t record, const std::string& text) const
{
    std::string log;
    HistoryRecord base = m_records[record];
    base.isFull = true;
    base.position = 1;
    PutRecord(base, {}, text, log);
    for (size_t i = record + 1; i < m_records.size(); ++i)
        PutRecordAgain(m_records[i], static_cast<unsigned>(i - record + 1), log);
    return log;
}

} // namespace ostrand
