// What a start-up waits for: the global record over the file store, its saves and look-ups, beside the physical limit
// (the same file read whole and cut at line ends).
#include "config/global/global_config.h"
#include "platform/platform.h"
#include "stores/file_store.h"

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <malloc.h>
#include <string>
#include <vector>

namespace ostrand {
namespace {

constexpr int kCopies = 64; // files taking turns, so that nothing answers from a parsed copy

VProfileStoreFactory* g_default = nullptr;

/// The record's parts with keys of their own come from the default store.
void MakeDefault(VProfileStoreFactory& factory)
{
    g_default = &factory;
    SetProfileStoreFactoryGetter([] { return g_default; });
}

/// A folder of stores, each with a complete global record; the default store beside it has the colour schemes.
struct Stores {
    std::vector<std::string> files;
    std::vector<VUnicodeString> names;
    FileStoreFactory factory;
    FileStoreFactory parts;

    static std::string Folder()
    {
        const char* const given = std::getenv("BENCH_DIR");
        const std::string folder = std::string(given ? given : "/tmp") + "/global";
        return folder;
    }

    Stores() : factory(Folder()), parts(Folder() + "/parts")
    {
        std::filesystem::create_directories(Folder() + "/parts");
        MakeDefault(parts);
        for (int i = 0; i < kCopies; ++i) {
            const std::string name = "Global" + std::to_string(i);
            files.push_back(Folder() + "/" + name + ".ini");
            names.emplace_back(std::u16string(name.begin(), name.end()));
            VProfileStore store(&factory);
            VProfileKey key(store.GetRootKey(), names.back().c_str());
            GlobalConfig* const config = new GlobalConfig(nullptr, false);
            config->Save(&key, true);
            config->Release();
        }
    }
};

Stores& TheStores()
{
    static Stores stores;
    MakeDefault(stores.parts);
    return stores;
}

/// Contents of the file, its lines cut and counted.
void Floor(benchmark::State& state)
{
    static char buffer[1 << 16];
    Stores& stores = TheStores();
    size_t turn = 0;
    for (auto _ : state) {
        std::unique_ptr<IFile> file;
        size_t size = 0;
        Platform().files->Open(stores.files[turn++ % kCopies], VFileAccess::Read, VFileDisposition::OpenExisting, 0,
                               file);
        file->Read(buffer, sizeof buffer, size);
        file.reset();
        size_t lines = 0;
        for (const char *p = buffer, *end = buffer + size;
             (p = static_cast<const char*>(std::memchr(p, '\n', static_cast<size_t>(end - p)))); ++p)
            ++lines;
        benchmark::DoNotOptimize(lines);
    }
}
BENCHMARK(Floor)->Unit(benchmark::kMicrosecond);

/// The whole record constructed over a newly opened store, and released.
void LoadGlobalRecord(benchmark::State& state)
{
    Stores& stores = TheStores();
    size_t turn = 0;
    for (auto _ : state) {
        VProfileStore store(true, &stores.factory);
        const VProfileKey key(store.GetRootKey(), stores.names[turn++ % kCopies].c_str());
        GlobalConfig* const config = new GlobalConfig(&key, false);
        benchmark::DoNotOptimize(config);
        config->Release();
    }
}
BENCHMARK(LoadGlobalRecord)->Unit(benchmark::kMicrosecond);

/// The same by a factory that has never seen the folder: nothing of an earlier opening can be used again.
void LoadGlobalRecordAnew(benchmark::State& state)
{
    Stores& stores = TheStores();
    size_t turn = 0;
    for (auto _ : state) {
        FileStoreFactory fresh(Stores::Folder());
        VProfileStore store(true, &fresh);
        const VProfileKey key(store.GetRootKey(), stores.names[turn++ % kCopies].c_str());
        GlobalConfig* const config = new GlobalConfig(&key, false);
        benchmark::DoNotOptimize(config);
        config->Release();
    }
}
BENCHMARK(LoadGlobalRecordAnew)->Unit(benchmark::kMicrosecond);

/// Read-write handles on loaded keys, everything read through them, closed untouched.
void CloseUntouchedHandle(benchmark::State& state)
{
    Stores& stores = TheStores();
    VProfileStore store(&stores.factory);
    std::vector<std::unique_ptr<VProfileKey>> keys(kCopies);
    for (auto _ : state) {
        state.PauseTiming();
        for (size_t i = 0; i < kCopies; ++i) {
            keys[i] = std::make_unique<VProfileKey>(store.GetRootKey(), stores.names[i].c_str());
            (new GlobalConfig(keys[i].get(), false))->Release();
        }
        state.ResumeTiming();
        for (auto& key : keys)
            key.reset();
    }
    state.SetItemsProcessed(state.iterations() * kCopies);
    state.counters["ns_each"] = benchmark::Counter(static_cast<double>(state.iterations() * kCopies) / 1e9,
                                                   benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}
BENCHMARK(CloseUntouchedHandle)->Iterations(200)->Unit(benchmark::kMicrosecond);

void SaveUnchangedRecord(benchmark::State& state)
{
    Stores& stores = TheStores();
    VProfileStore store(&stores.factory);
    VProfileKey key(store.GetRootKey(), stores.names[0].c_str());
    GlobalConfig* const config = new GlobalConfig(&key, false);
    config->Save(&key, false);
    for (auto _ : state)
        config->Save(&key, false);
    config->Release();
}
BENCHMARK(SaveUnchangedRecord)->Unit(benchmark::kMicrosecond);

/// Look-up by value name in capitals, in an order that no branch predictor learns.
void FindByName(benchmark::State& state)
{
    GlobalConfig* const config = new GlobalConfig(nullptr, false);
    std::vector<VUnicodeString> names;
    uint64_t dice = 99;
    std::vector<VUnicodeString> all;
    for (int i = 0; const VProfileData* member = config->GetMember(i); ++i) {
        std::u16string shouted(member->name.View());
        for (char16_t& c : shouted)
            c = c >= u'a' && c <= u'z' ? static_cast<char16_t>(c - 32) : c;
        all.emplace_back(shouted);
    }
    for (int i = 0; i < 8192; ++i) {
        dice = dice * 6364136223846793005ull + 1442695040888963407ull;
        names.push_back(all[(dice >> 33) % all.size()]);
    }
    size_t turn = 0;
    for (auto _ : state)
        benchmark::DoNotOptimize(config->FindMember(names[turn++ % names.size()]));
    config->Release();
}
BENCHMARK(FindByName)->Unit(benchmark::kNanosecond);

/// Bytes that a loaded record asks of the heap, its own object included.
void HeapOfLoadedRecord(benchmark::State& state)
{
    Stores& stores = TheStores();
    size_t bytes = 0;
    for (auto _ : state) {
        VProfileStore store(true, &stores.factory);
        const VProfileKey key(store.GetRootKey(), stores.names[0].c_str());
        const size_t before = mallinfo2().uordblks;
        GlobalConfig* const config = new GlobalConfig(&key, false);
        bytes = mallinfo2().uordblks - before;
        config->Release();
    }
    state.counters["bytes"] = static_cast<double>(bytes);
}
BENCHMARK(HeapOfLoadedRecord)->Iterations(100);

} // namespace
} // namespace ostrand

BENCHMARK_MAIN();
