#include "examples/host/application.h"

#include "config/session/protocol_modules.h"
#include "core/entry.h"
#include "core/paths/folders.h"
#include "core/product.h"
#include "examples/host/text.h"
#include "platform/qt/qt_view.h"

namespace host {

using namespace ostrand;

namespace {

// The library asks for these by functions without a context.
FileStoreFactory* g_stores = nullptr;
VUnicodeString g_name;

} // namespace

Application::Application(const Arguments& arguments) : m_stores(arguments.config), m_prompts(InstallQtView())
{
    g_stores = &m_stores;
    g_name = arguments.app == "orvane" ? u"Orvane" : u"Tessaly";
    SetAppNameFunction([] { return g_name; });
    OstrandUiInit(nullptr);
    OstrandUiInitProfileFactory([]() -> VProfileStoreFactory* { return g_stores; });
    OstrandUiInitClientApplications(GetExeFolder().c_str());
    SetTessalyInstalled(!arguments.isAlone || GetProductFromAppName() == kProductTessaly); // this program is both
    SetOrvaneInstalled(!arguments.isAlone || GetProductFromAppName() == kProductOrvane);
    SetPrompts(&m_prompts); // before the modules, which may have something to ask
    LoadProtocols(arguments.modules);
    OstrandUiInitGUI(nullptr, nullptr);
}

/// Modules stay until the process ends, as their tables of names do.
Application::~Application()
{
    GlobalConfig* global = nullptr;
    ResetGlobalConfig(global);
    SetPrompts(nullptr);
    RemoveQtView();
    OstrandUiInitProfileFactory(nullptr);
    g_stores = nullptr;
}

void Application::LoadProtocols(const std::string& folder)
{
    static VAppFnTable table;
    table.getProductName = [] { return g_name.c_str(); };
    const VUnicodeString directory = Text(folder);
    const auto load = [&](int product) {
        VReportMessageParams report;
        bool offersDownload = false;
        LoadSingleProductConnectionProtocolDlls(table, product, directory.c_str(), nullptr, offersDownload, report);
    };
    const auto addNone = [&](int product) {
        VReportMessageParams report;
        int row = 0;
        LoadOneProtocol(nullptr, {}, kNoProtocol, product, table, report, row);
    };
    if (IsTessalyInstalled())
        load(kProductTessaly);
    if (IsOrvaneInstalled())
        load(kProductOrvane);
    addNone(kProductTessaly);
    addNone(kProductOrvane);
}

} // namespace host
