// How the work of sessions grows with their number. Prints one line for each number, tab-separated, and the exponents
// of the growth from the smallest to the largest.
//
//   session_growth [--modules DIR] [NUMBER...]      numbers of sessions, 100 folders; default 1000 10000
//
// Linked to the shared library, as applications are, so that protocol modules and this program see one library.
#include "config/session/apply_undo.h"
#include "config/session/folder_data.h"
#include "config/session/protocol_modules.h"
#include "config/session/session_access.h"
#include "config/session/session_paths.h"
#include "core/entry.h"
#include "core/product.h"
#include "stores/file_store.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iomanip>
#include <iostream>
#include <memory>
#include <random>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#include <unistd.h>

namespace ostrand {
namespace {

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;

constexpr int kFolders = 100;
constexpr int kOpened = 2000;

std::unique_ptr<FileStoreFactory> g_factory;

double SecondsOf(const std::function<void()>& work)
{
    const auto begin = Clock::now();
    work();
    return std::chrono::duration<double>(Clock::now() - begin).count();
}

double MedianOf(int times, const std::function<void()>& work)
{
    std::vector<double> seconds;
    for (int i = 0; i < times; ++i)
        seconds.push_back(SecondsOf(work));
    std::nth_element(seconds.begin(), seconds.begin() + times / 2, seconds.end());
    return seconds[static_cast<size_t>(times) / 2];
}

/// A field of /proc/self/status, in KiB.
long StatusOf(const std::string& field)
{
    std::ifstream status("/proc/self/status");
    for (std::string word; status >> word;)
        if (long value = 0; word == field + ":" && status >> value)
            return value;
    return 0;
}

/// The most that the process takes from now on is told by the next `StatusOf("VmHWM")`.
void ForgetPeak() { std::ofstream("/proc/self/clear_refs") << "5"; }

VUnicodeString PathOf(int index)
{
    std::u16string path = u"Folder ";
    for (const char c : std::to_string(index % kFolders) + "\\Router " + std::to_string(index / kFolders))
        path += static_cast<char16_t>(c);
    return VUnicodeString(path);
}

void Check(bool isFine, const char* what)
{
    if (!isFine)
        throw std::runtime_error(what);
}

/// A store of this many complete sessions, saved once as an application does and copied.
class GrowingStore {
public:
    GrowingStore(const fs::path& folder, int sessions) : m_root(folder)
    {
        fs::create_directories(m_root / "Sessions");
        GlobalConfig* config = nullptr;
        ResetGlobalConfig(config);
        g_factory = std::make_unique<FileStoreFactory>(m_root.string());
        Check(SessionFolderAccess().OpenSession(u"Default").Get() != nullptr, "no default session");
        const fs::path sample = m_root / "Sessions" / "Default.ini";
        for (int i = 0; i < kFolders; ++i)
            fs::create_directories(m_root / "Sessions" / ("Folder " + std::to_string(i)));
        for (int i = 0; i < sessions; ++i)
            fs::copy_file(sample, m_root / "Sessions" / ("Folder " + std::to_string(i % kFolders)) /
                                      ("Router " + std::to_string(i / kFolders) + ".ini"));
        sync(); // what is measured is not the writing of this store
    }
    ~GrowingStore()
    {
        GlobalConfig* config = nullptr;
        ResetGlobalConfig(config);
        g_factory.reset();
    }
    GrowingStore(const GrowingStore&) = delete;
    GrowingStore& operator=(const GrowingStore&) = delete;

private:
    fs::path m_root;
};

struct Row {
    int sessions;
    /// Seconds. The first change makes the history of each session, later ones add to it.
    double listFolder, open, preview, firstApply, undo, apply;
    long growth; ///< KiB of peak memory while applying
};

void OpenSome(int sessions)
{
    std::mt19937 random(7);
    const SessionFolderAccess access(false);
    for (int i = 0; i < kOpened; ++i)
        Check(access.OpenSession(PathOf(static_cast<int>(random() % static_cast<unsigned>(sessions)))).Get() != nullptr,
              "a session doesn't open");
}

Row Measure(const fs::path& folder, int sessions)
{
    const GrowingStore store(folder, sessions);
    const SessionEdit edit = [](SessionConfig& session) { session.terminal.scrollback = 9000; };
    VReportMessageParams report;
    ApplyOutcome outcome;
    UndoOutcome undone;
    ApplyPreview preview;
    Row row{};
    row.sessions = sessions;
    Check(ProfileFolderData(u"Folder 0", false).SaveLists(report), "the lists can't be saved");
    row.listFolder = MedianOf(9, [] { ProfileFolderData(u"Folder 0", false); });
    row.open = MedianOf(3, [&] { OpenSome(sessions); }) / kOpened;
    row.preview = SecondsOf([&] { PreviewApply(edit, {}, preview); });
    Check(preview.changed == static_cast<unsigned>(sessions) + 1, "the preview lacks sessions");
    ForgetPeak();
    const long before = StatusOf("VmRSS");
    const auto apply = [&] { Check(ApplyToSessions(edit, {}, outcome, report), "it can't be applied"); };
    row.firstApply = SecondsOf(apply);
    row.growth = StatusOf("VmHWM") - before;
    row.undo = SecondsOf([&] { Check(UndoLastApply({}, undone, report), "it can't be undone"); });
    Check(undone.restored == static_cast<unsigned>(sessions) + 1 && undone.kept.IsEmpty(), "the undo lacks sessions");
    row.apply = SecondsOf(apply);
    return row;
}

void Print(const std::vector<Row>& rows)
{
    std::cout << std::fixed << std::setprecision(3);
    for (const Row& row : rows)
        std::cout << row.sessions << '\t' << row.listFolder * 1e3 << '\t' << row.open * 1e6 << '\t' << row.preview
                  << '\t' << row.firstApply << '\t' << row.undo << '\t' << row.apply << '\t'
                  << static_cast<double>(row.growth) / 1024 << '\n';
    if (rows.size() < 2)
        return;
    const Row& first = rows.front();
    const Row& last = rows.back();
    const double steps = std::log(static_cast<double>(last.sessions) / first.sessions);
    const auto exponent = [&](double Row::* field) { return std::log(last.*field / first.*field) / steps; };
    std::cout << "# exponents: list " << exponent(&Row::listFolder) << ", open " << exponent(&Row::open) << ", preview "
              << exponent(&Row::preview) << ", first apply " << exponent(&Row::firstApply) << ", undo "
              << exponent(&Row::undo) << ", apply " << exponent(&Row::apply) << '\n';
}

void LoadModules(const std::string& folder)
{
    VAppFnTable table;
    table.getProductName = [] { return u"Tessaly"; };
    VReportMessageParams report;
    bool offer = false;
    VUnicodeString path;
    Check(FromUtf8(folder, path), "no UTF-8");
    // Both products, as where both applications are installed.
    for (const int product : {kProductTessaly, kProductOrvane})
        Check(LoadSingleProductConnectionProtocolDlls(table, product, path.c_str(), nullptr, offer, report),
              "no modules there");
}

int Run(std::vector<std::string> words)
{
    if (words.size() >= 2 && words[0] == "--modules") {
        LoadModules(words[1]);
        words.erase(words.begin(), words.begin() + 2);
    }
    std::vector<int> numbers;
    for (const std::string& word : words)
        numbers.push_back(std::stoi(word));
    if (numbers.empty())
        numbers = {1000, 10000};
    SetAppNameFunction([] { return VUnicodeString(u"Tessaly"); });
    OstrandUiInit(nullptr);
    OstrandUiInitProfileFactory([]() -> VProfileStoreFactory* { return g_factory.get(); });
    const char* const work = std::getenv("BENCH_DIR");
    const fs::path folder = fs::path(work ? work : "/tmp") / ("sessions-" + std::to_string(getpid()));
    std::cout << "# sessions\tlist ms\topen us\tpreview s\tfirst apply s\tundo s\tapply s\tpeak MiB\n";
    std::vector<Row> rows;
    for (const int number : numbers)
        rows.push_back(Measure(folder / std::to_string(number), number));
    Print(rows);
    fs::remove_all(folder); // at the end only: files deleted shortly before slow ext4 without a journal down
    return 0;
}

} // namespace
} // namespace ostrand

int main(int argc, char** argv)
{
    try {
        return ostrand::Run({argv + 1, argv + argc});
    } catch (const std::exception& e) {
        std::cerr << "session_growth: " << e.what() << '\n';
        return 1;
    }
}
