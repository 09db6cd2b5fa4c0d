#include "platform/posix/posix_file.h"

#include "platform/error_codes.h"
#include "platform/posix/posix_services.h"

#include <algorithm>
#include <chrono>
#include <thread>

#include <sys/file.h>
#include <unistd.h>

namespace ostrand::posix {

namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

// Between two looks at a lock that another process holds; doubled up to the longest.
constexpr milliseconds kShortestPause{1};
constexpr milliseconds kLongestPause{16};

class PosixFile final : public IFile {
public:
    explicit PosixFile(int descriptor) : m_file(descriptor) {}
    ~PosixFile() override { close(m_file); }
    PosixFile(const PosixFile&) = delete;
    PosixFile& operator=(const PosixFile&) = delete;

    unsigned Read(void* data, size_t size, size_t& got) override
    {
        const ssize_t count = Retry([&] { return read(m_file, data, size); });
        got = count > 0 ? static_cast<size_t>(count) : 0;
        return count == -1 ? CodeOf(errno) : kErrorSuccess;
    }

    unsigned Write(const void* data, size_t size) override
    {
        const auto* next = static_cast<const char*>(data);
        while (size > 0) {
            const ssize_t count = Retry([&] { return write(m_file, next, size); });
            if (count == -1)
                return CodeOf(errno);
            next += count;
            size -= static_cast<size_t>(count);
        }
        return kErrorSuccess;
    }

    unsigned Seek(uint64_t position) override
    {
        return lseek(m_file, static_cast<off_t>(position), SEEK_SET) == -1 ? CodeOf(errno) : kErrorSuccess;
    }

    unsigned GetInfo(VFileInfo& info) override
    {
        struct stat raw{};
        if (fstat(m_file, &raw) == -1)
            return CodeOf(errno);
        info = InfoOf(raw);
        return kErrorSuccess;
    }

    unsigned SetSize(uint64_t size) override
    {
        return Outcome(Retry([&] { return ftruncate(m_file, static_cast<off_t>(size)); }));
    }

    unsigned SetRights(const VFileInfo& like) override
    {
        // Giving a file away is for the super-user; a group may be any of the process's own. Media without owners
        // refuse both, and lose nothing. The mode comes last, since a change of owner clears bits of it.
        if (fchown(m_file, like.owner, like.group) == -1)
            static_cast<void>(fchown(m_file, static_cast<uid_t>(-1), like.group) == 0);
        return Outcome(fchmod(m_file, static_cast<mode_t>(like.mode)));
    }

    unsigned Sync() override
    {
        return Outcome(Retry([this] { return fdatasync(m_file); }));
    }

    unsigned Lock(unsigned wait) override
    {
        // The lock belongs to this open file, so two of one process exclude each other, too.
        const steady_clock::time_point deadline = steady_clock::now() + milliseconds(wait);
        milliseconds pause = kShortestPause;
        while (Retry([this] { return flock(m_file, LOCK_EX | LOCK_NB); }) == -1) {
            if (errno != EWOULDBLOCK)
                return LacksOperation(errno) || errno == ENOLCK ? kErrorNotSupported : CodeOf(errno);
            const steady_clock::time_point now = steady_clock::now();
            if (now >= deadline)
                return kErrorLockViolation;
            std::this_thread::sleep_for(std::min<steady_clock::duration>(pause, deadline - now));
            pause = std::min(2 * pause, kLongestPause);
        }
        return kErrorSuccess;
    }

private:
    int m_file;
};

} // namespace

std::unique_ptr<IFile> MakeFile(int descriptor) { return std::make_unique<PosixFile>(descriptor); }

VFileInfo InfoOf(const struct stat& raw)
{
    VFileInfo info;
    info.device = raw.st_dev;
    info.file = raw.st_ino;
    info.size = static_cast<uint64_t>(raw.st_size);
    info.changed = static_cast<int64_t>(raw.st_mtim.tv_sec) * 1'000'000'000 + raw.st_mtim.tv_nsec;
    info.mode = raw.st_mode & 07777u;
    info.owner = raw.st_uid;
    info.group = raw.st_gid;
    info.isFolder = S_ISDIR(raw.st_mode);
    return info;
}

} // namespace ostrand::posix
