// A transaction over keys of one store: which keys take part, and how all of them are saved or none.
//
// The new texts of all files go into the journal (file_journal.h), with one sync. Then the files are replaced without a
// sync of their own, all of it is synced at once, and the journal goes. After a failure of the machine the journal
// tells: whole, the transaction was committed, and whoever opens the store next finishes it; else it never was.
#pragma once

#include "stores/file_save.h"

#include <memory>
#include <vector>

namespace ostrand {

/// Puts the texts of a journal that a dead process or a power failure left in place. Under the store's lock; nothing
/// happens without a journal.
unsigned FinishJournal(SaveTools& tools);

/// Used under the mutex of the tree that owns the nodes, and keeps them there.
class FileTransaction {
public:
    ~FileTransaction();

    /// The node is about to be written to.
    void Join(FileNode& node);
    /// The node is of a key that begins to exist with the commit.
    void AddKey(FileNode& node);
    const std::vector<FileNode*>& NewKeys() const { return m_newKeys; }

    /// Under the store's lock. On success the saves tell their conflicts, and nothing takes part any more.
    unsigned Commit(SaveTools& tools, std::vector<std::unique_ptr<FileSave>>& saves);
    /// Whether a commit failed before it touched a file, and its journal has to be removed before a roll-back: else the
    /// next opening would finish it.
    bool HasLeftJournal() const { return m_leftJournal; }
    /// The nodes are as at the beginning; new keys are gone.
    void RollBack();

private:
    using Saves = std::vector<std::unique_ptr<FileSave>>;
    unsigned Prepare(SaveTools& tools, Saves& saves);
    void Release();

    std::vector<FileNode*> m_members;
    std::vector<FileNode*> m_newKeys;
    bool m_leftJournal = false;
};

} // namespace ostrand
