#include "stores/file_commit.h"

#include "platform/error_codes.h"
#include "stores/file_names.h"
#include "stores/store_lock.h"

#include <algorithm>

namespace ostrand {

namespace {

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

unsigned PutInPlace(SaveTools& tools, const JournalEntry& entry, WrittenMedia& media)
{
    ReplacedFile file;
    const std::string values = ValuesFileOf(tools.root, entry.path);
    file.path = Files().ResolveLinks(values);
    std::string there;
    unsigned code = Files().ReadWhole(file.path, FileDocument::kLimit, there, file.info);
    file.exists = code == kErrorSuccess;
    if (!file.exists && !IsMissing(code))
        return code;
    code = file.exists && there == entry.text ? kErrorSuccess : tools.replacer.ReplaceUnsynced(file, entry.text);
    if (code == kErrorSuccess)
        media.Note(file.path, values);
    return code;
}

unsigned PutAllInPlace(SaveTools& tools, JournalReader& journal)
{
    WrittenMedia media;
    JournalEntry entry;
    bool isThere = true;
    unsigned code = SyncJournal(tools.root);
    if (code == kErrorSuccess)
        code = tools.replacer.SyncAllNames();
    while (code == kErrorSuccess && isThere) {
        code = journal.Next(entry, isThere);
        if (code == kErrorSuccess && isThere)
            code = PutInPlace(tools, entry, media);
    }
    return code == kErrorSuccess ? media.Sync(tools) : code;
}

} // namespace

unsigned FinishJournal(SaveTools& tools)
{
    unsigned code = kErrorSuccess;
    {
        JournalReader journal;
        code = journal.Open(tools.root);
        if (code != kErrorSuccess)
            return code == kErrorFileNotFound ? kErrorSuccess : code;
        if (journal.IsWhole())
            code = PutAllInPlace(tools, journal);
    }
    return code == kErrorSuccess ? RemoveJournal(tools.root) : code;
}

void WrittenMedia::Note(const std::string& path, const std::string& place)
{
    VFileInfo info;
    if (path != place && Files().GetInfo(path, info) == kErrorSuccess)
        m_linked.try_emplace(info.device, path);
}

unsigned WrittenMedia::Sync(SaveTools& tools) const
{
    unsigned code = Files().SyncMedium(tools.root);
    for (const auto& [device, path] : m_linked)
        if (code == kErrorSuccess)
            code = Files().SyncMedium(path);
    if (code == kErrorSuccess)
        tools.replacer.NoteSynced();
    return code;
}

unsigned FileCommit::Run(const std::vector<FileNode*>& members)
{
    unsigned code = Prepare(members);
    if (code != kErrorSuccess)
        return code;
    if (m_needed + (m_spill.IsEmpty() ? 0 : 2) > 1)
        code = WriteAll();
    else if (m_needed == 1)
        code = m_saves[0]->Write(); // one file alone needs no journal
    if (code == kErrorSuccess)
        for (const auto& save : m_saves)
            m_done(*save);
    return code;
}

unsigned FileCommit::Prepare(const std::vector<FileNode*>& members)
{
    for (FileNode* const node : members) {
        m_saves.push_back(std::make_unique<FileSave>(m_tools, *node));
        if (const unsigned code = m_saves.back()->Prepare(); code != kErrorSuccess)
            return code;
    }
    const auto unneeded = std::partition(m_saves.begin(), m_saves.end(), [](const auto& s) { return s->IsNeeded(); });
    m_needed = static_cast<size_t>(unneeded - m_saves.begin());
    return kErrorSuccess;
}

unsigned FileCommit::WriteAll()
{
    bool isBegun = false;
    unsigned code = RecordAll(isBegun);
    if (code != kErrorSuccess) {
        VFileInfo journal;
        m_leftJournal = isBegun && !IsMissing(Files().GetInfo(JournalPath(m_tools.root), journal));
        return code;
    }
    if (!isBegun)
        return kErrorSuccess;
    code = ReplaceAll();
    if (code == kErrorSuccess)
        RemoveJournal(m_tools.root); // one that stays does no harm: the next save takes it away
    else if (m_canGoBack)
        TakeBack();
    return code;
}

unsigned FileCommit::RecordAll(bool& isBegun)
{
    JournalWriter journal(m_tools.root);
    unsigned code = m_tools.replacer.SyncAllNames();
    for (size_t i = 0; code == kErrorSuccess && i < m_needed; ++i)
        code = Record(journal, *m_saves[i]);
    const auto record = [&](FileNode& node) {
        FileSave save(m_tools, node);
        const unsigned outcome = save.Prepare();
        return outcome == kErrorSuccess && save.IsNeeded() ? Record(journal, save) : outcome;
    };
    if (code == kErrorSuccess)
        code = m_spill.ForEach(record);
    isBegun = journal.IsBegun();
    return code == kErrorSuccess && isBegun ? journal.Finish() : code;
}

unsigned FileCommit::Record(JournalWriter& journal, FileSave& save) const
{
    // Before the journal: whoever finishes that has only the new texts.
    const unsigned code = save.SetAside();
    return code == kErrorSuccess ? journal.Append(PathBelow(m_tools.root, save.Node()), save.Text()) : code;
}

unsigned FileCommit::ReplaceAll()
{
    unsigned code = kErrorSuccess;
    while (code == kErrorSuccess && m_written < m_needed) {
        code = Replace(*m_saves[m_written]);
        m_written += code == kErrorSuccess ? 1 : 0; // a save that fails has changed nothing
    }
    if (code == kErrorSuccess)
        code = ReplaceSpilled();
    return code == kErrorSuccess ? m_media.Sync(m_tools) : code;
}

unsigned FileCommit::Replace(FileSave& save)
{
    const unsigned code = save.WriteUnsynced();
    if (code == kErrorSuccess)
        m_media.Note(save.File().path, save.Node().File());
    return code;
}

unsigned FileCommit::ReplaceSpilled()
{
    return m_spill.ForEach([&](FileNode& node) {
        FileSave save(m_tools, node);
        unsigned code = save.Prepare();
        if (code == kErrorSuccess && save.IsNeeded()) {
            code = Replace(save);
            m_canGoBack = m_canGoBack && code != kErrorSuccess; // the old text doesn't stay in memory
        }
        if (code == kErrorSuccess)
            m_done(save);
        return code;
    });
}

/// After a failure behind the journal: the files as they were, and no journal. Where that fails, too, the journal
/// stays, and the transaction will be finished later.
void FileCommit::TakeBack()
{
    for (size_t i = 0; i < m_written; ++i)
        if (m_saves[i]->Undo() != kErrorSuccess)
            return;
    if (m_media.Sync(m_tools) == kErrorSuccess)
        RemoveJournal(m_tools.root);
}

} // namespace ostrand
