// The file store: a folder of small text files, one for each key, made to be read, edited and compared by people. The
// format stands in file_format.h, the file names in file_names.h.
//
//     FileStoreFactory factory("/home/ann/.config/hollowmere/Config");
//     VProfileStore store(true, &factory);
//
// A write stays in memory until the key is flushed, or the handle that made it closes. Then the store's lock is taken
// (at most a second), the file is read again, what this process changed is merged into it value by value, and a new
// file takes the place of the old one. So two programs on one folder don't undo each other's changes. Where both
// changed one value, the later save wins and a message tells (kValueConflict of store_messages.h). What can't be
// written stays queued and is tried again at the key's next flush, at the latest when the last handle and the factory
// are gone.
//
// A new handle shows the file as it is then; handles on one key in one process show each other's writes. Reading takes
// no lock of the store: files are only ever replaced as a whole.
#pragma once

#include "platform/export.h"
#include "profile/backend.h"

#include <memory>
#include <string>

namespace ostrand {

class FileTree;

/// All stores of one factory share what they know of the files. Different handles may be used by different threads: one
/// mutex guards what they share, and is held during a save. Files are reached through Platform().files.
class OSTRAND_API FileStoreFactory : public VProfileStoreFactory {
public:
    static constexpr size_t kTransactionBytes = size_t{4} << 20;

    /// `rootFolder`: UTF-8, in the platform's spelling; made by the first write. `transactionBytes`: what a transaction
    /// may take of the memory, roughly, besides what the application has open; the rest waits on the disk.
    explicit FileStoreFactory(const std::string& rootFolder, size_t transactionBytes = kTransactionBytes);
    ~FileStoreFactory() override;
    VProfilePrivateStore* CreateStore() override;

private:
    std::shared_ptr<FileTree> m_tree; // handles keep it, too
};

} // namespace ostrand
