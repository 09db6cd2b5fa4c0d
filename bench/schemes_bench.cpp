// What a start-up waits for besides the global record: a list of 500 colour schemes loaded, and the save that finds
// nothing to do.
#include "config/global/color_scheme_list.h"
#include "core/format.h"
#include "stores/file_store.h"
#include "stores/memory_store.h"

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <filesystem>
#include <string>

namespace ostrand {
namespace {

constexpr int kSchemes = 500;

VProfileStoreFactory* g_factory = nullptr;

std::string Folder()
{
    const char* const given = std::getenv("BENCH_DIR");
    return std::string(given ? given : "/tmp") + "/schemes";
}

/// Makes a factory the default one and fills it.
void Install(VProfileStoreFactory& factory)
{
    g_factory = &factory;
    SetProfileStoreFactoryGetter([] { return g_factory; });
    ProfileColorSchemeList list;
    for (int i = 0; i < kSchemes; ++i) {
        list.Add(
            ProfileColorScheme(Format(u"Scheme number %1!d!", i), ColorScheme::Of(static_cast<uint32_t>(i), 0xFFFFFF)));
    }
    list.Add(list.GetByName(u"Monochrome"));
    list.SetName(ProfileColorSchemeList::kName);
    list.Save(nullptr, true);
    if (list.GetSaveReport().GetCode() != 0)
        std::abort();
}

void Load(benchmark::State& state)
{
    for (auto _ : state) {
        ProfileColorSchemeList list;
        list.LoadByName(nullptr, VUnicodeString(ProfileColorSchemeList::kName));
        if (list.GetCount() != kSchemes + 1)
            state.SkipWithError("schemes are missing");
    }
}

void LoadSchemesFromMemory(benchmark::State& state)
{
    MemoryStoreFactory factory;
    Install(factory);
    Load(state);
}
BENCHMARK(LoadSchemesFromMemory)->Unit(benchmark::kMicrosecond);

void LoadSchemesFromFiles(benchmark::State& state)
{
    std::filesystem::create_directories(Folder());
    FileStoreFactory factory(Folder());
    Install(factory);
    Load(state);
}
BENCHMARK(LoadSchemesFromFiles)->Unit(benchmark::kMicrosecond);

/// By a factory that has never seen the folder.
void LoadSchemesFromFilesAnew(benchmark::State& state)
{
    std::filesystem::create_directories(Folder());
    FileStoreFactory factory(Folder());
    Install(factory);
    for (auto _ : state) {
        FileStoreFactory fresh(Folder());
        g_factory = &fresh;
        ProfileColorSchemeList list;
        list.LoadByName(nullptr, VUnicodeString(ProfileColorSchemeList::kName));
        benchmark::DoNotOptimize(list.GetCount());
    }
}
BENCHMARK(LoadSchemesFromFilesAnew)->Unit(benchmark::kMicrosecond);

/// An unforced save of an unchanged list, which looks for stored schemes to delete.
void SaveUnchangedSchemes(benchmark::State& state)
{
    std::filesystem::create_directories(Folder());
    FileStoreFactory factory(Folder());
    Install(factory);
    ProfileColorSchemeList list;
    list.LoadByName(nullptr, VUnicodeString(ProfileColorSchemeList::kName));
    for (auto _ : state)
        list.Save(nullptr, false);
}
BENCHMARK(SaveUnchangedSchemes)->Unit(benchmark::kMicrosecond);

/// One scheme changed and saved durably.
void SaveOneScheme(benchmark::State& state)
{
    std::filesystem::create_directories(Folder());
    FileStoreFactory factory(Folder());
    Install(factory);
    ProfileColorSchemeList list;
    list.LoadByName(nullptr, VUnicodeString(ProfileColorSchemeList::kName));
    uint32_t color = 0;
    for (auto _ : state) {
        ProfileColorScheme scheme = list.GetAt(7);
        scheme = ColorScheme::Of(++color & 0xFFFFFF, 0);
        list.ReplaceAt(7, scheme);
        list.Save(nullptr, false);
    }
}
BENCHMARK(SaveOneScheme)->Unit(benchmark::kMicrosecond);

} // namespace
} // namespace ostrand
