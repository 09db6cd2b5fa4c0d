// Key maps: reading and writing both forms of a map with all 4096 keys, the change test, and what maps hold in memory.
#include "keymap/default_bindings.h"
#include "keymap/function_names.h"
#include "keymap/key_block.h"
#include "keymap/keymap_file.h"
#include "keymap/profile_keymap.h"

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <filesystem>
#include <malloc.h>
#include <memory>
#include <string>
#include <vector>

namespace ostrand {
namespace {

/// Every key bound; a third of them to strings of twenty characters, as maps of real terminals are.
void BindAll(IKeymap& keymap)
{
    for (unsigned index = 0; index < kKeyCount; ++index) {
        const unsigned code = index % 3 == 0 ? kFunctionSend : 2 + index % 163;
        keymap.SetFunction(index, code);
        if (code <= kFunctionLaunch)
            keymap.SetString(index, u"\\033[1;5A some string");
    }
}

std::u16string TheFile()
{
    const char* const given = std::getenv("BENCH_DIR");
    return std::filesystem::path(std::string(given ? given : "/tmp") + "/bench.key").u16string();
}

void ReadKeyFile(benchmark::State& state)
{
    Keymap full;
    BindAll(full);
    const std::u16string path = TheFile();
    if (WriteKeymapFile(full.OwnBindings(), path, static_cast<VTextEncoding>(state.range(0))) != 0)
        state.SkipWithError("the file can't be written");
    for (auto _ : state) {
        Keymap keymap;
        VReportMessageParams status;
        if (!keymap.LoadFromFile(path, status) || status.GetCode() != 0)
            state.SkipWithError("the file can't be read");
        benchmark::DoNotOptimize(keymap);
    }
    std::filesystem::remove(path);
}
BENCHMARK(ReadKeyFile)->Name("ReadKeyFileCodePage")->Arg(1)->Unit(benchmark::kMicrosecond);
BENCHMARK(ReadKeyFile)->Name("ReadKeyFileUtf8")->Arg(2)->Unit(benchmark::kMicrosecond);

void WriteKeyFile(benchmark::State& state)
{
    Keymap full;
    BindAll(full);
    for (auto _ : state)
        if (!full.SaveToFile(TheFile(), true))
            state.SkipWithError("the file can't be written");
    std::filesystem::remove(TheFile());
}
BENCHMARK(WriteKeyFile)->Unit(benchmark::kMicrosecond);

void ReadBlock(benchmark::State& state)
{
    Keymap full;
    BindAll(full);
    const std::vector<uint8_t> block = WriteKeyBlock(full.OwnBindings());
    for (auto _ : state) {
        Keymap keymap;
        benchmark::DoNotOptimize(ReadKeyBlock(block, keymap));
        benchmark::DoNotOptimize(keymap);
    }
}
BENCHMARK(ReadBlock)->Name("ReadKeyBlock")->Unit(benchmark::kMicrosecond);

void WriteBlock(benchmark::State& state)
{
    Keymap full;
    BindAll(full);
    for (auto _ : state)
        benchmark::DoNotOptimize(WriteKeyBlock(full.OwnBindings()));
}
BENCHMARK(WriteBlock)->Name("WriteKeyBlock")->Unit(benchmark::kMicrosecond);

/// What a dialog's end asks of an unchanged map. Strings that aren't shared are the worst case.
void TestForChange(benchmark::State& state)
{
    ProfileKeymap keymap;
    BindAll(keymap);
    keymap.AcceptChanges();
    if (state.range(0) != 0)
        BindAll(keymap);
    for (auto _ : state)
        benchmark::DoNotOptimize(keymap.IsModified());
}
BENCHMARK(TestForChange)->Name("TestKeymapForChange")->Arg(0)->Unit(benchmark::kMicrosecond);
BENCHMARK(TestForChange)->Name("TestKeymapForChangeUnshared")->Arg(1)->Unit(benchmark::kMicrosecond);

/// Bytes of a map, its own object included, once `fill` has worked on it.
template <class Map, class Fill>
void CountBytes(benchmark::State& state, Fill fill)
{
    constexpr size_t kMaps = 100; // so many that what the heap had lying about doesn't count
    size_t bytes = 0;
    for (auto _ : state) {
        std::vector<std::unique_ptr<Map>> maps(kMaps);
        const size_t before = mallinfo2().uordblks;
        for (std::unique_ptr<Map>& map : maps) {
            map = std::make_unique<Map>();
            fill(*map);
        }
        bytes = (mallinfo2().uordblks - before) / kMaps;
    }
    state.counters["bytes"] = static_cast<double>(bytes);
}

void HeapOfKeymaps(benchmark::State& state)
{
    switch (state.range(0)) {
    case 0:
        return CountBytes<Keymap>(state, [](Keymap&) {});
    case 1:
        return CountBytes<Keymap>(state, [](Keymap& map) { InstallDefaultKeymap(map); });
    case 2:
        return CountBytes<Keymap>(state, [](Keymap& map) { BindAll(map); });
    case 3:
        return CountBytes<ProfileKeymap>(state, [](ProfileKeymap& map) { map.AcceptChanges(); });
    default:
        return CountBytes<ProfileKeymap>(state, [](ProfileKeymap& map) {
            InstallDefaultKeymap(map);
            map.AcceptChanges();
        });
    }
}
BENCHMARK(HeapOfKeymaps)->Name("HeapOfEmptyKeymap")->Arg(0)->Iterations(1);
BENCHMARK(HeapOfKeymaps)->Name("HeapOfDefaultKeymap")->Arg(1)->Iterations(1);
BENCHMARK(HeapOfKeymaps)->Name("HeapOfFullKeymap")->Arg(2)->Iterations(1);
BENCHMARK(HeapOfKeymaps)->Name("HeapOfEmptyProfileKeymap")->Arg(3)->Iterations(1);
BENCHMARK(HeapOfKeymaps)->Name("HeapOfDefaultProfileKeymap")->Arg(4)->Iterations(1);

} // namespace
} // namespace ostrand
