#include "platform/error_codes.h"
#include "platform/posix/posix_file.h"
#include "platform/posix/posix_services.h"

#include <cstring>
#include <unordered_map>

#include <sys/inotify.h>
#include <unistd.h>

namespace ostrand::posix {

namespace {

constexpr uint32_t kChanges = IN_CLOSE_WRITE | IN_CREATE | IN_DELETE | IN_MOVED_TO | IN_MOVED_FROM | IN_ONLYDIR;

class FolderWatch final : public IFolderWatch {
public:
    explicit FolderWatch(int descriptor) : m_descriptor(descriptor) {}
    ~FolderWatch() override { close(m_descriptor); }
    FolderWatch(const FolderWatch&) = delete;
    FolderWatch& operator=(const FolderWatch&) = delete;

    unsigned Add(const std::string& folder) override
    {
        const int number = inotify_add_watch(m_descriptor, folder.c_str(), kChanges);
        if (number == -1)
            return CodeOf(errno);
        m_folders[number] = folder;
        return kErrorSuccess;
    }

    int Descriptor() const override { return m_descriptor; }

    unsigned Take(std::vector<std::string>& paths, bool& isComplete) override
    {
        alignas(inotify_event) char events[16384];
        paths.clear();
        isComplete = true;
        for (;;) {
            const ssize_t got = Retry([&] { return read(m_descriptor, events, sizeof events); });
            if (got == -1 && errno == EAGAIN)
                return kErrorSuccess;
            if (got <= 0)
                return CodeOf(errno);
            for (const char* p = events; p < events + got;) {
                inotify_event event{};
                std::memcpy(&event, p, sizeof event);
                TakeEvent(event, p + sizeof event, paths, isComplete);
                p += sizeof event + event.len;
            }
        }
    }

private:
    void TakeEvent(const inotify_event& event, const char* name, std::vector<std::string>& paths, bool& isComplete)
    {
        if (event.mask & IN_Q_OVERFLOW)
            isComplete = false;
        const auto folder = m_folders.find(event.wd);
        if (folder == m_folders.end())
            return;
        if (event.mask & IN_IGNORED) // the folder is gone
            m_folders.erase(folder);
        else if (event.len > 0)
            paths.push_back(folder->second + '/' + name);
    }

    int m_descriptor;
    std::unordered_map<int, std::string> m_folders; // by the system's number
};

} // namespace

unsigned MakeWatch(std::unique_ptr<IFolderWatch>& watch)
{
    const int descriptor = inotify_init1(IN_NONBLOCK | IN_CLOEXEC);
    if (descriptor == -1)
        return CodeOf(errno);
    watch = std::make_unique<FolderWatch>(descriptor);
    return kErrorSuccess;
}

} // namespace ostrand::posix
