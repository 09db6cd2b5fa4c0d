// The saves of a tree: one key at a time, or as a transaction.
#include "stores/file_journal.h"
#include "stores/file_tree.h"
#include "stores/store_lock.h"
#include "stores/store_messages.h"

namespace ostrand {

void FileTree::SaveLast()
{
    for (const auto& [folder, node] : m_nodes) {
        ConflictList conflicts;
        const unsigned code = Save(*node, conflicts);
        std::vector<VReportMessageParams> messages = std::move(conflicts.told);
        if (code != kErrorSuccess) {
            VReportMessageParams& lost = messages.emplace_back();
            VReportMessageParams reason(code, LibraryModule());
            Fail(lost, kChangesLost, KeyPath(*node), reason.GetTextOneLine());
        }
        for (VReportMessageParams& message : messages)
            VReportMessage(0, message);
    }
}

unsigned FileTree::Lock(unsigned patience, std::unique_ptr<IFile>& lock)
{
    unsigned code = LockStore(m_root, patience, lock);
    if (code == kErrorNotSupported) {
        if (!std::exchange(m_hasToldOfLocks, true)) {
            VUnicodeString root;
            FromUtf8(m_root, root);
            Fail(m_messages.emplace_back(), kNoStoreLock, root.c_str());
        }
        code = kErrorSuccess;
    }
    return code == kErrorSuccess ? FinishJournal(m_tools) : code;
}

void FileTree::FinishLeftJournal()
{
    VFileInfo info;
    std::unique_ptr<IFile> lock;
    // Without the rights to finish it the files show what they hold; whoever may write to them will finish it.
    if (Files().GetInfo(JournalPath(m_root), info) == kErrorSuccess)
        Lock(kLockPatience, lock);
}

unsigned FileTree::Save(FileNode& node, ConflictList& conflicts)
{
    if (node.Queue().IsEmpty() || node.IsInTransaction())
        return kErrorSuccess;
    FileSave save(m_tools, node);
    return Run(save, conflicts);
}

unsigned FileTree::Run(FileSave& save, ConflictList& conflicts)
{
    std::unique_ptr<IFile> lock;
    unsigned code = Lock(kLockPatience, lock);
    if (code == kErrorSuccess)
        code = save.Prepare();
    if (code == kErrorSuccess)
        code = save.Write();
    if (code == kErrorSuccess)
        Finish(save, conflicts);
    return code;
}

void FileTree::Finish(FileSave& save, ConflictList& conflicts)
{
    for (const std::u16string& name : save.Conflicts())
        if (conflicts.told.size() < ConflictList::kMost)
            Fail(conflicts.told.emplace_back(), kValueConflict, KeyPath(save.Node()), name.c_str());
        else
            ++conflicts.more;
    if (save.Damaged())
        TellDamage(save.Node().Folder(), *save.Damaged());
    if (const unsigned code = save.Finish(); code != kErrorSuccess)
        TellHistory(code);
    if (m_news)
        m_news->Note(save.Node().Folder(), save.Node().Document().Text());
}

void FileTree::TellDamage(const std::string& folder, std::string_view damaged)
{
    if (!m_tools.keeper.IsUntold(folder, damaged))
        return;
    VUnicodeString file;
    FromUtf8(ValuesFile(folder), file);
    Fail(m_messages.emplace_back(), kFileDamaged, file.c_str());
}

void FileTree::TellHistory(unsigned code)
{
    if (std::exchange(m_hasToldOfHistory, true))
        return;
    VReportMessageParams reason(code, LibraryModule());
    Fail(m_messages.emplace_back(), kHistoryNotWritten, reason.GetTextOneLine());
}

void FileTree::TellConflicts(ConflictList& conflicts, IReportMessageParams* report)
{
    for (VReportMessageParams& conflict : conflicts.told) {
        if (report)
            report->Assign(&conflict);
        m_messages.push_back(std::move(conflict));
    }
    if (conflicts.more == 0)
        return;
    const std::string number = std::to_string(conflicts.more);
    Fail(m_messages.emplace_back(), kFurtherConflicts, std::u16string(number.begin(), number.end()));
}

unsigned FileTree::Flush(FileNode& node, IReportMessageParams& report)
{
    ConflictList conflicts;
    const unsigned code = Save(node, conflicts);
    if (code != kErrorSuccess)
        report.SetMessage(code);
    TellConflicts(conflicts, &report);
    return code;
}

void FileTree::FlushAtClose(FileNode& node)
{
    VReportMessageParams outcome;
    if (Flush(node, outcome) != kErrorSuccess)
        Fail(m_messages.emplace_back(), kChangesNotSaved, KeyPath(node), outcome.GetTextOneLine());
}

unsigned FileTree::BeginTransaction()
{
    if (m_transaction)
        return kErrorInvalidParameter;
    m_transaction = std::make_unique<FileTransaction>(m_root, m_transactionBytes);
    return kErrorSuccess;
}

void FileTree::JoinTransaction(FileNode& node)
{
    if (m_transaction)
        m_transaction->Join(node);
}

unsigned FileTree::Commit(IReportMessageParams& report)
{
    if (!m_transaction) {
        report.SetMessage(kErrorInvalidParameter);
        return kErrorInvalidParameter;
    }
    std::unique_ptr<IFile> lock;
    ConflictList conflicts;
    unsigned code = Lock(kLockPatience, lock);
    if (code == kErrorSuccess)
        code = m_transaction->Commit(m_tools, [&](FileSave& save) { Finish(save, conflicts); });
    if (code != kErrorSuccess)
        TellFailedCommit(code, report);
    else
        m_transaction.reset();
    TellConflicts(conflicts, code == kErrorSuccess ? &report : nullptr);
    return code;
}

unsigned FileTree::Rewrite(FileNode& node, const std::string* text, std::string& aside)
{
    ConflictList conflicts;
    unsigned code = Save(node, conflicts);
    FileSave save(m_tools, node);
    if (text)
        save.SetText(*text);
    if (code == kErrorSuccess)
        code = Run(save, conflicts);
    aside = save.Aside();
    TellConflicts(conflicts, nullptr);
    return code;
}

unsigned FileTree::RewriteKey(const std::string& folder, const std::string* text, std::string& aside)
{
    if (m_transaction)
        return kErrorNotSupported;
    FileNode& node = *Acquire(NodeOf(folder));
    const unsigned code = Rewrite(node, text, aside);
    Close(node);
    return code;
}

void FileTree::MakeGood(const std::string& folder, std::string& text)
{
    std::optional<std::string> good = m_tools.keeper.MadeGood(folder, text);
    if (!good)
        return;
    TellDamage(folder, text);
    text = std::move(*good);
}

void FileTree::RollBack()
{
    std::unique_ptr<IFile> lock;
    if (m_transaction && m_transaction->HasLeftJournal()) {
        const unsigned code = LockStore(m_root, kLockPatience, lock);
        if (code == kErrorSuccess || code == kErrorNotSupported)
            RemoveJournal(m_root);
    }
    m_transaction.reset();
}

void FileTree::TellFailedCommit(unsigned code, IReportMessageParams& report) const
{
    report.SetMessage(code);
    JournalReader journal;
    if (journal.Open(m_root) != kErrorSuccess || !journal.IsWhole())
        return;
    VReportMessageParams reason(code, LibraryModule());
    Fail(report, kTransactionPending, reason.GetTextOneLine());
}

} // namespace ostrand
