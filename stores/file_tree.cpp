#include "stores/file_tree.h"

#include "core/fold.h"
#include "platform/platform.h"
#include "stores/file_names.h"
#include "stores/file_save.h"
#include "stores/store_messages.h"

#include <algorithm>

namespace ostrand {

namespace {

/// Bytes of documents that are kept after their keys were closed. A key that is opened again soon finds its values in
/// place if the file still has the same bytes; and hashing what was read, which takes as long as reading it, is put
/// off.
constexpr size_t kClosedBytes = 1u << 20;
/// What a document takes besides its text, roughly.
constexpr size_t kDocumentOverhead = 1024;

IFiles& Files() { return *Platform().files; }

std::string Joined(std::string_view folder, std::string_view name)
{
    std::string path;
    path.reserve(folder.size() + 1 + name.size() + kValuesSuffix.size());
    path += folder;
    path += '/';
    return path += name;
}

std::string ValuesFile(const std::string& folder) { return folder + std::string(kValuesSuffix); }

bool IsMissing(unsigned code) { return code == kErrorFileNotFound || code == kErrorPathNotFound; }

bool IsFolder(const std::string& path)
{
    VFileInfo info;
    return Files().GetInfo(path, info) == kErrorSuccess && info.isFolder;
}

bool IsFile(const std::string& path)
{
    VFileInfo info;
    return Files().GetInfo(path, info) == kErrorSuccess && !info.isFolder;
}

bool IsKey(const std::string& folder) { return IsFile(ValuesFile(folder)) || IsFolder(folder); }

bool IsReadableKey(const std::string& folder)
{
    std::unique_ptr<IFile> file;
    const unsigned code = Files().Open(ValuesFile(folder), VFileAccess::Read, VFileDisposition::OpenExisting, 0, file);
    VFileInfo info;
    if (code == kErrorSuccess)
        return file->GetInfo(info) == kErrorSuccess && !info.isFolder;
    return IsMissing(code) && IsFolder(folder);
}

/// The key that a folder's entry belongs to; false for files that are no key's.
bool KeyOf(const VFolderEntry& entry, std::u16string& name, std::string_view& base)
{
    base = entry.name;
    if (!entry.isFolder) {
        if (!base.ends_with(kValuesSuffix))
            return false;
        base.remove_suffix(kValuesSuffix.size());
    }
    return DecodeKeyName(base, name);
}

/// Folder of a subkey as it is spelled on the disk; false, with the spelling of `name`, where there is none.
bool FindChild(const std::string& folder, std::u16string_view name, std::string& child)
{
    child = Joined(folder, EncodeKeyName(name));
    if (IsKey(child))
        return true;
    std::vector<VFolderEntry> entries;
    if (Files().ListFolder(folder, entries) != kErrorSuccess)
        return false;
    std::u16string there;
    std::string_view base;
    for (const VFolderEntry& entry : entries)
        if (KeyOf(entry, there, base) && EqualNoCase(there, name)) {
            child = Joined(folder, base);
            return true;
        }
    return false;
}

/// A name below a key, as the path that a key of this very spelling has.
struct Target {
    std::vector<std::u16string_view> levels;
    std::string exact;

    unsigned Cut(const FileNode& from, const char16_t* name)
    {
        if (!CutLevels(name, levels))
            return kErrorInvalidParameter;
        exact = from.Folder();
        for (const std::u16string_view level : levels) {
            const std::string file = EncodeKeyName(level);
            if (file.size() + kValuesSuffix.size() > kLongestFileName)
                return kErrorInvalidParameter;
            exact = Joined(exact, file);
        }
        return kErrorSuccess;
    }
};

/// The folder as it is spelled on the disk; false where a level is missing, from which on it is spelled as asked.
bool Resolve(const FileNode& from, const Target& target, std::string& folder)
{
    folder = from.Folder();
    bool isThere = true;
    for (const std::u16string_view level : target.levels) {
        std::string child;
        if (isThere)
            isThere = FindChild(folder, level, child);
        else
            child = Joined(folder, EncodeKeyName(level));
        folder = std::move(child);
    }
    return isThere;
}

std::string WithoutFinalSlash(std::string path)
{
    while (path.size() > 1 && path.ends_with('/'))
        path.pop_back();
    return path;
}

} // namespace

FileTree::FileTree(std::string root) : m_root(WithoutFinalSlash(std::move(root))) { InstallStoreMessages(); }

FileTree::~FileTree()
{
    for (const auto& [folder, node] : m_nodes) {
        std::vector<VReportMessageParams> messages;
        if (const unsigned code = Save(*node, messages); code != kErrorSuccess) {
            VReportMessageParams& lost = messages.emplace_back();
            VReportMessageParams reason(code, LibraryModule());
            Fail(lost, kChangesLost, KeyPath(*node), reason.GetTextOneLine());
        }
        for (VReportMessageParams& message : messages)
            VReportMessage(0, message);
    }
}

FileNode& FileTree::NodeOf(const std::string& folder)
{
    if (const auto found = m_nodes.find(folder); found != m_nodes.end())
        return *found->second;
    std::string file = folder == m_root ? Joined(folder, kRootValuesFile) : ValuesFile(folder);
    return *m_nodes.emplace(folder, std::make_unique<FileNode>(folder, std::move(file))).first->second;
}

FileNode* FileTree::Acquire(FileNode& node)
{
    ++node.handles;
    node.Revive();
    TrimClosed();
    return &node;
}

FileNode* FileTree::OpenRoot()
{
    FileNode& node = NodeOf(m_root);
    node.MarkStale();
    return Acquire(node);
}

unsigned FileTree::OpenExact(const std::string& folder, FileNode*& node)
{
    std::string text;
    VFileInfo info;
    const unsigned code = Files().ReadWhole(ValuesFile(folder), FileDocument::kLimit, text, info);
    if (code != kErrorSuccess)
        return code;
    FileNode& found = NodeOf(folder);
    found.TakeText(std::move(text));
    node = Acquire(found);
    return kErrorSuccess;
}

unsigned FileTree::Open(const FileNode& from, const char16_t* name, bool mayCreate, FileNode*& node)
{
    Target target;
    unsigned code = target.Cut(from, name);
    if (code != kErrorSuccess)
        return code;
    code = OpenExact(target.exact, node);
    if (!IsMissing(code))
        return code;
    std::string folder;
    const bool isThere = Resolve(from, target, folder);
    if (!isThere && (!mayCreate || from.IsDeleted()))
        return kErrorFileNotFound;
    if (folder != target.exact)
        code = OpenExact(folder, node);
    if (!IsMissing(code))
        return code;
    return isThere ? OpenBare(folder, node) : Create(folder, node);
}

unsigned FileTree::OpenBare(const std::string& folder, FileNode*& node)
{
    FileNode& found = NodeOf(folder);
    found.TakeText({});
    node = Acquire(found);
    return kErrorSuccess;
}

unsigned FileTree::Create(const std::string& folder, FileNode*& node)
{
    const auto create = [&] {
        std::unique_ptr<IFile> file;
        return Files().Open(ValuesFile(folder), VFileAccess::Write, VFileDisposition::CreateNew, kFileMode, file);
    };
    unsigned code = create();
    if (IsMissing(code)) {
        code = MakeFolders(Files(), FolderOf(folder));
        if (code == kErrorSuccess)
            code = create();
    }
    if (code == kErrorAlreadyExists) // another process was faster
        return OpenExact(folder, node);
    return code == kErrorSuccess ? OpenBare(folder, node) : code;
}

void FileTree::Close(FileNode& node)
{
    const std::lock_guard guard(mutex);
    if (--node.handles > 0)
        return;
    m_closed.push_back(&node);
    m_closedBytes -= node.closedBytes;
    node.closedBytes = node.Document().Text().size() + kDocumentOverhead;
    m_closedBytes += node.closedBytes;
    ++node.closings;
}

void FileTree::TrimClosed()
{
    while (m_closedBytes > kClosedBytes) {
        FileNode& node = *m_closed.front();
        m_closed.pop_front();
        if (--node.closings > 0)
            continue;
        m_closedBytes -= node.closedBytes;
        node.closedBytes = 0;
        if (node.handles > 0)
            continue;
        node.LetGo();
        if (node.IsIdle())
            m_nodes.erase(node.Folder());
    }
}

bool FileTree::KeyExists(const FileNode& from, const char16_t* name)
{
    Target target;
    if (target.Cut(from, name) != kErrorSuccess)
        return false;
    std::string folder;
    return IsReadableKey(target.exact) || (Resolve(from, target, folder) && IsReadableKey(folder));
}

unsigned FileTree::DeleteKey(const FileNode& from, const char16_t* name)
{
    Target target;
    std::string folder;
    if (const unsigned code = target.Cut(from, name); code != kErrorSuccess)
        return code;
    if (!Resolve(from, target, folder))
        return kErrorFileNotFound;
    std::unique_ptr<IFile> lock;
    unsigned code = LockStore(Files(), m_root, lock);
    if (code == kErrorSuccess)
        code = RemoveKey(folder);
    if (code != kErrorSuccess)
        return code;
    for (const auto& [path, node] : m_nodes)
        if (path == folder || path.starts_with(folder + '/'))
            node->Forget();
    return kErrorSuccess;
}

unsigned FileTree::RemoveKey(const std::string& folder)
{
    // A link to a folder elsewhere: the link is the key, what it leads to isn't ours to empty.
    unsigned code = kErrorSuccess;
    if (IsFolder(folder))
        code = Files().ResolveLinks(folder) == folder ? RemoveSubkeys(folder) : Files().Remove(folder);
    if (code != kErrorSuccess)
        return code;
    code = Files().Remove(ValuesFile(folder));
    return IsMissing(code) ? kErrorSuccess : code;
}

unsigned FileTree::RemoveSubkeys(const std::string& folder)
{
    std::vector<VFolderEntry> entries;
    unsigned code = Files().ListFolder(folder, entries);
    std::u16string name;
    std::string_view base;
    for (const VFolderEntry& entry : entries) {
        if (code != kErrorSuccess)
            return code;
        if (KeyOf(entry, name, base))
            code = RemoveKey(Joined(folder, base));
        else if (entry.name.starts_with(kTemporaryPrefix))
            code = Files().Remove(Joined(folder, entry.name));
    }
    return code == kErrorSuccess ? Files().RemoveFolder(folder) : code;
}

unsigned FileTree::ListKeys(const FileNode& from, SnapshotIterator& out)
{
    std::vector<VFolderEntry> entries;
    const unsigned code = Files().ListFolder(from.Folder(), entries);
    if (code != kErrorSuccess)
        return IsMissing(code) ? kErrorSuccess : code;
    std::u16string name;
    std::string_view base;
    for (const VFolderEntry& entry : entries)
        if (KeyOf(entry, name, base))
            out.Add(name.c_str(), VProfileValueType::Subkey);
    out.SortNames();
    return kErrorSuccess;
}

bool FileTree::CanChange(const FileNode& node)
{
    const std::string target = Files().ResolveLinks(node.File());
    VFileInfo info;
    if (Files().GetInfo(target, info) == kErrorSuccess && !Files().CanWrite(target))
        return false;
    // The file is replaced, so the folder counts; one that is still missing is made in the one above.
    std::string folder = FolderOf(target);
    while (IsMissing(Files().GetInfo(folder, info)) && FolderOf(folder) != folder)
        folder = FolderOf(folder);
    return Files().CanWrite(folder);
}

unsigned FileTree::Save(FileNode& node, std::vector<VReportMessageParams>& messages)
{
    FileSave save(Files(), m_root, node);
    const unsigned code = save.Run();
    if (code != kErrorSuccess)
        return code;
    for (const std::u16string& name : save.Conflicts())
        Fail(messages.emplace_back(), kValueConflict, KeyPath(node), name.c_str());
    return code;
}

unsigned FileTree::Flush(FileNode& node, IReportMessageParams& report)
{
    std::vector<VReportMessageParams> conflicts;
    unsigned code = kErrorSuccess;
    {
        const std::lock_guard guard(mutex);
        code = Save(node, conflicts);
    }
    // Without the mutex: a router may well look into the store.
    if (code != kErrorSuccess)
        report.SetMessage(code);
    for (VReportMessageParams& conflict : conflicts) {
        report.Assign(&conflict);
        VReportMessage(0, conflict);
    }
    return code;
}

void FileTree::FlushAtClose(FileNode& node)
{
    VReportMessageParams outcome;
    const unsigned code = Flush(node, outcome);
    if (code == kErrorSuccess)
        return;
    VReportMessageParams message;
    Fail(message, kChangesNotSaved, KeyPath(node), outcome.GetTextOneLine());
    VReportMessage(0, message);
}

std::u16string FileTree::KeyPath(const FileNode& node) const
{
    std::u16string path;
    std::u16string level;
    std::string_view rest = std::string_view(node.Folder()).substr(m_root.size());
    while (!rest.empty()) {
        rest.remove_prefix(1);
        const size_t bar = std::min(rest.find('/'), rest.size());
        DecodeKeyName(rest.substr(0, bar), level);
        path += (path.empty() ? u"" : u"\\") + level;
        rest.remove_prefix(bar);
    }
    return path;
}

} // namespace ostrand
