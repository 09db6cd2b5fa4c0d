#include "stores/file_journal.h"

#include "platform/error_codes.h"
#include "stores/file_document.h"
#include "stores/file_names.h"
#include "stores/running_hash.h"
#include "stores/store_lock.h"

#include <algorithm>
#include <charconv>
#include <utility>

namespace ostrand {

namespace {

constexpr std::string_view kHead = "OstrandUI journal 1\n";
constexpr std::string_view kAnyHead = "OstrandUI journal "; // and the number of its version
constexpr std::string_view kEntry = "key ";
constexpr std::string_view kEnd = "end ";
/// What is written and read at a time.
constexpr size_t kPart = size_t{256} << 10;
/// Bytes that a first or last line fits into, and the sizes of an entry.
constexpr size_t kLongestLine = 64;
/// No file system has longer ones.
constexpr size_t kLongestPath = size_t{1} << 16;

void PutNumber(uint64_t number, std::string& out)
{
    char digits[20];
    out.append(digits, std::to_chars(digits, std::end(digits), number).ptr);
}

std::string EndLine(size_t count, uint64_t hash)
{
    constexpr size_t kHashDigits = 16;
    char digits[kHashDigits];
    const char* const end = std::to_chars(digits, std::end(digits), hash, 16).ptr;
    const auto size = static_cast<size_t>(end - digits);
    std::string line(kEnd);
    PutNumber(count, line);
    line += ' ';
    line.append(kHashDigits - size, '0');
    line.append(digits, size);
    return line += '\n';
}

bool Take(std::string_view& from, std::string_view what)
{
    if (!from.starts_with(what))
        return false;
    from.remove_prefix(what.size());
    return true;
}

bool TakeSize(std::string_view& from, char behind, size_t& size)
{
    const auto result = std::from_chars(from.data(), from.data() + from.size(), size);
    const auto taken = static_cast<size_t>(result.ptr - from.data());
    if (result.ec != std::errc() || taken == from.size() || *result.ptr != behind)
        return false;
    from.remove_prefix(taken + 1);
    return true;
}

/// By its first line; one that was torn or garbled there is of no version, and holds nobody up.
bool IsOfLaterVersion(std::string_view journal)
{
    size_t version = 0;
    return Take(journal, kAnyHead) && TakeSize(journal, '\n', version) && version > 1;
}

/// A journal is obeyed blindly, so it must not lead out of the store.
bool IsKeyPath(std::string_view path)
{
    std::u16string name;
    while (!path.empty()) {
        const size_t bar = path.find('/');
        if (!DecodeKeyName(path.substr(0, bar), name))
            return false;
        path.remove_prefix(bar == std::string_view::npos ? path.size() : bar + 1);
        if (path.empty() && bar != std::string_view::npos)
            return false;
    }
    return true;
}

} // namespace

std::string JournalPath(const std::string& root) { return root + '/' + std::string(kJournalFile); }

unsigned SyncJournal(const std::string& root)
{
    std::unique_ptr<IFile> file;
    unsigned code = Files().Open(JournalPath(root), VFileAccess::Write, VFileDisposition::OpenExisting, 0, file);
    if (code == kErrorSuccess)
        code = file->Sync();
    return code == kErrorSuccess ? Files().SyncFolder(root) : code;
}

unsigned RemoveJournal(const std::string& root)
{
    // Emptied first: should a power failure bring the name back, what it names is no whole journal.
    std::unique_ptr<IFile> file;
    unsigned code = Files().Open(JournalPath(root), VFileAccess::Write, VFileDisposition::TruncateExisting, 0, file);
    if (code == kErrorSuccess)
        code = file->Sync();
    file.reset();
    return code == kErrorSuccess ? Files().Remove(JournalPath(root)) : code;
}

JournalWriter::~JournalWriter()
{
    if (!m_file || m_isFinished)
        return;
    m_file.reset();
    if (RemoveJournal(m_root) != kErrorSuccess)
        Files().Remove(JournalPath(m_root));
}

unsigned JournalWriter::Begin()
{
    m_buffer = kHead;
    m_buffer.reserve(kPart);
    return Files().Open(JournalPath(m_root), VFileAccess::ReadWrite, VFileDisposition::CreateAlways, kFileMode, m_file);
}

unsigned JournalWriter::Append(std::string_view path, std::string_view text)
{
    unsigned code = m_file ? kErrorSuccess : Begin();
    if (code == kErrorSuccess && m_buffer.size() + path.size() + text.size() + kLongestLine > kPart)
        code = WriteOut();
    m_buffer += kEntry;
    PutNumber(path.size(), m_buffer);
    m_buffer += ' ';
    PutNumber(text.size(), m_buffer);
    ((m_buffer += '\n') += path) += '\n';
    (m_buffer += text) += '\n';
    ++m_count;
    return code;
}

unsigned JournalWriter::WriteOut()
{
    const unsigned code = m_file->Write(m_buffer.data(), m_buffer.size());
    m_size += m_buffer.size();
    m_buffer.clear();
    return code;
}

unsigned JournalWriter::Finish()
{
    unsigned code = WriteOut();
    uint64_t hash = 0;
    if (code == kErrorSuccess)
        code = Hash(hash);
    m_buffer = EndLine(m_count, hash);
    if (code == kErrorSuccess)
        code = WriteOut();
    if (code == kErrorSuccess)
        code = m_file->Sync();
    if (code == kErrorSuccess)
        code = Files().SyncFolder(m_root);
    m_isFinished = code == kErrorSuccess;
    return code;
}

unsigned JournalWriter::Hash(uint64_t& hash)
{
    // The hash begins with the number of bytes, so it can't run along.
    RunningHash running(m_size);
    m_buffer.resize(kPart);
    unsigned code = m_file->Seek(0);
    for (uint64_t left = m_size; code == kErrorSuccess && left > 0;) {
        size_t got = 0;
        code = m_file->Read(m_buffer.data(), std::min<uint64_t>(left, kPart), got);
        if (code == kErrorSuccess && got == 0)
            code = kErrorGeneralFailure;
        running.Add(std::string_view(m_buffer).substr(0, got));
        left -= got;
    }
    hash = running.Finish();
    return code;
}

unsigned JournalReader::Open(const std::string& root)
{
    unsigned code = Files().Open(JournalPath(root), VFileAccess::Read, VFileDisposition::OpenExisting, 0, m_file);
    if (code == kErrorSuccess)
        code = FindEnd();
    if (code == kErrorSuccess && !m_endLine.empty())
        m_isWhole = CheckEntries();
    if (code == kErrorSuccess && m_failure == kErrorSuccess && !m_isWhole)
        code = CheckVersion();
    if (code == kErrorSuccess && m_isWhole)
        GoTo(kHead.size());
    return code == kErrorSuccess ? m_failure : code;
}

unsigned JournalReader::CheckVersion()
{
    m_end = kLongestLine;
    if (GoTo(0))
        Fill();
    return m_failure == kErrorSuccess && IsOfLaterVersion(m_buffer) ? kErrorInvalidData : m_failure;
}

unsigned JournalReader::FindEnd()
{
    VFileInfo info;
    if (const unsigned code = m_file->GetInfo(info); code != kErrorSuccess)
        return code;
    m_end = info.size;
    const uint64_t start = info.size - std::min<uint64_t>(info.size, kLongestLine);
    std::string end;
    if (GoTo(start))
        while (end.size() < info.size - start && Fill())
            end += std::exchange(m_buffer, {});
    if (!end.ends_with('\n'))
        return m_failure;
    end.pop_back();
    m_endLine = end.substr(end.rfind('\n') + 1) + '\n';
    m_end = info.size - m_endLine.size();
    return m_failure;
}

bool JournalReader::CheckEntries()
{
    RunningHash hash(m_end);
    m_hash = &hash;
    std::string line;
    std::string path;
    size_t count = 0;
    bool isGood = GoTo(0) && TakeLine(line) && line == kHead;
    for (; isGood && m_position < m_end; ++count)
        isGood = TakeEntry(path, nullptr);
    m_hash = nullptr;
    return isGood && m_endLine == EndLine(count, hash.Finish());
}

unsigned JournalReader::Next(JournalEntry& entry, bool& isThere)
{
    isThere = m_position < m_end && TakeEntry(entry.path, &entry.text);
    if (!isThere && m_failure == kErrorSuccess && m_position < m_end)
        return kErrorInvalidData; // changed since it was checked
    return m_failure;
}

bool JournalReader::GoTo(uint64_t position)
{
    m_buffer.clear();
    m_next = 0;
    m_position = position;
    m_failure = m_file->Seek(position);
    return m_failure == kErrorSuccess;
}

/// Of the bytes before the end; only where none are left in the buffer.
bool JournalReader::Fill()
{
    size_t got = 0;
    m_next = 0;
    m_buffer.resize(std::min<uint64_t>(m_end - std::min(m_end, m_position), kPart));
    m_failure = m_file->Read(m_buffer.data(), m_buffer.size(), got);
    m_buffer.resize(m_failure == kErrorSuccess ? got : 0);
    if (m_hash)
        m_hash->Add(m_buffer);
    return !m_buffer.empty();
}

bool JournalReader::TakeLine(std::string& line)
{
    line.clear();
    while (!line.ends_with('\n') && line.size() < kLongestLine) {
        if (m_next == m_buffer.size() && !Fill())
            return false;
        line += m_buffer[m_next++];
        ++m_position;
    }
    return line.ends_with('\n');
}

bool JournalReader::TakeBytes(size_t size, std::string* out)
{
    if (out)
        out->clear();
    if (size >= m_end - m_position)
        return false;
    while (size > 0) {
        if (m_next == m_buffer.size() && !Fill())
            return false;
        const size_t taken = std::min(size, m_buffer.size() - m_next);
        if (out)
            out->append(m_buffer, m_next, taken);
        m_next += taken;
        m_position += taken;
        size -= taken;
    }
    std::string end;
    return TakeLine(end) && end.size() == 1;
}

bool JournalReader::TakeEntry(std::string& path, std::string* text)
{
    std::string line;
    size_t pathSize = 0;
    size_t textSize = 0;
    if (!TakeLine(line))
        return false;
    std::string_view sizes = line;
    return Take(sizes, kEntry) && TakeSize(sizes, ' ', pathSize) && TakeSize(sizes, '\n', textSize) &&
           pathSize <= kLongestPath && textSize <= FileDocument::kLimit && TakeBytes(pathSize, &path) &&
           IsKeyPath(path) && TakeBytes(textSize, text);
}

} // namespace ostrand
