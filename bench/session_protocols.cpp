// What both sides of a session cost with all example protocols loaded: settings of eleven protocols made, most of them
// never used. Its own program, since modules come with the shared library.
#include "config/session/connect_config_ptr.h"
#include "config/session/protocol_modules.h"
#include "stores/file_store.h"
#include "stores/memory_store.h"

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <filesystem>
#include <string>

namespace ostrand {
namespace {

VProfileStoreFactory* g_default = nullptr;

void LoadProtocols()
{
    static VAppFnTable table;
    bool offer = false;
    VReportMessageParams report;
    const VUnicodeString folder(std::filesystem::path(OSTRAND_EXAMPLE_PROTOCOLS).u16string());
    for (const int product : {3, 6})
        if (!LoadSingleProductConnectionProtocolDlls(table, product, folder.c_str(), nullptr, offer, report))
            std::abort();
}

/// What a first save leaves in the session's key.
void WriteSession(VProfileStoreFactory& factory)
{
    VProfileStore store(&factory);
    VProfileKey key(store.GetRootKey(), u"Session");
    CommonConfig common;
    for (const int kind : {ConnectConfigPtr::kTerminal, ConnectConfigPtr::kTransfer})
        ConnectConfigPtr(&key, kind, &common).Save(&key, true);
}

void OpenSides(benchmark::State& state, VProfileStoreFactory& factory)
{
    WriteSession(factory);
    for (auto _ : state) {
        const VProfileStore store(true, &factory);
        const VProfileKey key(store.GetRootKey(), u"Session");
        CommonConfig common;
        const ConnectConfigPtr terminal(&key, ConnectConfigPtr::kTerminal, &common);
        const ConnectConfigPtr transfer(&key, ConnectConfigPtr::kTransfer, &common);
        benchmark::DoNotOptimize(terminal.GetActive());
        benchmark::DoNotOptimize(transfer.GetActive());
    }
}

void OpenSidesFromMemory(benchmark::State& state)
{
    MemoryStoreFactory factory;
    OpenSides(state, factory);
}
BENCHMARK(OpenSidesFromMemory);

void OpenSidesFromFile(benchmark::State& state)
{
    const char* const given = std::getenv("BENCH_DIR");
    const std::string folder = std::string(given ? given : "/tmp") + "/session-protocols";
    std::filesystem::create_directories(folder);
    FileStoreFactory factory(folder);
    OpenSides(state, factory);
}
BENCHMARK(OpenSidesFromFile);

void CloneSides(benchmark::State& state)
{
    CommonConfig common;
    const ConnectConfigPtr terminal(nullptr, ConnectConfigPtr::kTerminal, &common);
    const ConnectConfigPtr transfer(nullptr, ConnectConfigPtr::kTransfer, &common);
    for (auto _ : state) {
        CommonConfig clone(common);
        benchmark::DoNotOptimize(ConnectConfigPtr(terminal, &clone).GetActive());
        benchmark::DoNotOptimize(ConnectConfigPtr(transfer, &clone).GetActive());
    }
}
BENCHMARK(CloneSides);

} // namespace
} // namespace ostrand

int main(int count, char** arguments)
{
    static ostrand::MemoryStoreFactory definitions;
    ostrand::g_default = &definitions;
    ostrand::SetProfileStoreFactoryGetter([] { return ostrand::g_default; });
    ostrand::LoadProtocols();
    benchmark::Initialize(&count, arguments);
    benchmark::RunSpecifiedBenchmarks();
}
