#include "stores/file_journal.h"

#include "platform/error_codes.h"
#include "stores/file_names.h"
#include "stores/name_index.h"
#include "stores/store_lock.h"

#include <charconv>
#include <limits>

namespace ostrand {

namespace {

constexpr std::string_view kHead = "OstrandUI journal 1\n";
constexpr std::string_view kAnyHead = "OstrandUI journal "; // and the number of its version
constexpr std::string_view kEntry = "key ";
constexpr std::string_view kEnd = "end ";

void PutNumber(uint64_t number, std::string& out)
{
    char digits[20];
    out.append(digits, std::to_chars(digits, std::end(digits), number).ptr);
}

std::string EndLine(size_t count, std::string_view before)
{
    constexpr size_t kHashDigits = 16;
    char digits[kHashDigits];
    const char* const end = std::to_chars(digits, std::end(digits), HashBytes(before), 16).ptr;
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

bool TakeBytes(std::string_view& from, size_t size, std::string& out)
{
    if (from.size() <= size || from[size] != '\n')
        return false;
    out = from.substr(0, size);
    from.remove_prefix(size + 1);
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

std::string RenderJournal(const std::vector<JournalItem>& items)
{
    constexpr size_t kLines = 64; // room for the sizes and line ends of an entry
    size_t size = kLines;
    for (const JournalItem& item : items)
        size += item.path.size() + item.text.size() + kLines;
    std::string out;
    out.reserve(size);
    out += kHead;
    for (const JournalItem& item : items) {
        out += kEntry;
        PutNumber(item.path.size(), out);
        out += ' ';
        PutNumber(item.text.size(), out);
        ((out += '\n') += item.path) += '\n';
        (out += item.text) += '\n';
    }
    return out += EndLine(items.size(), out);
}

bool ParseJournal(std::string_view journal, std::vector<JournalEntry>& entries)
{
    entries.clear();
    std::string_view rest = journal;
    if (!Take(rest, kHead))
        return false;
    while (Take(rest, kEntry)) {
        JournalEntry entry;
        size_t pathSize = 0;
        size_t textSize = 0;
        if (!TakeSize(rest, ' ', pathSize) || !TakeSize(rest, '\n', textSize) ||
            !TakeBytes(rest, pathSize, entry.path) || !TakeBytes(rest, textSize, entry.text) || !IsKeyPath(entry.path))
            return false;
        entries.push_back(std::move(entry));
    }
    return rest == EndLine(entries.size(), journal.substr(0, journal.size() - rest.size()));
}

std::string JournalPath(const std::string& root) { return root + '/' + std::string(kJournalFile); }

unsigned WriteJournal(const std::string& root, const std::vector<JournalItem>& items)
{
    std::unique_ptr<IFile> file;
    unsigned code =
        Files().Open(JournalPath(root), VFileAccess::Write, VFileDisposition::CreateAlways, kFileMode, file);
    if (code != kErrorSuccess)
        return code;
    const std::string journal = RenderJournal(items);
    code = file->Write(journal.data(), journal.size());
    if (code == kErrorSuccess)
        code = file->Sync();
    file.reset();
    if (code == kErrorSuccess)
        code = Files().SyncFolder(root);
    if (code != kErrorSuccess)
        Files().Remove(JournalPath(root));
    return code;
}

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

unsigned ReadJournal(const std::string& root, std::vector<JournalEntry>& entries)
{
    std::string journal;
    VFileInfo info;
    const unsigned code = Files().ReadWhole(JournalPath(root), std::numeric_limits<size_t>::max(), journal, info);
    if (code == kErrorSuccess && !ParseJournal(journal, entries)) {
        entries.clear();
        if (IsOfLaterVersion(journal))
            return kErrorInvalidData;
    }
    return code;
}

} // namespace ostrand
