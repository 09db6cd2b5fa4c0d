// Files of the platform. Every file access of the library goes through IFiles, so a test can cut a run at any call.
// Paths are UTF-8 in the platform's own spelling; results are codes of platform/error_codes.h, 0 for success.
#pragma once

#include "platform/export.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace ostrand {

/// What tells two states of one file apart, and what a rewrite has to keep.
struct VFileInfo {
    uint64_t device = 0;
    uint64_t file = 0;   ///< the file's number on its device
    uint64_t size = 0;   ///< bytes
    int64_t changed = 0; ///< last change of the contents, nanoseconds since 1970
    unsigned mode = 0;   ///< access mode bits
    unsigned owner = 0;  ///< with the mode and the group: the rights that a file which replaces this one has to keep
    unsigned group = 0;
    bool isFolder = false;

    bool SameState(const VFileInfo& o) const
    {
        return device == o.device && file == o.file && size == o.size && changed == o.changed;
    }
};

enum class VFileAccess { Read, Write, ReadWrite };

/// How an open treats a file that is there or not.
enum class VFileDisposition { OpenExisting, CreateNew, CreateAlways, OpenAlways, TruncateExisting };

/// One open file. Closed by its destructor. Used by one thread at a time.
class IFile {
public:
    virtual ~IFile() = default;
    /// Reads at most `size` bytes at the position. `got` is 0 at the end of the file, which is no failure.
    virtual unsigned Read(void* data, size_t size, size_t& got) = 0;
    /// Writes all `size` bytes at the position, or fails.
    virtual unsigned Write(const void* data, size_t size) = 0;
    virtual unsigned Seek(uint64_t position) = 0;
    virtual unsigned GetInfo(VFileInfo& info) = 0;
    /// Cuts the file, or fills it up with zeros.
    virtual unsigned SetSize(uint64_t size) = 0;
    /// Mode, owner and group as the other file has them; of owner and group what this process may give away.
    virtual unsigned SetRights(const VFileInfo& like) = 0;
    /// Contents and size reach the disk before this returns.
    virtual unsigned Sync() = 0;
    /// An exclusive lock against other processes, given back when the file closes. Waits at most `milliseconds`;
    /// kErrorLockViolation when another holds it longer, kErrorNotSupported on a medium without locks.
    virtual unsigned Lock(unsigned milliseconds) = 0;
};

/// Notices changes in folders, as far as the system tells. Used by one thread at a time.
class IFolderWatch {
public:
    virtual ~IFolderWatch() = default;
    /// Watches what lies in the folder, not what lies below its folders. Any number of times.
    virtual unsigned Add(const std::string& folder) = 0;
    /// Becomes readable when there is something to take. -1 where the system has no such thing.
    virtual int Descriptor() const = 0;
    /// Paths of files and folders that were made, changed, replaced or removed since the last call, perhaps some of
    /// them twice; never waits. `isComplete` is false when the system lost some.
    virtual unsigned Take(std::vector<std::string>& paths, bool& isComplete) = 0;
};

struct VFolderEntry {
    std::string name;
    bool isFolder = false; ///< also a link that leads to one
    bool isLink = false;
};

class IFiles {
public:
    virtual ~IFiles() = default;
    /// `mode` is that of a file created here: exactly, whatever the process's mask, for CreateNew, since such a file
    /// may be about to replace another; under the mask otherwise. `existed` tells whether the file was there.
    virtual unsigned Open(const std::string& path, VFileAccess access, VFileDisposition disposition, unsigned mode,
                          std::unique_ptr<IFile>& file, bool* existed = nullptr) = 0;
    /// A file that exists and that nobody else, in this process or another, has open: one that a former save left
    /// can be overwritten without a reader noticing. kErrorSharingViolation if somebody has it open, kErrorNotSupported
    /// where the system can't tell or the thing is no plain file with one name.
    virtual unsigned OpenAlone(const std::string& path, std::unique_ptr<IFile>& file, VFileInfo& info) = 0;
    /// A new file, to be written and read, that is gone when it closes or the process ends. `path` is the name that it
    /// has for a moment where the medium knows no files without one; what lies there is taken away.
    virtual unsigned OpenNameless(const std::string& path, std::unique_ptr<IFile>& file) = 0;
    /// Open, stat, read and close in one: the whole file into `data`. Contents and info belong together, and are what
    /// stood under this path at some time of the call, though files may exchange their names meanwhile.
    /// kErrorInvalidParameter for a folder or another thing that isn't a file, kErrorMoreData above `limit` bytes.
    virtual unsigned ReadWhole(const std::string& path, size_t limit, std::string& data, VFileInfo& info) = 0;
    virtual unsigned GetInfo(const std::string& path, VFileInfo& info) = 0;
    /// Replaces `to` in one step.
    virtual unsigned Rename(const std::string& from, const std::string& to) = 0;
    /// Two files take each other's names in one step. kErrorNotSupported where the medium can't do that.
    virtual unsigned Exchange(const std::string& a, const std::string& b) = 0;
    virtual unsigned Remove(const std::string& path) = 0;
    virtual unsigned CreateFolder(const std::string& path, unsigned mode) = 0;
    /// The folder must be empty.
    virtual unsigned RemoveFolder(const std::string& path) = 0;
    /// Names made, renamed or removed in the folder reach the disk before this returns.
    virtual unsigned SyncFolder(const std::string& path) = 0;
    /// All that was written to the medium of the path, by anyone, reaches it before this returns.
    virtual unsigned SyncMedium(const std::string& path) = 0;
    /// In the platform's order, without "." and "..".
    virtual unsigned ListFolder(const std::string& path, std::vector<VFolderEntry>& entries) = 0;
    /// Whether this process may write to the file or folder.
    virtual bool CanWrite(const std::string& path) = 0;
    /// Where a chain of links ends, for a file that must be replaced where it really lies; `path` itself without links.
    virtual std::string ResolveLinks(const std::string& path) = 0;
    /// kErrorNotSupported where the system has nothing of that kind.
    virtual unsigned CreateWatch(std::unique_ptr<IFolderWatch>& watch) = 0;
};

} // namespace ostrand
