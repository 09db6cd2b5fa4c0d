#include "platform/qt/qt_view.h"

#include "platform/qt/qt_services.h"

#include <memory>

namespace ostrand {

namespace {

std::unique_ptr<qt::QtServices> g_services;

} // namespace

IDialogServices& InstallQtView(const QtViewOptions& options)
{
    g_services = std::make_unique<qt::QtServices>(options);
    SetDialogServices(g_services.get());
    return *g_services;
}

void RemoveQtView()
{
    SetDialogServices(nullptr);
    g_services.reset();
}

} // namespace ostrand
