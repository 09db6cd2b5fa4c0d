// Puts new contents in the place of a file, in one step for all who read it and for a power failure.
//
// New contents go into a temporary file beside the target, which then takes the target's name. Making and deleting a
// file for each save costs the disk more than the contents do. So the two exchange their names instead, and the old
// file stays as the folder's spare, to be overwritten by the next save there: about two thirds of the time of a durable
// save, a tenth of one that isn't synced. Overwriting is safe for two reasons: nobody has the spare open
// (IFiles::OpenAlone), and the exchange that made it a spare is on the disk. A spare of which this object doesn't know
// that is deleted, and so is each at the end. Where the medium has no exchange or can't tell who has a file open, the
// temporary file is renamed over the target.
#pragma once

#include "platform/files.h"

#include <map>
#include <set>
#include <string>
#include <string_view>

namespace ostrand {

/// What a save found in the place that it is going to fill.
struct ReplacedFile {
    std::string path;    ///< links resolved
    bool exists = false; ///< and then `info` is of it
    VFileInfo info;
};

/// One for each store in the process; used under the store's lock.
class FileReplacer {
public:
    /// `root` tells stores apart that reach one folder by links.
    explicit FileReplacer(const std::string& root);

    /// The contents are on the disk afterwards, or the file is as before. Rights and owner stay. Whether the new name
    /// is on the disk, too, `SyncNames` tells. kErrorSharingViolation, and the file as it is now, where somebody
    /// changed it since it was read.
    unsigned Replace(const ReplacedFile& file, std::string_view text);
    /// The same without any sync, for files that a journal can redo.
    unsigned ReplaceUnsynced(const ReplacedFile& file, std::string_view text);
    /// Makes the folder of a key's first values, and its own name durable, with those of all folders above it up to the
    /// store's. A folder that a link led to was there before. Values are no safer than their folders; and who made
    /// those may have been killed before a sync.
    unsigned MakeDurable(const std::string& folder);
    /// Makes the names in the folder durable where a replacement left that open.
    unsigned SyncNames(const std::string& folder);
    /// The same for all folders.
    unsigned SyncAllNames();
    /// All names, and all contents, were brought to the disk by other means.
    void NoteSynced() { m_unsynced.clear(); }

    /// Deletes the spares.
    void RemoveSpares();
    bool HasSpares() const { return !m_spares.empty(); }

private:
    std::string TemporaryIn(const std::string& folder) const { return folder + '/' + m_temporary; }
    unsigned Fill(const ReplacedFile& file, const std::string& folder, std::string_view text, bool isSynced);
    unsigned OpenTemporary(const ReplacedFile& file, const std::string& folder, std::unique_ptr<IFile>& opened,
                           uint64_t& size);
    unsigned OpenSpare(const ReplacedFile& file, const std::string& folder, std::unique_ptr<IFile>& opened,
                       uint64_t& size);
    unsigned CreateTemporary(const ReplacedFile& file, const std::string& folder, std::unique_ptr<IFile>& opened);
    bool IsOfStore(const std::string& folder) const;
    /// Puts what lies at `temporary` back, which others wrote since it was read.
    static unsigned TakeBack(const ReplacedFile& file, const std::string& temporary);
    unsigned TakePlace(const ReplacedFile& file, const std::string& folder);
    void KeepSpare(const std::string& folder, const VFileInfo& info);

    std::string m_root;
    std::string m_temporary; // file name
    /// The spares that this object left, by folder, in the state that it left them in: a file number alone may be
    /// another file's meanwhile.
    std::map<std::string, VFileInfo> m_spares;
    std::set<std::string> m_unsynced;          // folders with a new name that isn't known to be on the disk
    std::map<std::string, uint64_t> m_durable; // folders that are known to be, with their file numbers
    bool m_exchanges = true;
};

} // namespace ostrand
