// What the session tree waits for: one folder of a large store listed and put in order, and a batch put into it.
#include "config/global/global_config.h"
#include "config/session/folder_data.h"
#include "config/session/session_paths.h"
#include "config/session/terminal_config.h"
#include "core/format.h"
#include "core/module_state.h"
#include "stores/file_store.h"

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <filesystem>
#include <string>

namespace ostrand {
namespace {

namespace fs = std::filesystem;

constexpr int kFolders = 100;
constexpr int kSessionsOfLargeFolder = 1000;
constexpr int kSessionsOfOthers = 91; // about 10,000 in all
constexpr int kFurtherValues = 100;   // of a session besides its terminal's
constexpr const char16_t* kLargeFolder = u"Folder 0";

VProfileStoreFactory* g_default = nullptr;

/// A folder of the disk with all sessions, each with about 180 values; the default store while a benchmark runs.
class LargeStore {
public:
    LargeStore()
    {
        fs::remove_all(m_root);
        fs::create_directories(m_root / "Sessions");
        Install();
        const fs::path sample = MakeSample();
        for (int i = 0; i < kFolders; ++i) {
            const fs::path folder = m_root / "Sessions" / ("Folder " + std::to_string(i));
            fs::create_directory(folder);
            const int count = i == 0 ? kSessionsOfLargeFolder : kSessionsOfOthers;
            for (int session = 0; session < count; ++session)
                fs::copy_file(sample, folder / ("Router " + std::to_string(session) + ".ini"));
        }
    }
    ~LargeStore() { fs::remove_all(m_root); }
    LargeStore(const LargeStore&) = delete;
    LargeStore& operator=(const LargeStore&) = delete;

    void Install()
    {
        g_default = &m_factory;
        SetProfileStoreFactoryGetter([] { return g_default; });
        ModuleState().globalConfig.Reset();
    }

private:
    fs::path MakeSample() const
    {
        const VProfileStore store;
        VProfileKey key(store.GetRootKey(), u"Sample");
        key.WriteDword(kIsSession, 1);
        TerminalConfig(nullptr, false, nullptr).Save(&key, true);
        for (int i = 0; i < kFurtherValues; ++i)
            key.WriteString(Format(u"Further Value %1!d!", i).c_str(), u"some text");
        VReportMessageParams report;
        if (!key.Flush(report))
            std::abort();
        return m_root / "Sample.ini";
    }

    const fs::path m_root = fs::path(std::getenv("BENCH_DIR") ? std::getenv("BENCH_DIR") : "/tmp") / "folders";
    FileStoreFactory m_factory{m_root.string()};
};

LargeStore& TheStore()
{
    static LargeStore store;
    store.Install();
    return store;
}

void ListFolderOf1000(benchmark::State& state)
{
    TheStore();
    VReportMessageParams report;
    if (!ProfileFolderData(kLargeFolder, false).SaveLists(report))
        state.SkipWithError("the lists can't be saved");
    for (auto _ : state)
        if (ProfileFolderData(kLargeFolder, false).orderedSessions.GetCount() != kSessionsOfLargeFolder)
            state.SkipWithError("sessions are missing");
}
BENCHMARK(ListFolderOf1000)->Unit(benchmark::kMillisecond)->UseRealTime();

/// Names of an import put behind one of 1,000 sessions, in memory.
void Insert200NamesInto1000(benchmark::State& state)
{
    VStringArray list, names;
    for (int i = 0; i < kSessionsOfLargeFolder; ++i)
        list.Append(Format(u"Router %1!d!", i));
    for (int i = 0; i < 200; ++i)
        names.Append(Format(u"Switch %1!d!", i));
    for (auto _ : state)
        InsertNames(list, names, u"Router 500", false);
}
BENCHMARK(Insert200NamesInto1000)->Unit(benchmark::kMicrosecond);

} // namespace
} // namespace ostrand
