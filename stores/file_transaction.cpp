#include "stores/file_transaction.h"

#include "platform/error_codes.h"
#include "stores/file_journal.h"
#include "stores/file_names.h"
#include "stores/store_lock.h"

#include <algorithm>

namespace ostrand {

namespace {

using Saves = std::vector<std::unique_ptr<FileSave>>;

/// Of the key's folder, below the store's.
std::string_view PathBelow(const std::string& root, const FileNode& node)
{
    const std::string_view folder = node.Folder();
    return folder.size() > root.size() ? folder.substr(root.size() + 1) : std::string_view();
}

std::string ValuesFileOf(const std::string& root, const std::string& path)
{
    return root + '/' + (path.empty() ? std::string(kRootValuesFile) : path + std::string(kValuesSuffix));
}

/// Adds to `linked` the file, if links led to it: it may lie on another medium.
unsigned PutInPlace(SaveTools& tools, const JournalEntry& entry, std::vector<std::string>& linked)
{
    ReplacedFile file;
    const std::string values = ValuesFileOf(tools.root, entry.path);
    file.path = Files().ResolveLinks(values);
    if (file.path != values)
        linked.push_back(file.path);
    std::string there;
    const unsigned code = Files().ReadWhole(file.path, FileDocument::kLimit, there, file.info);
    file.exists = code == kErrorSuccess;
    if (!file.exists && !IsMissing(code))
        return code;
    return file.exists && there == entry.text ? kErrorSuccess : tools.replacer.ReplaceUnsynced(file, entry.text);
}

unsigned SyncMedia(SaveTools& tools, const std::vector<std::string>& linked)
{
    unsigned code = Files().SyncMedium(tools.root);
    for (const std::string& file : linked)
        if (code == kErrorSuccess)
            code = Files().SyncMedium(file);
    if (code == kErrorSuccess)
        tools.replacer.NoteSynced();
    return code;
}

std::vector<std::string> LinkedFiles(const Saves& saves)
{
    std::vector<std::string> linked;
    for (const auto& save : saves)
        if (save->File().path != save->Node().File())
            linked.push_back(save->File().path);
    return linked;
}

/// After a failure behind the journal: the files as they were, and no journal. Where that fails, too, the journal
/// stays, and the transaction will be finished later.
void TakeBack(SaveTools& tools, const Saves& saves, size_t written)
{
    for (size_t i = 0; i < written; ++i)
        if (saves[i]->Undo() != kErrorSuccess)
            return;
    if (SyncMedia(tools, LinkedFiles(saves)) == kErrorSuccess)
        RemoveJournal(tools.root);
}

/// `leftJournal`: no file was touched, but the medium wouldn't take the journal away again.
unsigned WriteAll(SaveTools& tools, const Saves& saves, bool& leftJournal)
{
    std::vector<JournalItem> items;
    items.reserve(saves.size());
    for (const auto& save : saves)
        items.push_back({PathBelow(tools.root, save->Node()), save->Text()});
    unsigned code = tools.replacer.SyncAllNames();
    // Before the journal: whoever finishes that has only the new texts.
    for (const auto& save : saves)
        if (code == kErrorSuccess)
            code = save->SetAside();
    if (code == kErrorSuccess)
        code = WriteJournal(tools.root, items);
    VFileInfo journal;
    leftJournal = code != kErrorSuccess && !IsMissing(Files().GetInfo(JournalPath(tools.root), journal));
    if (code != kErrorSuccess)
        return code;
    size_t written = 0; // a save that fails has changed nothing
    while (code == kErrorSuccess && written < saves.size()) {
        code = saves[written]->WriteUnsynced();
        written += code == kErrorSuccess ? 1 : 0;
    }
    if (code == kErrorSuccess)
        code = SyncMedia(tools, LinkedFiles(saves));
    if (code != kErrorSuccess)
        TakeBack(tools, saves, written);
    else
        RemoveJournal(tools.root); // one that stays does no harm: the next save takes it away
    return code;
}

} // namespace

unsigned FinishJournal(SaveTools& tools)
{
    std::vector<JournalEntry> entries;
    unsigned code = ReadJournal(tools.root, entries);
    if (code != kErrorSuccess)
        return code == kErrorFileNotFound ? kErrorSuccess : code;
    code = entries.empty() ? kErrorSuccess : SyncJournal(tools.root);
    if (code == kErrorSuccess)
        code = tools.replacer.SyncAllNames();
    std::vector<std::string> linked;
    for (const JournalEntry& entry : entries)
        if (code == kErrorSuccess)
            code = PutInPlace(tools, entry, linked);
    if (code == kErrorSuccess && !entries.empty())
        code = SyncMedia(tools, linked);
    return code == kErrorSuccess ? RemoveJournal(tools.root) : code;
}

FileTransaction::~FileTransaction() { RollBack(); }

void FileTransaction::Join(FileNode& node)
{
    if (node.IsInTransaction())
        return;
    node.BeginTransaction();
    m_members.push_back(&node);
}

void FileTransaction::AddKey(FileNode& node)
{
    Join(node);
    m_newKeys.push_back(&node);
}

unsigned FileTransaction::Prepare(SaveTools& tools, Saves& saves)
{
    saves.clear();
    for (FileNode* const node : m_members) {
        saves.push_back(std::make_unique<FileSave>(tools, *node));
        if (const unsigned code = saves.back()->Prepare(); code != kErrorSuccess)
            return code;
    }
    return kErrorSuccess;
}

unsigned FileTransaction::Commit(SaveTools& tools, Saves& saves)
{
    unsigned code = Prepare(tools, saves);
    if (code != kErrorSuccess)
        return code;
    const auto unneeded = std::partition(saves.begin(), saves.end(), [](const auto& s) { return s->IsNeeded(); });
    Saves rest(std::make_move_iterator(unneeded), std::make_move_iterator(saves.end()));
    saves.erase(unneeded, saves.end());
    if (saves.size() == 1)
        code = saves[0]->Write();
    else if (!saves.empty())
        code = WriteAll(tools, saves, m_leftJournal);
    if (code != kErrorSuccess)
        return code;
    saves.insert(saves.end(), std::make_move_iterator(rest.begin()), std::make_move_iterator(rest.end()));
    Release();
    return kErrorSuccess;
}

void FileTransaction::Release()
{
    for (FileNode* const node : m_members)
        node->EndTransaction();
    m_members.clear();
    m_newKeys.clear();
}

void FileTransaction::RollBack()
{
    for (FileNode* const node : m_members)
        node->RollBack();
    for (FileNode* const node : m_newKeys)
        node->Forget();
    Release();
}

} // namespace ostrand
