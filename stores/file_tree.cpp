#include "stores/file_tree.h"

#include "stores/damage_scan.h"
#include "stores/file_damage.h"
#include "stores/file_journal.h"
#include "stores/file_names.h"
#include "stores/key_files.h"
#include "stores/store_lock.h"
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

std::string WithoutFinalSlash(std::string path)
{
    while (path.size() > 1 && path.ends_with('/'))
        path.pop_back();
    return path;
}

} // namespace

FileTree::FileTree(std::string root, size_t transactionBytes)
    : m_root(WithoutFinalSlash(std::move(root))),
      m_transactionBytes(transactionBytes),
      m_tools(m_root)
{
    InstallStoreMessages();
}

FileTree::Guard::~Guard()
{
    std::vector<VReportMessageParams> messages;
    if (!m_tree.m_messages.empty())
        messages.swap(m_tree.m_messages);
    m_tree.m_mutex.unlock();
    for (VReportMessageParams& message : messages)
        VReportMessage(0, message);
}

FileTree::~FileTree()
{
    m_transaction.reset();
    SaveLast();
    std::unique_ptr<IFile> lock;
    if (m_tools.replacer.HasSpares() && Lock(0, lock) == kErrorSuccess)
        m_tools.replacer.RemoveSpares();
}

FileNode& FileTree::NodeOf(std::string_view folder)
{
    if (const auto found = m_nodes.find(folder); found != m_nodes.end())
        return *found->second;
    static const std::string rootEnding = '/' + std::string(kRootValuesFile);
    const std::string_view ending = folder == m_root ? std::string_view(rootEnding) : kValuesSuffix;
    auto node = std::make_unique<FileNode>(folder, ending, &m_layouts);
    const std::string_view name = node->Folder();
    return *m_nodes.emplace(name, std::move(node)).first->second;
}

unsigned FileTree::ResumeNode(std::string_view folder, FileNode*& node)
{
    const bool isNew = m_transaction && !m_nodes.contains(folder);
    node = &NodeOf(folder);
    const unsigned code = isNew ? m_transaction->Resume(*node) : kErrorSuccess;
    if (code != kErrorSuccess)
        m_nodes.erase(folder);
    return code;
}

std::string FileTree::ValuesFile(const std::string& folder) const
{
    return folder == m_root ? Joined(folder, kRootValuesFile) : ValuesFileBeside(folder);
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
    if (m_isFirstOpening)
        FinishLeftJournal();
    m_isFirstOpening = false;
    FileNode& node = NodeOf(m_root);
    node.MarkStale();
    return Acquire(node);
}

unsigned FileTree::OpenExact(const std::string& folder, FileNode*& node)
{
    std::string text;
    VFileInfo info;
    unsigned code = Files().ReadWhole(ValuesFileBeside(folder), FileDocument::kLimit, text, info);
    FileNode* found = nullptr;
    if (code == kErrorSuccess)
        code = ResumeNode(folder, found);
    if (code != kErrorSuccess)
        return code;
    if (m_news)
        m_news->Note(folder, text);
    // What the node has was looked at before, unless it has nothing yet.
    if ((found->IsStale() || text != found->Document().Text()) && LooksDamaged(text))
        MakeGood(folder, text);
    found->TakeText(std::move(text));
    node = Acquire(*found);
    return kErrorSuccess;
}

unsigned FileTree::Open(const FileNode& from, const char16_t* name, bool mayCreate, FileNode*& node)
{
    KeyTarget target;
    unsigned code = target.Cut(from.Folder(), name);
    if (code != kErrorSuccess)
        return code;
    code = OpenExact(target.exact, node);
    if (!IsMissing(code))
        return code;
    std::string folder;
    const bool isThere = Resolve(from.Folder(), target, folder);
    if (const std::string* const found = isThere ? nullptr : FindNewKey(folder))
        return OpenBare(*found, node);
    if (!isThere && (!mayCreate || from.IsDeleted()))
        return kErrorFileNotFound;
    if (folder != target.exact)
        code = OpenExact(folder, node);
    if (!IsMissing(code))
        return code;
    return isThere ? OpenBare(folder, node) : Create(folder, node);
}

unsigned FileTree::OpenPath(const char16_t* path, FileNode*& node)
{
    if (path && *path)
        return Open(NodeOf(m_root), path, false, node);
    node = OpenRoot();
    const unsigned code = Load(*node);
    if (code != kErrorSuccess)
        Close(*node);
    return code;
}

unsigned FileTree::Load(FileNode& node)
{
    std::string text;
    VFileInfo info;
    const unsigned code = ReadValuesFile(node.Folder(), text, info);
    if (code != kErrorSuccess && !IsMissing(code))
        return code;
    if (code == kErrorSuccess && LooksDamaged(text))
        MakeGood(node.Folder(), text);
    node.TakeText(code == kErrorSuccess ? std::move(text) : std::string());
    return kErrorSuccess;
}

unsigned FileTree::ReadValuesFile(const std::string& folder, std::string& text, VFileInfo& info) const
{
    return Files().ReadWhole(ValuesFile(folder), FileDocument::kLimit, text, info);
}

unsigned FileTree::FindFolder(const char16_t* path, std::string& folder)
{
    folder = m_root;
    if (!path || !*path)
        return kErrorSuccess;
    KeyTarget target;
    const unsigned code = target.Cut(m_root, path);
    if (code == kErrorSuccess)
        Resolve(m_root, target, folder);
    return code;
}

unsigned FileTree::OpenBare(const std::string& folder, FileNode*& node)
{
    FileNode* found = nullptr;
    const unsigned code = ResumeNode(folder, found);
    if (code != kErrorSuccess)
        return code;
    if (m_news)
        m_news->Note(folder, {});
    found->TakeText({});
    node = Acquire(*found);
    return kErrorSuccess;
}

unsigned FileTree::Create(const std::string& folder, FileNode*& node)
{
    if (m_transaction) {
        const unsigned code = OpenBare(folder, node);
        if (code == kErrorSuccess)
            m_transaction->AddKey(*node);
        return code;
    }
    const auto create = [&] {
        std::unique_ptr<IFile> file;
        return Files().Open(ValuesFile(folder), VFileAccess::Write, VFileDisposition::CreateNew, kFileMode, file);
    };
    unsigned code = create();
    if (IsMissing(code)) {
        code = MakeFolders(FolderOf(folder));
        if (code == kErrorSuccess)
            code = create();
    }
    if (code == kErrorAlreadyExists) // another process was faster
        return OpenExact(folder, node);
    if (code == kErrorSuccess)
        NoteNewKey(folder);
    return code == kErrorSuccess ? OpenBare(folder, node) : code;
}

void FileTree::Close(FileNode& node, const FileDocument* document)
{
    if (document)
        node.TakeLateReads(*document);
    if (--node.handles > 0)
        return;
    // Nothing of it would be of use again: a walk over many keys doesn't push out those that are in use.
    if (!node.Document().IsCut()) {
        Release(node);
        return;
    }
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
        if (node.handles == 0)
            Release(node);
    }
}

void FileTree::Release(FileNode& node)
{
    const size_t bytes = node.Document().Text().size();
    node.LetGo();
    if (node.IsIdle())
        m_nodes.erase(node.Folder());
    else if (m_transaction && node.IsInTransaction())
        Rest(node, bytes);
}

void FileTree::Rest(FileNode& node, size_t bytes)
{
    std::vector<FileNode*> gone;
    m_transaction->Rest(node, bytes, gone);
    for (const FileNode* const other : gone)
        m_nodes.erase(other->Folder());
}

bool FileTree::KeyExists(const FileNode& from, const char16_t* name)
{
    KeyTarget target;
    if (target.Cut(from.Folder(), name) != kErrorSuccess)
        return false;
    std::string folder;
    if (IsReadableKey(target.exact))
        return true;
    return Resolve(from.Folder(), target, folder) ? IsReadableKey(folder) : FindNewKey(folder) != nullptr;
}

unsigned FileTree::DeleteKey(const FileNode& from, const char16_t* name)
{
    KeyTarget target;
    std::string folder;
    if (const unsigned code = target.Cut(from.Folder(), name); code != kErrorSuccess)
        return code;
    if (!Resolve(from.Folder(), target, folder))
        return kErrorFileNotFound;
    if (m_transaction)
        return kErrorNotSupported;
    std::unique_ptr<IFile> lock;
    unsigned code = Lock(kLockPatience, lock);
    if (code == kErrorSuccess)
        code = RemoveKey(folder);
    if (code == kErrorSuccess)
        RemoveAsides(folder);
    if (code == kErrorSuccess)
        code = Files().SyncFolder(FolderOf(folder));
    if (code != kErrorSuccess)
        return code;
    for (const auto& [path, node] : m_nodes)
        if (path == folder || path.starts_with(folder + '/'))
            node->Forget();
    return kErrorSuccess;
}

void FileTree::RemoveAsides(const std::string& folder)
{
    std::vector<VFolderEntry> entries;
    const std::string values = ValuesFile(folder);
    const std::string_view name = std::string_view(values).substr(values.rfind('/') + 1);
    Files().ListFolder(FolderOf(folder), entries);
    for (const VFolderEntry& entry : entries)
        if (!entry.isFolder && entry.name.starts_with(name) && IsAsideName(entry.name))
            Files().Remove(Joined(FolderOf(folder), entry.name));
}

unsigned FileTree::RemoveKey(const std::string& folder)
{
    // A link to a folder elsewhere: the link is the key, what it leads to isn't ours to empty.
    unsigned code = kErrorSuccess;
    if (IsFolder(folder))
        code = Files().ResolveLinks(folder) == folder ? RemoveSubkeys(folder) : Files().Remove(folder);
    if (code != kErrorSuccess)
        return code;
    std::string last;
    VFileInfo info;
    const bool hasValues = ReadValuesFile(folder, last, info) == kErrorSuccess && !last.empty();
    code = Files().Remove(ValuesFile(folder));
    if (code == kErrorSuccess && hasValues)
        if (const unsigned failure = m_tools.keeper.RecordDeletion(folder, last); failure != kErrorSuccess)
            TellHistory(failure);
    if (m_news)
        m_news->NoteGone(folder);
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
        else if (entry.name.starts_with(kTemporaryPrefix) || IsAsideName(entry.name))
            code = Files().Remove(Joined(folder, entry.name));
    }
    return code == kErrorSuccess ? Files().RemoveFolder(folder) : code;
}

unsigned FileTree::ListKeys(const FileNode& from, SnapshotIterator& out)
{
    std::vector<VFolderEntry> entries;
    const unsigned code = Files().ListFolder(from.Folder(), entries);
    if (code != kErrorSuccess && !IsMissing(code))
        return code;
    if (!entries.empty() && LeadsBack(m_root, from.Folder()))
        entries.clear();
    if (m_transaction)
        ListNewKeys(from, out);
    std::u16string name;
    std::string_view base;
    for (const VFolderEntry& entry : entries)
        if (KeyOf(entry, name, base) &&
            !(entry.isFolder && entry.isLink && LeadsBack(m_root, Joined(from.Folder(), base))))
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

void FileTree::NoteNewKey(const std::string& folder)
{
    // Whoever took the old file away by hand meant it: its values aren't missing from the new one.
    const std::optional<std::string> old = m_tools.keeper.LastGood(folder);
    std::unique_ptr<IFile> lock;
    if (old && Lock(kLockPatience, lock) == kErrorSuccess)
        m_tools.keeper.RecordDeletion(folder, *old);
}

const std::string* FileTree::FindNewKey(std::string_view folder) const
{
    return m_transaction ? m_transaction->FindNewKey(folder) : nullptr;
}

void FileTree::ListNewKeys(const FileNode& from, SnapshotIterator& out) const
{
    std::u16string name;
    for (std::string_view below : m_transaction->NewKeys()) {
        if (!below.starts_with(from.Folder() + '/'))
            continue;
        below.remove_prefix(from.Folder().size() + 1);
        DecodeKeyName(below.substr(0, below.find('/')), name);
        out.Add(name.c_str(), VProfileValueType::Subkey);
    }
}

std::u16string FileTree::KeyPath(const std::string& folder) const
{
    const std::string_view below = std::string_view(folder).substr(m_root.size());
    return PathOfKey(below.substr(std::min<size_t>(1, below.size())));
}

} // namespace ostrand
