// How the keys of a transaction are saved, all or none.
//
// Each file is read and merged, and its new text goes into the journal (file_journal.h). When that is synced, the
// transaction is committed. Then the files are replaced without a sync of their own, all of it is synced at once, and
// the journal goes. After a failure of the machine the journal tells: whole, the transaction was committed, and whoever
// opens the store next finishes it; else it never was.
//
// Members in memory keep their texts from the merge to the end. Those that lie on the disk are merged a second time
// when their files are replaced, so that one text at a time is in memory.
#pragma once

#include "stores/file_journal.h"
#include "stores/file_save.h"
#include "stores/transaction_spill.h"

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace ostrand {

/// Puts the texts of a journal that a dead process or a power failure left in place. Under the store's lock; nothing
/// happens without a journal.
unsigned FinishJournal(SaveTools& tools);

/// What was written is written with this.
using SaveDone = std::function<void(FileSave&)>;

/// The media that files were written to.
class WrittenMedia {
public:
    /// The file was written at `path`. Links led there if the key's own place is another one.
    void Note(const std::string& path, const std::string& place);
    /// All that was written reaches the disk, on the store's medium, too.
    unsigned Sync(SaveTools& tools) const;

private:
    std::map<uint64_t, std::string> m_linked; // one file for each device
};

/// One commit, under the store's lock.
class FileCommit {
public:
    FileCommit(SaveTools& tools, TransactionSpill& spill, const SaveDone& done)
        : m_tools(tools),
          m_spill(spill),
          m_done(done)
    {
    }

    /// After a failure all files are as before, or the journal is whole and will be finished later.
    unsigned Run(const std::vector<FileNode*>& members);
    /// Whether no file was touched, but the medium wouldn't take the journal away again.
    bool HasLeftJournal() const { return m_leftJournal; }

private:
    unsigned Prepare(const std::vector<FileNode*>& members);
    unsigned RecordAll(bool& isBegun);
    unsigned Record(JournalWriter& journal, FileSave& save) const;
    unsigned WriteAll();
    unsigned ReplaceAll();
    unsigned Replace(FileSave& save);
    unsigned ReplaceSpilled();
    void TakeBack();

    SaveTools& m_tools;
    TransactionSpill& m_spill;
    const SaveDone& m_done;
    std::vector<std::unique_ptr<FileSave>> m_saves; // of the members in memory; those that are needed go first
    size_t m_needed = 0;
    size_t m_written = 0;
    bool m_canGoBack = true;
    bool m_leftJournal = false;
    WrittenMedia m_media;
};

} // namespace ostrand
