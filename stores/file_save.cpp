#include "stores/file_save.h"

#include "stores/file_names.h"
#include "stores/file_render.h"

#include <charconv>

namespace ostrand {

namespace {

bool IsMissing(unsigned code) { return code == kErrorFileNotFound || code == kErrorPathNotFound; }

/// Beside the file that it will replace. The name tells store and file apart, so that two stores that reach one file
/// by links don't write one temporary file, and what a killed process left is used again.
std::string TemporaryFor(const std::string& root, const std::string& target)
{
    char digits[16];
    char* const end = std::to_chars(digits, std::end(digits), HashBytes(root + '\n' + target), 16).ptr;
    return FolderOf(target) + '/' + std::string(kTemporaryPrefix) + std::string(digits, end);
}

} // namespace

std::string FolderOf(const std::string& path)
{
    const size_t bar = path.rfind('/');
    if (bar == std::string::npos)
        return ".";
    return bar == 0 ? "/" : path.substr(0, bar);
}

unsigned MakeFolders(IFiles& files, const std::string& folder)
{
    unsigned code = files.CreateFolder(folder, kFolderMode);
    if (IsMissing(code) && FolderOf(folder) != folder) {
        code = MakeFolders(files, FolderOf(folder));
        if (code == kErrorSuccess)
            code = files.CreateFolder(folder, kFolderMode);
    }
    return code == kErrorAlreadyExists ? kErrorSuccess : code;
}

unsigned LockStore(IFiles& files, const std::string& root, std::unique_ptr<IFile>& lock)
{
    const std::string path = root + '/' + std::string(kLockFile);
    const auto open = [&] {
        return files.Open(path, VFileAccess::ReadWrite, VFileDisposition::OpenAlways, kFileMode, lock);
    };
    unsigned code = open();
    if (IsMissing(code)) {
        code = MakeFolders(files, root);
        if (code == kErrorSuccess)
            code = open();
    }
    return code == kErrorSuccess ? lock->Lock(kLockPatience) : code;
}

unsigned FileSave::Run()
{
    if (m_node.Queue().IsEmpty() && !m_node.syncsFolder)
        return kErrorSuccess;
    std::unique_ptr<IFile> lock;
    unsigned code = LockStore(m_files, m_root, lock);
    const std::string target = m_files.ResolveLinks(m_node.File());
    if (code == kErrorSuccess)
        code = ReadTheirs(target);
    if (code != kErrorSuccess)
        return code;

    const std::vector<ValueEdit> edits = Merge();
    std::string text = Theirs().WithEdits(edits);
    if (text.size() > FileDocument::kLimit)
        return kErrorMoreData;
    if (text != Theirs().Text())
        code = Write(target, text);
    if (code == kErrorSuccess && m_node.syncsFolder)
        code = m_files.SyncFolder(FolderOf(target));
    if (code != kErrorSuccess)
        return code;
    m_node.syncsFolder = false;
    m_node.TakeSaved(std::move(text));
    return kErrorSuccess;
}

unsigned FileSave::ReadTheirs(const std::string& target)
{
    std::string text;
    VFileInfo info;
    const unsigned code = m_files.ReadWhole(target, FileDocument::kLimit, text, info);
    if (code == kErrorSuccess)
        m_mode = info.mode;
    else if (!IsMissing(code))
        return code;
    m_isUnchanged = text == m_node.Document().Text();
    if (!m_isUnchanged)
        m_theirs = FileDocument(std::move(text));
    return kErrorSuccess;
}

std::vector<ValueEdit> FileSave::Merge()
{
    const FileDocument& theirs = Theirs();
    ValueBases& bases = m_node.SettledBases();
    std::vector<ValueEdit> edits;
    m_conflicts.clear();
    for (const QueuedValue& queued : m_node.Queue().Values()) {
        const FileDocument::Found found = theirs.FindWhole(queued.name.c_str());
        const uint64_t their = found ? HashValue(found.value) : ValueBases::kNoValue;
        const uint64_t our = queued.isDeleted ? ValueBases::kNoValue : HashValue(queued.text);
        // Ours as last known is no change, so theirs stays, whatever they made of it.
        if (our == their || bases.Compare(queued.hash, our) == BaseRelation::Same)
            continue;
        if (bases.Compare(queued.hash, their) == BaseRelation::Different)
            m_conflicts.push_back(queued.name);
        edits.push_back({queued.name.c_str(), queued.isDeleted ? nullptr : &queued.text});
    }
    return edits;
}

unsigned FileSave::Write(const std::string& target, const std::string& text)
{
    const std::string temporary = TemporaryFor(m_root, target);
    unsigned code = WriteTemporary(temporary, text);
    if (code == kErrorSuccess)
        code = m_files.Rename(temporary, target);
    if (code != kErrorSuccess)
        m_files.Remove(temporary);
    else
        m_node.syncsFolder = true;
    return code;
}

unsigned FileSave::WriteTemporary(const std::string& temporary, const std::string& text)
{
    std::unique_ptr<IFile> file;
    unsigned code = OpenTemporary(temporary, file);
    if (code == kErrorSuccess)
        code = file->Write(text.data(), text.size());
    return code == kErrorSuccess ? file->Sync() : code;
}

unsigned FileSave::OpenTemporary(const std::string& temporary, std::unique_ptr<IFile>& file)
{
    const auto open = [&] {
        return m_files.Open(temporary, VFileAccess::Write, VFileDisposition::CreateNew, m_mode, file);
    };
    unsigned code = open();
    if (code == kErrorAlreadyExists) // a killed process left it
        code = m_files.Remove(temporary);
    else if (IsMissing(code)) // the folder
        code = MakeFolders(m_files, FolderOf(temporary));
    else
        return code;
    return code == kErrorSuccess ? open() : code;
}

} // namespace ostrand
