#include "platform/error_codes.h"
#include "platform/posix/posix_file.h"
#include "platform/posix/posix_services.h"

#include <climits>
#include <cstdio>
#include <memory>

#include <csignal>
#include <ctime>
#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace ostrand::posix {

namespace {

// Nothing may hang on a pipe or become the terminal of the process, and no child inherits a file.
constexpr int kAlways = O_CLOEXEC | O_NONBLOCK | O_NOCTTY;

// As many links in a row as the system itself follows.
constexpr int kMostLinks = 40;

constexpr unsigned kModeOfNameless = 0600;

int AccessFlags(VFileAccess access)
{
    switch (access) {
    case VFileAccess::Read:
        return O_RDONLY;
    case VFileAccess::Write:
        return O_WRONLY;
    case VFileAccess::ReadWrite:
        break;
    }
    return O_RDWR;
}

int OpenRaw(const std::string& path, int flags, unsigned mode)
{
    return Retry([&] { return open(path.c_str(), flags | kAlways, static_cast<mode_t>(mode)); });
}

/// Opens or creates, and knows which it was, though others create and remove the file meanwhile.
int OpenOrCreate(const std::string& path, int flags, unsigned mode, bool& existed)
{
    constexpr int kTries = 8;
    for (int i = 0; i < kTries; ++i) {
        int file = OpenRaw(path, flags | O_CREAT | O_EXCL, mode);
        existed = file == -1 && errno == EEXIST;
        if (!existed)
            return file;
        file = OpenRaw(path, flags, mode);
        if (file != -1 || errno != ENOENT)
            return file;
    }
    // A link to nothing, which exclusive creation never follows.
    existed = false;
    return OpenRaw(path, flags | O_CREAT, mode);
}

int OpenFor(const std::string& path, VFileAccess access, VFileDisposition disposition, unsigned mode, bool& existed)
{
    const int flags = AccessFlags(access);
    switch (disposition) {
    case VFileDisposition::OpenExisting:
        break;
    case VFileDisposition::TruncateExisting:
        return OpenRaw(path, flags | O_TRUNC, mode);
    case VFileDisposition::CreateAlways:
        return OpenRaw(path, flags | O_CREAT | O_TRUNC, mode);
    case VFileDisposition::OpenAlways:
        return OpenOrCreate(path, flags, mode, existed);
    case VFileDisposition::CreateNew: {
        const int file = OpenRaw(path, flags | O_CREAT | O_EXCL, mode);
        // A new file that is to replace another has its very mode, whatever the process's mask. Media without modes
        // refuse, and lose nothing.
        if (file != -1)
            fchmod(file, static_cast<mode_t>(mode));
        return file;
    }
    }
    return OpenRaw(path, flags, mode);
}

/// Reads what fits into `data`, which has the size that the file had. A file that shrank meanwhile gives what it has.
unsigned ReadAll(int file, std::string& data)
{
    size_t done = 0;
    while (done < data.size()) {
        const ssize_t got = Retry([&] { return read(file, data.data() + done, data.size() - done); });
        if (got == -1)
            return CodeOf(errno);
        if (got == 0)
            break;
        done += static_cast<size_t>(got);
    }
    data.resize(done);
    return kErrorSuccess;
}

int OpenNamelessRaw(const std::string& path)
{
    const std::string folder = path.substr(0, path.rfind('/') + 1);
    int file = OpenRaw(folder.empty() ? "." : folder, O_TMPFILE | O_RDWR, kModeOfNameless);
    if (file != -1 || (errno != EOPNOTSUPP && errno != EISDIR && errno != EINVAL))
        return file;
    unlink(path.c_str());
    file = OpenRaw(path, O_RDWR | O_CREAT | O_EXCL, kModeOfNameless);
    if (file != -1)
        unlink(path.c_str());
    return file;
}

unsigned ReadOnce(const std::string& path, size_t limit, std::string& data, struct stat& raw)
{
    const int file = OpenRaw(path, O_RDONLY, 0);
    if (file == -1) // a socket can't even be opened
        return errno == ENXIO ? kErrorInvalidParameter : CodeOf(errno);
    unsigned code = Outcome(fstat(file, &raw));
    if (code == kErrorSuccess && !S_ISREG(raw.st_mode))
        code = kErrorInvalidParameter;
    else if (code == kErrorSuccess && static_cast<uint64_t>(raw.st_size) > limit)
        code = kErrorMoreData;
    if (code == kErrorSuccess) {
        // Not emptied before: resizing then would zero bytes that are overwritten at once. The state is that of before
        // the read, so a change in its midst shows at the next look.
        data.resize(static_cast<size_t>(raw.st_size));
        code = ReadAll(file, data);
    }
    close(file);
    return code;
}

VFolderEntry EntryOf(int folder, const dirent& raw)
{
    VFolderEntry entry{raw.d_name, raw.d_type == DT_DIR, raw.d_type == DT_LNK};
    struct stat info{};
    if (raw.d_type == DT_UNKNOWN)
        entry.isLink = fstatat(folder, raw.d_name, &info, AT_SYMLINK_NOFOLLOW) == 0 && S_ISLNK(info.st_mode);
    if (raw.d_type == DT_UNKNOWN || entry.isLink)
        entry.isFolder = fstatat(folder, raw.d_name, &info, 0) == 0 && S_ISDIR(info.st_mode);
    return entry;
}

constexpr int64_t kSecond = 1'000'000'000; // nanoseconds

int64_t Nanoseconds(const timespec& time) { return static_cast<int64_t>(time.tv_sec) * kSecond + time.tv_nsec; }

/// The clock that files are stamped with. It lags the exact one by some milliseconds.
int64_t StampTime()
{
    timespec now{};
    clock_gettime(CLOCK_REALTIME_COARSE, &now);
    return Nanoseconds(now);
}

/// Whether the file may have taken another's name since `start`: an exchange stamps its change of state.
bool MayBeExchanged(const struct stat& raw, int64_t start)
{
    // Some media cut their stamps, to two seconds at the worst.
    constexpr long kMillisecond = 1'000'000;
    const int64_t lag = raw.st_ctim.tv_nsec % kMillisecond == 0 ? 2 * kSecond : kSecond / 20;
    return Nanoseconds(raw.st_ctim) > start - lag;
}

bool IsStillAt(const std::string& path, const struct stat& raw)
{
    struct stat now{};
    return stat(path.c_str(), &now) == 0 && now.st_ino == raw.st_ino && now.st_dev == raw.st_dev;
}

/// Whether this descriptor is the only one on the file, in all processes: the system grants a lease for writing only
/// then. It is given back at once; the signal of a lease that is broken in between is one that nobody minds.
unsigned CheckAlone(int file)
{
    fcntl(file, F_SETSIG, SIGURG);
    if (fcntl(file, F_SETLEASE, F_WRLCK) == -1)
        return errno == EAGAIN ? kErrorSharingViolation : kErrorNotSupported;
    return Outcome(fcntl(file, F_SETLEASE, F_UNLCK));
}

class PosixFiles final : public IFiles {
public:
    unsigned Open(const std::string& path, VFileAccess access, VFileDisposition disposition, unsigned mode,
                  std::unique_ptr<IFile>& file, bool* existed) override
    {
        bool wasThere =
            disposition == VFileDisposition::OpenExisting || disposition == VFileDisposition::TruncateExisting;
        const int descriptor = OpenFor(path, access, disposition, mode, wasThere);
        if (descriptor == -1)
            return CodeOf(errno);
        file = MakeFile(descriptor);
        if (existed)
            *existed = wasThere;
        return kErrorSuccess;
    }

    unsigned OpenAlone(const std::string& path, std::unique_ptr<IFile>& file, VFileInfo& info) override
    {
        const int descriptor = OpenRaw(path, O_WRONLY | O_NOFOLLOW, 0);
        if (descriptor == -1)
            return errno == ELOOP ? kErrorNotSupported : CodeOf(errno);
        std::unique_ptr<IFile> opened = MakeFile(descriptor);
        struct stat raw{};
        if (fstat(descriptor, &raw) == -1)
            return CodeOf(errno);
        if (!S_ISREG(raw.st_mode) || raw.st_nlink != 1)
            return kErrorNotSupported;
        const unsigned code = CheckAlone(descriptor);
        if (code != kErrorSuccess)
            return code;
        info = InfoOf(raw);
        file = std::move(opened);
        return kErrorSuccess;
    }

    unsigned OpenNameless(const std::string& path, std::unique_ptr<IFile>& file) override
    {
        const int descriptor = OpenNamelessRaw(path);
        if (descriptor == -1)
            return CodeOf(errno);
        file = MakeFile(descriptor);
        return kErrorSuccess;
    }

    unsigned ReadWhole(const std::string& path, size_t limit, std::string& data, VFileInfo& info) override
    {
        // A file that is overwritten once nobody has it open (OpenAlone) may get its new name and contents between
        // the system's look at the path and the opening. That leaves a fresh stamp, and then the path is looked at
        // again behind the reading.
        constexpr int kTries = 16;
        for (int i = 0;; ++i) {
            const int64_t start = StampTime();
            struct stat raw{};
            const unsigned code = ReadOnce(path, limit, data, raw);
            if (code != kErrorSuccess || !MayBeExchanged(raw, start) || IsStillAt(path, raw) || i == kTries) {
                info = InfoOf(raw);
                return code;
            }
        }
    }

    unsigned GetInfo(const std::string& path, VFileInfo& info) override
    {
        struct stat raw{};
        if (stat(path.c_str(), &raw) == -1)
            return CodeOf(errno);
        info = InfoOf(raw);
        return kErrorSuccess;
    }

    unsigned Rename(const std::string& from, const std::string& to) override
    {
        return Outcome(rename(from.c_str(), to.c_str()));
    }
    unsigned Exchange(const std::string& a, const std::string& b) override
    {
        if (renameat2(AT_FDCWD, a.c_str(), AT_FDCWD, b.c_str(), RENAME_EXCHANGE) == 0)
            return kErrorSuccess;
        return LacksOperation(errno) ? kErrorNotSupported : CodeOf(errno);
    }
    unsigned Remove(const std::string& path) override { return Outcome(unlink(path.c_str())); }
    unsigned CreateFolder(const std::string& path, unsigned mode) override
    {
        return Outcome(mkdir(path.c_str(), static_cast<mode_t>(mode)));
    }
    unsigned RemoveFolder(const std::string& path) override { return Outcome(rmdir(path.c_str())); }

    unsigned SyncFolder(const std::string& path) override
    {
        const int folder = OpenRaw(path, O_RDONLY | O_DIRECTORY, 0);
        if (folder == -1)
            return CodeOf(errno);
        unsigned code = Outcome(Retry([folder] { return fsync(folder); }));
        // Some network file systems have nothing to sync for a folder and say so.
        if (code != kErrorSuccess && errno == EINVAL)
            code = kErrorSuccess;
        close(folder);
        return code;
    }

    unsigned SyncMedium(const std::string& path) override
    {
        const int folder = OpenRaw(path, O_RDONLY, 0);
        if (folder == -1)
            return CodeOf(errno);
        const unsigned code = Outcome(Retry([folder] { return syncfs(folder); }));
        close(folder);
        return code;
    }

    unsigned ListFolder(const std::string& path, std::vector<VFolderEntry>& entries) override
    {
        entries.clear();
        const std::unique_ptr<DIR, int (*)(DIR*)> folder(opendir(path.c_str()), &closedir);
        if (!folder)
            return CodeOf(errno);
        for (;;) {
            errno = 0;
            const dirent* const entry = readdir(folder.get());
            if (!entry)
                return CodeOf(errno);
            const std::string_view name = entry->d_name;
            if (name != "." && name != "..")
                entries.push_back(EntryOf(dirfd(folder.get()), *entry));
        }
    }

    bool CanWrite(const std::string& path) override { return faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS) == 0; }

    std::string ResolveLinks(const std::string& path) override
    {
        std::string at = path;
        for (int i = 0; i < kMostLinks; ++i) {
            char target[PATH_MAX];
            const ssize_t length = readlink(at.c_str(), target, sizeof target);
            if (length <= 0)
                return at;
            const std::string_view to(target, static_cast<size_t>(length));
            if (to.starts_with('/'))
                at.clear();
            else
                at.resize(at.find_last_of('/') + 1);
            at += to;
        }
        return path; // links in a circle
    }

    unsigned CreateWatch(std::unique_ptr<IFolderWatch>& watch) override { return MakeWatch(watch); }
};

constinit Forever<PosixFiles> g_files;

} // namespace

IFiles& Files() { return g_files.object; }

} // namespace ostrand::posix
