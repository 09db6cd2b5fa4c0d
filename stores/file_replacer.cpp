#include "stores/file_replacer.h"

#include "platform/error_codes.h"
#include "stores/file_names.h"
#include "stores/name_index.h"
#include "stores/store_lock.h"

#include <charconv>

namespace ostrand {

namespace {

/// Folders with a spare at one time; the first of more gives its own up.
constexpr size_t kMostSpares = 128;

/// Whether the file that was replaced, and now lies at `path`, is still the one that was read.
bool IsAsFound(const std::string& path, const ReplacedFile& file)
{
    VFileInfo info;
    return Files().GetInfo(path, info) != kErrorSuccess || info.SameState(file.info);
}

bool HaveSameRights(const VFileInfo& a, const VFileInfo& b)
{
    return a.mode == b.mode && a.owner == b.owner && a.group == b.group;
}

} // namespace

FileReplacer::FileReplacer(const std::string& root) : m_root(root)
{
    char digits[16];
    char* const end = std::to_chars(digits, std::end(digits), HashBytes(root), 16).ptr;
    m_temporary = std::string(kTemporaryPrefix) + std::string(digits, end);
}

unsigned FileReplacer::Replace(const ReplacedFile& file, std::string_view text)
{
    const std::string folder = FolderOf(file.path);
    // What the folder's spare was before may still be a file to the disk.
    unsigned code = SyncNames(folder);
    if (code == kErrorSuccess)
        code = Fill(file, folder, text, true);
    return code == kErrorSuccess ? TakePlace(file, folder) : code;
}

unsigned FileReplacer::ReplaceUnsynced(const ReplacedFile& file, std::string_view text)
{
    const std::string folder = FolderOf(file.path);
    const unsigned code = Fill(file, folder, text, false);
    return code == kErrorSuccess ? TakePlace(file, folder) : code;
}

unsigned FileReplacer::MakeDurable(const std::string& folder)
{
    VFileInfo info;
    unsigned code = Files().GetInfo(folder, info);
    if (IsMissing(code)) {
        code = MakeFolders(folder);
        if (code == kErrorSuccess)
            code = Files().GetInfo(folder, info);
    }
    const auto known = m_durable.find(folder);
    if (code != kErrorSuccess || (known != m_durable.end() && known->second == info.file))
        return code;
    for (std::string at = folder; code == kErrorSuccess && IsOfStore(at); at = FolderOf(at))
        code = Files().SyncFolder(FolderOf(at));
    if (code == kErrorSuccess)
        m_durable[folder] = info.file;
    return code;
}

bool FileReplacer::IsOfStore(const std::string& folder) const
{
    return folder == m_root || folder.starts_with(m_root + '/');
}

unsigned FileReplacer::SyncNames(const std::string& folder)
{
    const auto found = m_unsynced.find(folder);
    if (found == m_unsynced.end())
        return kErrorSuccess;
    const unsigned code = Files().SyncFolder(folder);
    if (code == kErrorSuccess)
        m_unsynced.erase(found);
    return code;
}

unsigned FileReplacer::SyncAllNames()
{
    while (!m_unsynced.empty())
        if (const unsigned code = SyncNames(*m_unsynced.begin()); code != kErrorSuccess)
            return code;
    return kErrorSuccess;
}

unsigned FileReplacer::Fill(const ReplacedFile& file, const std::string& folder, std::string_view text, bool isSynced)
{
    std::unique_ptr<IFile> opened;
    uint64_t size = 0;
    unsigned code = OpenTemporary(file, folder, opened, size);
    if (code != kErrorSuccess)
        return code;
    code = opened->Write(text.data(), text.size());
    if (code == kErrorSuccess && size > text.size())
        code = opened->SetSize(text.size());
    if (code == kErrorSuccess && isSynced)
        code = opened->Sync();
    opened.reset();
    if (code != kErrorSuccess) {
        m_spares.erase(folder);
        Files().Remove(TemporaryIn(folder));
    }
    return code;
}

unsigned FileReplacer::OpenTemporary(const ReplacedFile& file, const std::string& folder,
                                     std::unique_ptr<IFile>& opened, uint64_t& size)
{
    if (m_spares.contains(folder)) {
        if (OpenSpare(file, folder, opened, size) == kErrorSuccess)
            return kErrorSuccess;
        m_spares.erase(folder);
    }
    size = 0;
    unsigned code = CreateTemporary(file, folder, opened);
    if (code == kErrorAlreadyExists) // another's spare, or what a killed process left
        code = Files().Remove(TemporaryIn(folder));
    else if (IsMissing(code)) // the folder
        code = MakeFolders(folder);
    else
        return code;
    return code == kErrorSuccess ? CreateTemporary(file, folder, opened) : code;
}

unsigned FileReplacer::OpenSpare(const ReplacedFile& file, const std::string& folder, std::unique_ptr<IFile>& opened,
                                 uint64_t& size)
{
    VFileInfo info;
    unsigned code = Files().OpenAlone(TemporaryIn(folder), opened, info);
    if (code != kErrorSuccess)
        return code;
    if (!info.SameState(m_spares.at(folder)))
        return kErrorFileNotFound;
    size = info.size;
    // Rights aren't changed: that would be on the disk later than the name.
    return (file.exists ? HaveSameRights(info, file.info) : info.mode == kFileMode) ? kErrorSuccess
                                                                                    : kErrorAccessDenied;
}

unsigned FileReplacer::CreateTemporary(const ReplacedFile& file, const std::string& folder,
                                       std::unique_ptr<IFile>& opened)
{
    const unsigned mode = file.exists ? file.info.mode : kFileMode;
    const unsigned code =
        Files().Open(TemporaryIn(folder), VFileAccess::Write, VFileDisposition::CreateNew, mode, opened);
    VFileInfo info;
    if (code != kErrorSuccess || !file.exists || opened->GetInfo(info) != kErrorSuccess)
        return code;
    if (!HaveSameRights(info, file.info))
        opened->SetRights(file.info); // as far as this process may; the contents are worth more than the owner
    return kErrorSuccess;
}

unsigned FileReplacer::TakePlace(const ReplacedFile& file, const std::string& folder)
{
    const std::string temporary = TemporaryIn(folder);
    unsigned code = kErrorNotSupported;
    if (file.exists && m_exchanges) {
        code = Files().Exchange(temporary, file.path);
        m_exchanges = code != kErrorNotSupported;
    }
    if (code == kErrorSuccess && !IsAsFound(temporary, file)) {
        m_spares.erase(folder);
        m_unsynced.insert(folder);
        code = TakeBack(file, temporary);
        return code == kErrorSuccess ? kErrorSharingViolation : code;
    }
    if (code == kErrorSuccess) {
        KeepSpare(folder, file.info);
    } else {
        m_spares.erase(folder);
        if (code == kErrorNotSupported || IsMissing(code))
            code = Files().Rename(temporary, file.path);
        if (code != kErrorSuccess)
            Files().Remove(temporary);
    }
    if (code == kErrorSuccess)
        m_unsynced.insert(folder);
    return code;
}

unsigned FileReplacer::TakeBack(const ReplacedFile& file, const std::string& temporary)
{
    // What was exchanged is newer than what the new text was made of.
    if (Files().Exchange(temporary, file.path) != kErrorSuccess)
        return Files().Rename(temporary, file.path);
    Files().Remove(temporary);
    return kErrorSuccess;
}

void FileReplacer::KeepSpare(const std::string& folder, const VFileInfo& info)
{
    if (m_spares.size() >= kMostSpares && !m_spares.contains(folder)) {
        const auto first = m_spares.begin();
        Files().Remove(TemporaryIn(first->first));
        m_spares.erase(first);
    }
    m_spares[folder] = info;
}

void FileReplacer::RemoveSpares()
{
    for (const auto& [folder, spare] : m_spares)
        Files().Remove(TemporaryIn(folder));
    m_spares.clear();
}

} // namespace ostrand
