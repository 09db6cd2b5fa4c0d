#include "tests/tools/tool_runner.h"

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <poll.h>
#include <spawn.h>
#include <stdexcept>
#include <sys/wait.h>
#include <unistd.h>

namespace ostrand::test {

namespace {

struct Pipe {
    Pipe()
    {
        if (pipe(ends) != 0)
            throw std::runtime_error("no pipe");
    }
    ~Pipe()
    {
        close(ends[0]);
        CloseWriter();
    }
    void CloseWriter()
    {
        if (ends[1] >= 0)
            close(ends[1]);
        ends[1] = -1;
    }
    int ends[2];
};

/// Both outputs until their ends, so that neither fills up.
void ReadBoth(int out, int err, ToolRun& run)
{
    pollfd polled[] = {{out, POLLIN, 0}, {err, POLLIN, 0}};
    std::string* const texts[] = {&run.out, &run.err};
    for (int open = 2; open > 0;) {
        poll(polled, 2, -1);
        for (int i = 0; i < 2; ++i) {
            if (polled[i].fd < 0 || polled[i].revents == 0)
                continue;
            char buffer[4096];
            const ssize_t got = read(polled[i].fd, buffer, sizeof buffer);
            if (got > 0) {
                texts[i]->append(buffer, static_cast<size_t>(got));
            } else {
                polled[i].fd = -1;
                --open;
            }
        }
    }
}

std::vector<char*> Pointers(std::vector<std::string>& texts)
{
    std::vector<char*> pointers;
    for (std::string& text : texts)
        pointers.push_back(text.data());
    pointers.push_back(nullptr);
    return pointers;
}

/// Options of sanitizers reach the program that runs.
std::vector<std::string> Environment(const std::vector<std::string>& given)
{
    std::vector<std::string> environment = {"HOME=/nonexistent/home", "LANG=C.UTF-8"};
    for (const char* name : {"PATH", "ASAN_OPTIONS", "LSAN_OPTIONS", "UBSAN_OPTIONS", "TSAN_OPTIONS"})
        if (const char* const value = std::getenv(name))
            environment.push_back(std::string(name) + "=" + value);
    environment.insert(environment.begin(), given.begin(), given.end());
    return environment;
}

} // namespace

ToolRun RunProgram(const std::string& program, const std::vector<std::string>& arguments,
                   const std::vector<std::string>& environment, const std::string& input)
{
    std::vector<std::string> words = {program};
    words.insert(words.end(), arguments.begin(), arguments.end());
    std::vector<std::string> variables = Environment(environment);
    Pipe in, out, err;
    constexpr size_t kRoomOfAPipe = 65536;
    if (input.size() > kRoomOfAPipe ||
        write(in.ends[1], input.data(), input.size()) != static_cast<ssize_t>(input.size()))
        throw std::runtime_error("the input has no room in a pipe");
    in.CloseWriter();
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, in.ends[0], 0);
    posix_spawn_file_actions_adddup2(&actions, out.ends[1], 1);
    posix_spawn_file_actions_adddup2(&actions, err.ends[1], 2);
    for (const int end : {in.ends[0], out.ends[0], out.ends[1], err.ends[0], err.ends[1]})
        posix_spawn_file_actions_addclose(&actions, end);
    pid_t child = 0;
    const int failure =
        posix_spawnp(&child, program.c_str(), &actions, nullptr, Pointers(words).data(), Pointers(variables).data());
    posix_spawn_file_actions_destroy(&actions);
    if (failure != 0)
        throw std::runtime_error("can't run " + program);
    out.CloseWriter();
    err.CloseWriter();
    ToolRun run;
    ReadBoth(out.ends[0], err.ends[0], run);
    int status = 0;
    waitpid(child, &status, 0);
    run.code = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
    return run;
}

ToolRun RunTool(const std::vector<std::string>& arguments, const std::vector<std::string>& environment,
                const std::string& input)
{
    return RunProgram(ToolPath(), arguments, environment, input);
}

std::string ToolPath() { return OSTRAND_TOOL; }

std::string SourceFile(const std::string& path)
{
    std::ifstream in(OSTRAND_SOURCE "/" + path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

} // namespace ostrand::test
