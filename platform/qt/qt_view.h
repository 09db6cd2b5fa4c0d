// The view of the dialogs in Qt 6 Widgets, and the services of the desktop through Qt. An application that has windows
// installs it once; nothing else of OstrandUI knows Qt.
//
//     QApplication application(argc, argv);
//     InstallQtView();
//     ... dialogs ...
//     RemoveQtView();
#pragma once

#include "dialogs/kit/services.h"
#include "platform/qt/export.h"

#include <string>

namespace ostrand {

/// Of a window's contents, in logical pixels.
struct VWindowSize {
    int width = 0;
    int height = 0;
};

/// Where the sizes of dialogs are kept. `dialog` names a class of dialogs, in letters of ASCII.
class IWindowSizes {
public:
    /// False for a dialog that has no size yet.
    virtual bool Load(const std::string& dialog, VWindowSize& size) = 0;
    virtual void Save(const std::string& dialog, const VWindowSize& size) = 0;

protected:
    ~IWindowSizes() = default;
};

/// What the view can't know by itself. Everything may be null, and is borrowed.
struct QtViewOptions {
    IWindowSizes* sizes = nullptr; ///< null: sizes last as long as the process
    void (*showHelp)(const VUnicodeString& topic) = nullptr;
    bool (*createCertificate)(void* parent, int kind, VUnicodeString& path) = nullptr;
    bool (*setUpPrinter)(void* parent, VPrinterChoice& printer) = nullptr;
};

/// Makes Qt the view of all dialogs. Needs the QApplication; on its thread. Once, until it is removed. The parent
/// windows that dialogs take are QWidgets, and a VImageList is a QList<QIcon>.
OSTRAND_QT_API IDialogServices& InstallQtView(const QtViewOptions& options = {});
/// Before the QApplication goes. No dialog may be running.
OSTRAND_QT_API void RemoveQtView();

} // namespace ostrand
