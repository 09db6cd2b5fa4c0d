// A transaction over keys of one store: which keys take part, and where they wait. What a commit does stands in
// file_commit.h.
//
// A key that is open waits in its node. Those that were closed again do, too, until their files together are larger
// than a budget; then what waits for them goes to the disk (transaction_spill.h), and their nodes go. So the number of
// keys isn't bounded by memory.
#pragma once

#include "stores/file_commit.h"
#include "stores/transaction_spill.h"

#include <string>
#include <string_view>
#include <vector>

namespace ostrand {

/// Used under the mutex of the tree that owns the nodes. They stay there until it is told otherwise.
class FileTransaction {
public:
    /// `budget`: bytes of files, of keys that were closed.
    FileTransaction(const std::string& root, size_t budget)
        : m_root(root),
          m_budget(budget),
          m_spillAt(budget),
          m_spill(root)
    {
    }
    ~FileTransaction();
    FileTransaction(const FileTransaction&) = delete;
    FileTransaction& operator=(const FileTransaction&) = delete;

    /// The node is about to be written to.
    void Join(FileNode& node);
    /// The node is of a key that begins to exist with the commit.
    void AddKey(FileNode& node);
    /// The folder of such a key, by one that may differ in case; null for none.
    const std::string* FindNewKey(std::string_view folder) const;
    /// Their folders.
    const std::vector<std::string>& NewKeys() const { return m_newKeys; }

    /// The node of a member lost its last handle, and its document, which had that many bytes. The nodes that go to the
    /// disk for it are `gone`, and to be destroyed.
    void Rest(FileNode& node, size_t bytes, std::vector<FileNode*>& gone);
    /// A node that was made: it gets back what went to the disk.
    unsigned Resume(FileNode& node);

    /// Under the store's lock. `done` hears of each save, of some before the commit is complete. On success nothing
    /// takes part any more.
    unsigned Commit(SaveTools& tools, const SaveDone& done);
    /// Whether a commit failed before it touched a file, and its journal has to be removed before a roll-back: else the
    /// next opening would finish it.
    bool HasLeftJournal() const { return m_leftJournal; }
    /// The nodes are as at the beginning; new keys are gone.
    void RollBack();

private:
    void Release();
    bool CanSpill(const FileNode& node) const;
    std::u16string PathOf(std::string_view folder) const;
    size_t FindNew(std::string_view folder) const;

    std::string m_root;
    size_t m_budget;
    size_t m_spillAt;
    size_t m_resting = 0;             // bytes that the closed members count with
    std::vector<FileNode*> m_members; // in memory
    TransactionSpill m_spill;
    std::vector<std::string> m_newKeys;
    NameIndex m_newIndex; // by HashName of the path
    bool m_leftJournal = false;
};

} // namespace ostrand
