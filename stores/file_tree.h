// The files of one store in this process: which keys there are, the node of each open one, and the saves.
#pragma once

#include "core/report.h"
#include "stores/file_news.h"
#include "stores/file_node.h"
#include "stores/file_save.h"
#include "stores/file_transaction.h"

#include <deque>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace ostrand {

/// Conflicts of one save, or of a transaction, of which the first are told one by one.
struct ConflictList {
    static constexpr size_t kMost = 100;
    std::vector<VReportMessageParams> told;
    size_t more = 0;
};

/// Shared by the factory, its stores and all handles. Callers hold a `Guard`. Names of keys may go through several
/// levels.
class FileTree {
public:
    /// `transactionBytes`: see FileStoreFactory.
    FileTree(std::string root, size_t transactionBytes);
    ~FileTree();

    /// Keeps other threads out. What is to be told to the router is told when it goes, behind the mutex: a router may
    /// well look into the store.
    class Guard {
    public:
        explicit Guard(FileTree& tree) : m_tree(tree) { tree.m_mutex.lock(); }
        ~Guard();
        Guard(const Guard&) = delete;
        Guard& operator=(const Guard&) = delete;

    private:
        FileTree& m_tree;
    };

    /// Adds a handle to a key's node; each is given back by `Close`. `OpenRoot` reads no values yet; the first one
    /// finishes what a dead process left in the journal.
    FileNode* OpenRoot();
    /// A missing key is made if `mayCreate`.
    unsigned Open(const FileNode& from, const char16_t* name, bool mayCreate, FileNode*& node);
    /// An existing key by its path from the root, values loaded; null or empty for the root.
    unsigned OpenPath(const char16_t* path, FileNode*& node);
    /// Touches no file. `document` is the one that the handle read from, null for none.
    void Close(FileNode& node, const FileDocument* document = nullptr);

    bool KeyExists(const FileNode& from, const char16_t* name);
    unsigned DeleteKey(const FileNode& from, const char16_t* name);
    unsigned ListKeys(const FileNode& from, SnapshotIterator& out);
    /// Whether the file system lets this process change the key.
    bool CanChange(const FileNode& node);

    /// Saves what is queued, unless a transaction keeps it. Conflicts go to the report and to the router.
    unsigned Flush(FileNode& node, IReportMessageParams& report);
    /// The same where nobody takes a report: a failure goes to the router, too.
    void FlushAtClose(FileNode& node);

    unsigned BeginTransaction();
    /// To be called before a node is written to.
    void JoinTransaction(FileNode& node);
    /// The code is kTransactionPending when the journal could not be taken back.
    unsigned Commit(IReportMessageParams& report);
    void RollBack();

    /// Paths of the keys that other programs changed since the last call; open nodes follow.
    unsigned Poll(std::vector<VUnicodeString>& keys);
    int PollDescriptor();

    /// Folder of a key that exists, or did once, by its path from the root.
    unsigned FindFolder(const char16_t* path, std::string& folder);
    /// Puts a text, null for what is there, in the place of a key's file, making good what is damaged; tells where the
    /// damaged file was set aside.
    unsigned RewriteKey(const std::string& folder, const std::string* text, std::string& aside);
    unsigned ReadValuesFile(const std::string& folder, std::string& text, VFileInfo& info) const;
    FileKeeper& Keeper() { return m_tools.keeper; }

    /// Reads the file of a node that is stale; a missing one is an empty one.
    unsigned Load(FileNode& node);

private:
    struct Hash {
        size_t operator()(std::string_view s) const { return static_cast<size_t>(HashBytes(s)); }
    };

    FileNode& NodeOf(std::string_view folder);
    /// The same with what the transaction keeps of it.
    unsigned ResumeNode(std::string_view folder, FileNode*& node);
    unsigned OpenExact(const std::string& folder, FileNode*& node);
    /// A key without a file of values, or an empty one.
    unsigned OpenBare(const std::string& folder, FileNode*& node);
    unsigned Create(const std::string& folder, FileNode*& node);
    FileNode* Acquire(FileNode& node);
    void TrimClosed();
    /// Of a node without handles; the node may be gone afterwards.
    void Release(FileNode& node);
    void Rest(FileNode& node, size_t bytes);
    unsigned RemoveKey(const std::string& folder);
    /// Copies of the key's file from when it was damaged.
    void RemoveAsides(const std::string& folder);
    unsigned RemoveSubkeys(const std::string& folder);
    /// Locks the store against other processes, and finishes what one of them left.
    unsigned Lock(unsigned patience, std::unique_ptr<IFile>& lock);
    void FinishLeftJournal();
    /// What still waits, when all handles are gone.
    void SaveLast();
    unsigned Save(FileNode& node, ConflictList& conflicts);
    unsigned Run(FileSave& save, ConflictList& conflicts);
    unsigned Rewrite(FileNode& node, const std::string* text, std::string& aside);
    void MakeGood(const std::string& folder, std::string& text);
    void Finish(FileSave& save, ConflictList& conflicts);
    void TellFailedCommit(unsigned code, IReportMessageParams& report) const;
    /// Once for each state of the file.
    void TellDamage(const std::string& folder, std::string_view damaged);
    /// Once: a history that can't be written stays away for long, as a rule.
    void TellHistory(unsigned code);
    /// To the router, and the last one to the report, if any.
    void TellConflicts(ConflictList& conflicts, IReportMessageParams* report);
    void BeginNews();
    bool TakeNews(const std::string& folder);
    std::string ValuesFile(const std::string& folder) const;
    void NoteNewKey(const std::string& folder);
    const std::string* FindNewKey(std::string_view folder) const;
    void ListNewKeys(const FileNode& from, SnapshotIterator& out) const;
    std::u16string KeyPath(const std::string& folder) const;
    std::u16string KeyPath(const FileNode& node) const { return KeyPath(node.Folder()); }

    std::mutex m_mutex;
    std::vector<VReportMessageParams> m_messages; // for the router
    std::string m_root;
    size_t m_transactionBytes;
    LayoutPool m_layouts;
    SaveTools m_tools;
    std::unique_ptr<FileTransaction> m_transaction;
    std::unique_ptr<FileNews> m_news; // from the first Poll on
    bool m_isFirstOpening = true;
    bool m_hasToldOfLocks = false;
    bool m_hasToldOfHistory = false;
    std::unordered_map<std::string_view, std::unique_ptr<FileNode>, Hash> m_nodes; // by folder, whose name they hold
    std::deque<FileNode*> m_closed; // by the time of closing, once for each
    size_t m_closedBytes = 0;       // of their documents
};

} // namespace ostrand
