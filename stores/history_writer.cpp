#include "stores/history_writer.h"

#include "platform/error_codes.h"
#include "stores/file_names.h"
#include "stores/store_lock.h"

#include <algorithm>

namespace ostrand {

namespace {

/// Read from the end of a log of which nothing is known; one record as a rule.
constexpr uint64_t kEndBytes = 4096;

// What a record's numbers have room for, with two records of one append to come.
constexpr unsigned kMostVersions = 500'000;
constexpr unsigned kMostPositions = 999'997;
constexpr unsigned kMostNumbers = kHighestVersion - 2;

/// The first record that stays when a log has grown to `most` bytes: half of the versions, and of the room that a full
/// text leaves; the last step in any case.
size_t FirstKept(const std::vector<HistoryRecord>& records, const HistoryLimits& limits, size_t textSize, uint64_t most)
{
    const size_t versions = std::max(2u, limits.versions / 2);
    const uint64_t room = most > textSize ? (most - textSize) / 2 : 0;
    size_t first = records.size() - 1;
    uint64_t steps = 0;
    while (first > 0) {
        steps += records[first].bytes.size();
        const size_t kept = records.size() - first; // without the one that is asked about
        if (kept + 1 > versions || (kept > 1 && steps > room))
            break;
        --first;
    }
    return first;
}

} // namespace

unsigned HistoryWriter::Run(std::string_view before, std::string_view after, const HistoryNote& note)
{
    unsigned code = Open();
    if (code == kErrorSuccess)
        code = FindEnd();
    if (code == kErrorSuccess && !IsWithout(before, note)) {
        AddEdit(before, note.editTime);
        StoreVersion version;
        version.time = Platform().clock->FileTime();
        version.by = note.by.empty() ? "?" : note.by;
        version.conflicts.assign(note.conflicts.begin(), note.conflicts.end());
        version.isDeleted = note.isDeletion;
        Add(std::move(version), m_memo.count == 0, before, after);
        code = Write(after);
    }
    if (code != kErrorSuccess)
        m_memo = HistoryMemo();
    return code;
}

bool HistoryWriter::IsWithout(std::string_view before, const HistoryNote& note) const
{
    return note.isDeletion && m_memo.count == 0 && before.empty();
}

unsigned HistoryWriter::Open()
{
    const auto open = [this](VFileDisposition disposition) {
        return Files().Open(m_path, VFileAccess::ReadWrite, disposition, kFileMode, m_file);
    };
    unsigned code = open(VFileDisposition::OpenExisting);
    if (!IsMissing(code))
        return code;
    code = open(VFileDisposition::CreateNew);
    if (!IsMissing(code))
        return code;
    code = MakeFolders(FolderOf(m_path));
    return code == kErrorSuccess ? open(VFileDisposition::CreateNew) : code;
}

unsigned HistoryWriter::FindEnd()
{
    VFileInfo info;
    unsigned code = m_file->GetInfo(info);
    if (code != kErrorSuccess)
        return code;
    if (info.device == m_memo.device && info.file == m_memo.file && info.size == m_memo.size)
        return code;
    m_memo = {info.device, info.file, info.size};
    if (info.size == 0)
        return code;
    if (info.size > HistoryLog::kLimit)
        return CutTo(0);
    std::string end;
    code = ReadEnd(kEndBytes, end);
    const size_t size = SizeOfLastRecord(end);
    if (code == kErrorSuccess && size > end.size())
        code = ReadEnd(size, end);
    if (code != kErrorSuccess)
        return code;
    HistoryRecord last;
    if (size == 0 || size > end.size() || !ParseRecord(std::string_view(end).substr(end.size() - size), last))
        return Repair();
    return GoOnAfter(last);
}

unsigned HistoryWriter::GoOnAfter(const HistoryRecord& last)
{
    if (last.version.number > kMostNumbers || last.position > kMostPositions)
        return CutTo(0);
    m_memo.hash = last.hash;
    m_memo.number = last.version.number;
    m_memo.count = last.position;
    return kErrorSuccess;
}

unsigned HistoryWriter::CutTo(uint64_t size)
{
    m_memo.size = size;
    return m_file->SetSize(size);
}

unsigned HistoryWriter::ReadEnd(uint64_t size, std::string& end)
{
    size = std::min(size, m_memo.size);
    end.resize(size);
    unsigned code = m_file->Seek(m_memo.size - size);
    size_t done = 0;
    for (size_t got = 1; code == kErrorSuccess && got > 0 && done < size; done += got)
        code = m_file->Read(end.data() + done, size - done, got);
    end.resize(done);
    return code;
}

unsigned HistoryWriter::Repair()
{
    std::string bytes;
    unsigned code = ReadEnd(m_memo.size, bytes);
    if (code != kErrorSuccess)
        return code;
    const HistoryLog log(std::move(bytes));
    code = CutTo(log.GoodSize());
    if (code == kErrorSuccess && !log.Records().empty())
        return GoOnAfter(log.Records().back());
    m_memo.number = std::min(log.HighestNumber(), kMostNumbers);
    return code;
}

void HistoryWriter::AddEdit(std::string_view before, uint64_t time)
{
    StoreVersion version;
    version.time = time;
    if (m_memo.count == 0) {
        if (!before.empty())
            Add(std::move(version), true, {}, before);
        return;
    }
    if (HashText(before) == m_memo.hash)
        return;
    std::string bytes;
    std::string last;
    bool isKnown = ReadEnd(m_memo.size, bytes) == kErrorSuccess;
    if (isKnown) {
        const HistoryLog log(std::move(bytes));
        isKnown = !log.Records().empty() && log.Records().back().version.number == m_memo.number &&
                  log.Read(log.Records().size() - 1, nullptr, last);
    }
    Add(std::move(version), !isKnown, last, before);
}

void HistoryWriter::Add(StoreVersion version, bool isFull, std::string_view before, std::string_view after)
{
    HistoryRecord record;
    record.version = std::move(version);
    record.version.number = ++m_memo.number;
    record.isFull = isFull;
    record.position = ++m_memo.count;
    record.hash = HashText(after);
    m_memo.hash = record.hash;
    PutRecord(record, before, after, m_added);
}

unsigned HistoryWriter::Write(std::string_view after)
{
    const uint64_t size = m_memo.size + m_added.size();
    const uint64_t most = std::min<uint64_t>(std::max<uint64_t>(m_limits.bytes, 2 * after.size()), HistoryLog::kLimit);
    if (size > most || m_memo.count > std::clamp(m_limits.versions, 2u, kMostVersions))
        return WriteAnew(after, most);
    unsigned code = m_file->Seek(m_memo.size);
    if (code == kErrorSuccess)
        code = m_file->Write(m_added.data(), m_added.size());
    if (code != kErrorSuccess) {
        m_file->SetSize(m_memo.size);
        return code;
    }
    m_memo.size = size;
    return code;
}

unsigned HistoryWriter::WriteAnew(std::string_view after, uint64_t most)
{
    std::string bytes;
    if (const unsigned code = ReadEnd(m_memo.size, bytes); code != kErrorSuccess)
        return code;
    const HistoryLog log(bytes + m_added);
    const std::string current(after);
    std::string text;
    size_t first = FirstKept(log.Records(), m_limits, after.size(), most);
    while (!log.Read(first, &current, text)) // that of the last one is the current one
        ++first;
    m_memo.count = static_cast<unsigned>(log.Records().size() - first);
    return Replace(log.From(first, text));
}

unsigned HistoryWriter::Replace(const std::string& log)
{
    if (log.size() > HistoryLog::kLimit)
        return kErrorMoreData;
    const std::string temporary = FolderOf(m_path) + '/' + std::string(kTemporaryPrefix) + "log";
    std::unique_ptr<IFile> file;
    VFileInfo info;
    unsigned code = Files().Open(temporary, VFileAccess::Write, VFileDisposition::CreateAlways, kFileMode, file);
    if (code == kErrorSuccess)
        code = file->Write(log.data(), log.size());
    if (code == kErrorSuccess)
        code = file->GetInfo(info);
    file.reset();
    if (code == kErrorSuccess)
        code = Files().Rename(temporary, m_path);
    if (code != kErrorSuccess) {
        Files().Remove(temporary);
        return code;
    }
    m_memo.device = info.device;
    m_memo.file = info.file;
    m_memo.size = info.size;
    return code;
}

} // namespace ostrand
