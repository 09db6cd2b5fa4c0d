// What the history adds to a save: one changed value of a file of 6 KB is recorded.
#include "stores/file_history.h"

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <filesystem>
#include <string>

namespace ostrand {
namespace {

/// A file of 200 values in which one number counts up.
class CountedFile {
public:
    CountedFile()
    {
        for (int i = 0; i < 200; ++i) {
            if (i == 100)
                m_at = m_text.size() + sizeof "Some Value 100 = " - 1;
            m_text += "Some Value " + std::to_string(i) + " = 1000000000\n";
        }
    }
    const std::string& Text() const { return m_text; }
    std::string Next()
    {
        std::string next = m_text;
        next.replace(m_at, 10, std::to_string(++m_number));
        return next;
    }
    void Take(std::string text) { m_text = std::move(text); }

private:
    std::string m_text;
    size_t m_at = 0;
    unsigned m_number = 1'000'000'000;
};

std::string Folder()
{
    const char* const given = std::getenv("BENCH_DIR");
    const std::string folder = std::string(given ? given : "/dev/shm") + "/history";
    std::filesystem::remove_all(folder);
    return folder;
}

void Append(benchmark::State& state, const HistoryLimits& limits)
{
    FileHistory history(Folder(), limits);
    const HistoryNote note{.by = "tessaly"};
    HistoryMemo memo;
    CountedFile file;
    history.Append("Global", "", file.Text(), note, memo);
    uint64_t bytes = 0;
    for (auto _ : state) {
        std::string next = file.Next();
        const uint64_t before = memo.size;
        if (history.Append("Global", file.Text(), next, note, memo) != 0)
            state.SkipWithError("can't append");
        bytes = memo.size - before;
        file.Take(std::move(next));
    }
    state.counters["record"] = static_cast<double>(bytes);
}

/// Without rewrites of the log, for as long as this takes; and with those that the usual limits ask for.
void AppendToHistory(benchmark::State& state) { Append(state, {.versions = 400'000, .bytes = 1u << 26}); }
BENCHMARK(AppendToHistory)->Unit(benchmark::kMicrosecond)->Iterations(100'000);
void AppendWithinLimits(benchmark::State& state) { Append(state, {}); }
BENCHMARK(AppendWithinLimits)->Unit(benchmark::kMicrosecond);

/// A process's first append to a log that is there.
void AppendAsNewcomer(benchmark::State& state)
{
    FileHistory history(Folder(), {.versions = 400'000, .bytes = 1u << 26});
    CountedFile file;
    for (auto _ : state) {
        HistoryMemo memo;
        std::string next = file.Next();
        history.Append("Global", file.Text(), next, {.by = "tessaly"}, memo);
        file.Take(std::move(next));
    }
}
BENCHMARK(AppendAsNewcomer)->Unit(benchmark::kMicrosecond)->Iterations(50'000);

} // namespace
} // namespace ostrand
