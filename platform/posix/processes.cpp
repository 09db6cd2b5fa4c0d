#include "platform/posix/posix_services.h"

#include <climits>
#include <cstdlib>
#include <memory>

#include <dlfcn.h>
#include <fcntl.h>
#include <signal.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace ostrand::posix {

namespace {

bool IsRegularFile(const std::string& path)
{
    struct stat info{};
    return stat(path.c_str(), &info) == 0 && S_ISREG(info.st_mode);
}

/// Tells the waiting parent why no program runs. Nothing can be done about a pipe that fails here.
[[noreturn]] void GiveUp(int pipeEnd)
{
    const int error = errno;
    [[maybe_unused]] const ssize_t written = write(pipeEnd, &error, sizeof error);
    _exit(127);
}

/// Runs in the new process, where only calls that are safe in a signal handler may be made. A second fork lets the
/// program be adopted by the system, so that nobody has to wait for its end.
[[noreturn]] void RunDetached(const char* path, char* const* arguments, int pipeEnd)
{
    setsid();
    const pid_t second = fork();
    if (second == -1)
        GiveUp(pipeEnd);
    if (second > 0)
        _exit(0);
    sigset_t none;
    sigemptyset(&none);
    sigprocmask(SIG_SETMASK, &none, nullptr);
    execv(path, arguments);
    GiveUp(pipeEnd);
}

/// The errno of a start that failed, 0 once the program runs: its exec closes the other end of the pipe.
int WaitForExec(int pipeEnd)
{
    int error = 0;
    const ssize_t got = Retry([&] { return read(pipeEnd, &error, sizeof error); });
    return got == static_cast<ssize_t>(sizeof error) ? error : 0;
}

class PosixProcesses final : public IProcesses {
public:
    std::string ExecutablePath() override
    {
        char path[PATH_MAX];
        const ssize_t length = readlink("/proc/self/exe", path, sizeof path);
        std::string text(path, length > 0 ? static_cast<size_t>(length) : 0);
        // What the kernel adds when the file was replaced under the running program.
        constexpr std::string_view kDeleted = " (deleted)";
        if (text.ends_with(kDeleted) && !IsRegularFile(text))
            text.resize(text.size() - kDeleted.size());
        return text;
    }

    std::string CurrentFolder() override
    {
        const std::unique_ptr<char, decltype(&std::free)> folder(getcwd(nullptr, 0), &std::free);
        return folder ? folder.get() : std::string();
    }

    std::string ModulePath(const void* address) override
    {
        Dl_info info{};
        if (!address || dladdr(address, &info) == 0 || !info.dli_fname)
            return {};
        // The main program is known by the name that it was called by.
        const std::unique_ptr<char, decltype(&std::free)> full(realpath(info.dli_fname, nullptr), &std::free);
        return full ? full.get() : info.dli_fname;
    }

    unsigned Start(const std::string& path, const std::vector<std::string>& arguments) override
    {
        std::vector<char*> argv{const_cast<char*>(path.c_str())};
        for (const std::string& argument : arguments)
            argv.push_back(const_cast<char*>(argument.c_str()));
        argv.push_back(nullptr);

        int ends[2];
        if (pipe2(ends, O_CLOEXEC) == -1)
            return CodeOf(errno);
        const pid_t child = fork();
        if (child == 0)
            RunDetached(path.c_str(), argv.data(), ends[1]);
        int error = child == -1 ? errno : 0;
        close(ends[1]);
        if (child > 0) {
            Retry([child] { return waitpid(child, nullptr, 0); });
            error = WaitForExec(ends[0]);
        }
        close(ends[0]);
        return CodeOf(error);
    }

    bool IsProductExecutable(const std::string& path, unsigned) override { return IsRegularFile(path); }

    bool IsErrorTerminal() override { return isatty(STDERR_FILENO) != 0; }
};

constinit Forever<PosixProcesses> g_processes;

} // namespace

IProcesses& Processes() { return g_processes.object; }

} // namespace ostrand::posix
