#include "platform/posix/user_key.h"

#include "platform/error_codes.h"
#include "platform/posix/posix_services.h"

#include <string>

#include <fcntl.h>
#include <pwd.h>
#include <stdlib.h>
#include <sys/stat.h>
#include <unistd.h>

namespace ostrand::posix {

namespace {

constexpr mode_t kForMeAlone = 0700; // folders; the file comes with 0600

/// Closes a descriptor.
class Descriptor {
public:
    explicit Descriptor(int number) : m_number(number) {}
    ~Descriptor()
    {
        if (m_number != -1)
            close(m_number);
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    operator int() const { return m_number; } // NOLINT(google-explicit-constructor): for calls of the system

private:
    int m_number;
};

/// The value of a variable that names a folder; one that isn't absolute doesn't count.
std::string FolderOf(const char* variable)
{
    std::string folder;
    if (!Platform().environment->Get(variable, folder) || !folder.starts_with('/'))
        folder.clear();
    return folder;
}

std::string HomeFolder()
{
    const std::string home = FolderOf("HOME");
    if (!home.empty())
        return home;
    char room[4096]; // an entry of the user table is far shorter
    passwd entry{};
    passwd* found = nullptr;
    const bool isKnown = getpwuid_r(geteuid(), &entry, room, sizeof room, &found) == 0 && found;
    return isKnown ? found->pw_dir : "";
}

/// Empty for a user without a home.
std::string KeyFolder()
{
    std::string data = FolderOf("XDG_DATA_HOME");
    if (data.empty()) {
        data = HomeFolder();
        if (data.empty())
            return {};
        data += "/.local/share";
    }
    return data + "/hollowmere";
}

std::string KeyFile(const std::string& folder) { return folder + "/protection.key"; }

/// The folder with those above it that are missing.
unsigned MakeFolders(const std::string& folder)
{
    if (mkdir(folder.c_str(), kForMeAlone) == 0 || errno == EEXIST)
        return kErrorSuccess;
    if (errno != ENOENT)
        return CodeOf(errno);
    const unsigned code = MakeFolders(folder.substr(0, folder.rfind('/')));
    if (code != kErrorSuccess)
        return code;
    return mkdir(folder.c_str(), kForMeAlone) == 0 || errno == EEXIST ? kErrorSuccess : CodeOf(errno);
}

unsigned SyncFolder(const std::string& folder)
{
    const Descriptor opened(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    return Outcome(opened == -1 ? -1 : fsync(opened));
}

/// Fills an open file with a fresh key that reaches the disk.
unsigned WriteFreshKey(int file)
{
    VSecretBytes key(kUserKeySize);
    const unsigned code = DataProtection().FillRandom(key.data(), key.size());
    if (code != kErrorSuccess)
        return code;
    const ssize_t written = Retry([&] { return write(file, key.data(), key.size()); });
    if (written != static_cast<ssize_t>(key.size()))
        return written == -1 ? CodeOf(errno) : kErrorDiskFull;
    return Outcome(fsync(file));
}

/// Written whole under another name and only then linked to its own: nobody ever reads half a key, and of several
/// processes the first link counts.
unsigned MakeUserKey(const std::string& folder)
{
    unsigned code = MakeFolders(folder);
    if (code != kErrorSuccess)
        return code;
    std::string aside = folder + "/.protection-XXXXXX";
    const Descriptor file(mkostemp(aside.data(), O_CLOEXEC));
    if (file == -1)
        return CodeOf(errno);
    code = WriteFreshKey(file);
    if (code == kErrorSuccess && link(aside.c_str(), KeyFile(folder).c_str()) == -1 && errno != EEXIST)
        code = CodeOf(errno);
    unlink(aside.c_str());
    return code == kErrorSuccess ? SyncFolder(folder) : code;
}

unsigned ReadKeyIn(const std::string& folder, VSecretBytes& key)
{
    const Descriptor file(open(KeyFile(folder).c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
    struct stat info{};
    if (file == -1 || fstat(file, &info) == -1)
        return CodeOf(errno);
    if (info.st_uid != geteuid() || (info.st_mode & (S_IRWXG | S_IRWXO)) != 0)
        return kErrorAccessDenied;
    if (!S_ISREG(info.st_mode) || info.st_size != static_cast<off_t>(kUserKeySize))
        return kErrorInvalidData;
    key.resize(kUserKeySize);
    const ssize_t got = Retry([&] { return read(file, key.data(), key.size()); });
    if (got == -1)
        return CodeOf(errno);
    return got == static_cast<ssize_t>(key.size()) ? kErrorSuccess : kErrorInvalidData;
}

} // namespace

unsigned ReadUserKey(VSecretBytes& key)
{
    const std::string folder = KeyFolder();
    return folder.empty() ? kErrorPathNotFound : ReadKeyIn(folder, key);
}

unsigned ReadOrMakeUserKey(VSecretBytes& key)
{
    unsigned code = ReadUserKey(key);
    if (code != kErrorFileNotFound)
        return code;
    code = MakeUserKey(KeyFolder());
    return code == kErrorSuccess ? ReadUserKey(key) : code;
}

} // namespace ostrand::posix
