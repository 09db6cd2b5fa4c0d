// What a user waits for in the dialog of a session's options: its opening, another page, an answer of the search. On a
// screen in memory, with all example protocols, each until the window is painted.
#include "config/global/global_config.h"
#include "config/session/session_access.h"
#include "core/entry.h"
#include "dialogs/session/log_file_page.h"
#include "dialogs/session/session_options_dialog.h"
#include "examples/host/application.h"
#include "examples/host/look.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QTemporaryDir>

#include <chrono>
#include <filesystem>
#include <memory>

namespace ostrand {
namespace {

using Clock = std::chrono::steady_clock;

VUnknownPointer<SessionConfig> OpenSession() { return SessionFolderAccess().OpenSession(u"Routers\\Core\\Router 1"); }

GlobalConfig& Global()
{
    GlobalConfig* global = nullptr;
    GetGlobalConfig(global, -1);
    return *global;
}

const SessionOptionsSetup kSetup{.maxColumns = 1024, .blinkPeriod = 530, .printingEnabled = true};

/// Counts what is painted.
class Painted : public QObject {
public:
    int count = 0;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        count += event->type() == QEvent::Paint ? 1 : 0;
        return QObject::eventFilter(watched, event);
    }
};

/// Until nothing is left to be painted, but at least something is.
void Paint(benchmark::State& state)
{
    Painted painted;
    qApp->installEventFilter(&painted);
    for (int before = -1; before != painted.count;) {
        before = painted.count;
        QApplication::processEvents();
    }
    if (painted.count == 0)
        state.SkipWithError("nothing was painted");
}

/// Runs the dialog from its first page on, and `act` in it when it has been painted.
template <class F>
void InDialog(SessionOptionsDialog& dialog, benchmark::State& state, const F& act)
{
    SessionOptionsDialogBase::PageStates().RemoveAll();
    dialog.PostToSelf([&] {
        Paint(state);
        act();
        dialog.EndDialog(kResultCancel);
    });
    dialog.DoModal();
}

/// From the session to the painted window: all pages are made, those of the protocols, too, and the first is shown.
void OpenDialog(benchmark::State& state)
{
    const auto session = OpenSession();
    for (auto _ : state) {
        const Clock::time_point start = Clock::now();
        SessionOptionsDialog dialog(Global(), *session, kSetup);
        InDialog(dialog, state,
                 [&] { state.SetIterationTime(std::chrono::duration<double>(Clock::now() - start).count()); });
    }
}
BENCHMARK(OpenDialog)->UseManualTime()->Unit(benchmark::kMillisecond);

/// Each page of the tree in its turn, all but the first round with widgets that are there.
void SwitchPage(benchmark::State& state)
{
    const auto session = OpenSession();
    SessionOptionsDialog dialog(Global(), *session, kSetup);
    InDialog(dialog, state, [&] {
        const std::vector<VPropertyTreePage*> pages = dialog.GetVisiblePages();
        size_t next = 1; // the first one is shown
        for (auto _ : state) {
            dialog.SelectPage(*pages[next++ % pages.size()]);
            Paint(state);
        }
    });
}
BENCHMARK(SwitchPage)->Unit(benchmark::kMillisecond);

/// The widgets of a page are built when it is shown first.
void ShowPageFirst(benchmark::State& state)
{
    const auto session = OpenSession();
    for (auto _ : state) {
        SessionOptionsDialog dialog(Global(), *session, kSetup);
        InDialog(dialog, state, [&] {
            const Clock::time_point start = Clock::now();
            dialog.SelectPage(*dialog.GetVisiblePages().back());
            Paint(state);
            state.SetIterationTime(std::chrono::duration<double>(Clock::now() - start).count());
        });
    }
}
BENCHMARK(ShowPageFirst)->UseManualTime()->Unit(benchmark::kMillisecond);

/// One more letter in the field, or one less, until hits and marks are painted.
void TypeInSearch(benchmark::State& state)
{
    const auto session = OpenSession();
    SessionOptionsDialog dialog(Global(), *session, kSetup);
    InDialog(dialog, state, [&] {
        QLineEdit* field = nullptr;
        for (QLineEdit* const edit : QApplication::activeModalWidget()->findChildren<QLineEdit*>())
            if (edit->accessibleName() == QLatin1String("Search"))
                field = edit;
        if (!field)
            return state.SkipWithError("no search");
        const QString words = QStringLiteral("log file");
        field->setFocus();
        bool isForward = true;
        for (auto _ : state) {
            const qsizetype length = field->text().size();
            isForward = length == 0 || (isForward && length < words.size());
            QKeyEvent press(QEvent::KeyPress, isForward ? Qt::Key_unknown : Qt::Key_Backspace, Qt::NoModifier,
                            isForward ? QString(words[length]) : QString());
            QApplication::sendEvent(field, &press);
            Paint(state);
        }
    });
}
BENCHMARK(TypeInSearch)->Unit(benchmark::kMillisecond);

/// The search alone, in a dialog as large as dialogs get: 40 pages with 18 settings each.
void SearchLargeDialog(benchmark::State& state)
{
    constexpr int kPages = 40;
    const auto session = OpenSession();
    SessionOptionsDialog dialog(Global(), *session, kSetup);
    std::vector<std::unique_ptr<SessionLogFilePage>> pages;
    for (int i = 0; i < kPages; ++i) {
        pages.push_back(std::make_unique<SessionLogFilePage>(*session));
        dialog.AddPage(pages.back().get());
    }
    const VUnicodeString words = u"overwriet custom";
    for (auto _ : state)
        benchmark::DoNotOptimize(dialog.Search(words));
}
BENCHMARK(SearchLargeDialog)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace ostrand

int main(int argc, char** argv)
{
    benchmark::Initialize(&argc, argv);
    const QTemporaryDir folder;
    host::Arguments arguments;
    arguments.config = folder.path().toStdString();
    arguments.modules = OSTRAND_EXAMPLE_PROTOCOLS;
    arguments.screenshot = "in memory";
    std::filesystem::copy(OSTRAND_EXAMPLE, arguments.config, std::filesystem::copy_options::recursive);
    host::ChooseScreen(arguments);
    const QApplication qt(argc, argv);
    host::ChooseColors(arguments);
    const host::Application application(arguments);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
