// ostrand-options: what an application does around the dialog of a session's options, from its start to the save.
//
//     ostrand-options session 'Routers\Core\Router 1' --config DIR
//     ostrand-options session Default --config DIR --page 'Log File' --screenshot page.png
#include "config/session/protocol_modules.h"
#include "config/session/session_access.h"
#include "config/session/session_paths.h"
#include "core/entry.h"
#include "core/product.h"
#include "dialogs/kit/dialog_mode.h"
#include "dialogs/prompts/dialog_prompts.h"
#include "dialogs/session/session_options_dialog.h"
#include "platform/qt/qt_view.h"
#include "stores/file_store.h"

#include <CLI/CLI.hpp>
#include <QApplication>
#include <QDir>
#include <QStyleFactory>
#include <QTimer>
#include <QWidget>

#include <iostream>
#include <memory>
#include <string>

namespace {

using namespace ostrand;

struct Arguments {
    std::string config;
    std::string app = "tessaly";
    std::string modules;
    std::string session;
    std::string page;
    std::string screenshot;
    bool isReadOnly = false;
};

std::unique_ptr<FileStoreFactory> g_factory;

/// What the applications' caret blinks with, in milliseconds.
constexpr unsigned kBlinkPeriod = 530;

VUnicodeString Text(const std::string& utf8)
{
    VUnicodeString text;
    FromUtf8(utf8, text);
    return text;
}

int Fail(const std::string& message)
{
    std::cerr << "ostrand-options: " << message << '\n';
    return 1;
}

/// Both applications' protocols: this program stands for either of them.
void LoadProtocols(const std::string& folder)
{
    static VAppFnTable table;
    table.getProductName = [] { return u"Tessaly"; };
    SetTessalyInstalled(true);
    SetOrvaneInstalled(true);
    const VUnicodeString directory = Text(folder);
    for (const int product : {kProductTessaly, kProductOrvane}) {
        VReportMessageParams report;
        bool offersDownload = false;
        LoadSingleProductConnectionProtocolDlls(table, product, directory.c_str(), nullptr, offersDownload, report);
    }
    for (const int product : {kProductTessaly, kProductOrvane}) {
        VReportMessageParams report;
        int index = 0;
        LoadOneProtocol(nullptr, {}, kNoProtocol, product, table, report, index);
    }
}

/// Takes a picture of the dialog once it is shown, and cancels it.
void Photograph(const std::string& file)
{
    constexpr int kPause = 200; // milliseconds, for the first layout
    QTimer::singleShot(kPause, [file] {
        for (QWidget* const window : QApplication::topLevelWidgets())
            if (window->isVisible()) {
                window->grab().save(QString::fromStdString(file));
                window->close();
                return;
            }
    });
}

int Save(SessionConfig& session, const VUnicodeString& path)
{
    if (!SessionExists(path) &&
        !Prompts().AskYesNo(u"The session was deleted meanwhile. Do you want to save it again?", VPromptIcon::Question))
        return 0;
    VReportMessageParams report;
    if (SessionFolderAccess().SaveSession(session, false, report))
        return 0;
    Prompts().Show(report.GetText(), VPromptIcon::Error);
    return 1;
}

int Show(const Arguments& arguments)
{
    GlobalConfig* global = nullptr;
    GetGlobalConfig(global, -1);
    const VUnicodeString path = Text(arguments.session);
    const VUnknownPointer<SessionConfig> session = SessionFolderAccess().OpenSession(path);
    if (!session)
        return Fail("there is no session '" + arguments.session + "'");
    session->AcceptChanges();
    if (!arguments.page.empty())
        SessionOptionsDialogBase::PageStates().StateOf(Text(arguments.page)).isSelected = true;
    if (!arguments.screenshot.empty())
        Photograph(arguments.screenshot);
    const int result =
        ShowSessionOptionsDialog(global, session.Get(), nullptr, arguments.isReadOnly ? kModeReadOnly : 0, false, false,
                                 global->maxColumns, false, kBlinkPeriod, true, nullptr);
    return result == kResultOk && session->IsModified() ? Save(*session, path) : 0;
}

int Run(const Arguments& arguments)
{
    if (!QDir(QString::fromStdString(arguments.config)).exists())
        return Fail(arguments.config + ": there is no such folder");
    static const VUnicodeString name = arguments.app == "orvane" ? u"Orvane" : u"Tessaly";
    SetAppNameFunction([] { return name; });
    g_factory = std::make_unique<FileStoreFactory>(arguments.config);
    OstrandUiInit(nullptr);
    OstrandUiInitProfileFactory([]() -> VProfileStoreFactory* { return g_factory.get(); });
    DialogPrompts prompts(InstallQtView());
    SetPrompts(&prompts);
    LoadProtocols(arguments.modules);
    OstrandUiInitGUI(nullptr, nullptr);
    const int code = Show(arguments);
    GlobalConfig* global = nullptr;
    ResetGlobalConfig(global);
    UnloadConnectionProtocolDlls();
    SetPrompts(nullptr);
    RemoveQtView();
    OstrandUiInitProfileFactory(nullptr);
    g_factory.reset();
    return code;
}

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    Arguments arguments;
    arguments.modules = (QApplication::applicationDirPath() + QStringLiteral("/protocols")).toStdString();
    CLI::App options("Shows the options of a session, and saves what was changed", "ostrand-options");
    options.add_option("--config", arguments.config, "The folder with the settings")->required();
    options.add_option("--app", arguments.app, "Which application to be")->check(CLI::IsMember({"tessaly", "orvane"}));
    options.add_option("--modules", arguments.modules, "The folder with the protocols");
    CLI::App* const session = options.add_subcommand("session", "The options of one session");
    session->add_option("PATH", arguments.session, "The session, with \\ between folders")->required();
    session->add_flag("--read-only", arguments.isReadOnly, "Show it without letting anything be changed");
    session->add_option("--page", arguments.page, "Begin with this page, such as 'Log File'");
    session->add_option("--screenshot", arguments.screenshot, "Save a picture of the dialog, and end");
    options.require_subcommand(1);
    options.fallthrough();
    CLI11_PARSE(options, argc, argv);
    return Run(arguments);
}
