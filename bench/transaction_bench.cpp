// One value in each of many keys as one durable transaction: the time of a key, and what the process grows by
// meanwhile.
#include "profile/key.h"
#include "stores/file_store.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include <unistd.h>

namespace ostrand {
namespace {

constexpr size_t kPerFolder = 100;
constexpr int kValues = 180;

/// Kilobytes of a line of /proc/self/status.
long StatusOf(const std::string& name)
{
    std::ifstream status("/proc/self/status");
    for (std::string word; status >> word;)
        if (long kilobytes = 0; word == name + ':' && status >> kilobytes)
            return kilobytes;
    return 0;
}

void ForgetPeak() { std::ofstream("/proc/self/clear_refs") << 5; }

/// About 8 KB.
std::string TextOfKey()
{
    std::string text;
    for (int i = 0; i < kValues; ++i)
        text += "Setting number " + std::to_string(i) + " = \"some text of a usual length\"\n";
    return text;
}

std::string StoreFolder(size_t keys)
{
    const char* const given = std::getenv("BENCH_DIR");
    return std::string(given ? given : "/tmp") + "/transaction" + std::to_string(keys);
}

std::vector<std::u16string> MakeKeys(const std::string& folder, size_t count)
{
    const std::string text = TextOfKey();
    std::vector<std::u16string> names;
    for (size_t i = 0; i < count; ++i) {
        const std::string part = "Folder " + std::to_string(i / kPerFolder);
        const std::string key = "Session " + std::to_string(i);
        std::filesystem::create_directories(folder + '/' + part);
        std::ofstream(folder + '/' + part + '/' + key + ".ini") << text;
        const std::string name = part + '\\' + key;
        names.emplace_back(name.begin(), name.end());
    }
    sync();
    return names;
}

void Transaction(benchmark::State& state)
{
    const auto count = static_cast<size_t>(state.range(0));
    const std::string folder = StoreFolder(count);
    const std::vector<std::u16string> names = MakeKeys(folder, count);
    long growth = 0;
    unsigned number = 0;
    FileStoreFactory factory(folder);
    for (auto _ : state) {
        ForgetPeak();
        const long before = StatusOf("VmRSS");
        ++number;
        VProfileStore store(false, &factory);
        VReportMessageParams report;
        store.Extras().BeginTransaction(report);
        for (const std::u16string& name : names)
            VProfileKey(store.GetRootKey(), name.c_str()).WriteDword(u"Changed", number);
        if (!store.Extras().CommitTransaction(report))
            state.SkipWithError("not committed");
        growth = std::max(growth, StatusOf("VmHWM") - before);
    }
    state.counters["a_key"] = benchmark::Counter(
        static_cast<double>(count), benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
    state.counters["growth_MB"] = static_cast<double>(growth) / 1024;
}
BENCHMARK(Transaction)->Arg(1000)->Arg(10000)->Arg(30000)->Iterations(3)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace
} // namespace ostrand
