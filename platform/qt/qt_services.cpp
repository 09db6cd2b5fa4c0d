#include "platform/qt/qt_services.h"

#include "core/module_state.h"
#include "dialogs/kit/dialog.h"
#include "dialogs/kit/translate.h"
#include "keymap/us_keyboard.h"
#include "platform/qt/choosers.h"
#include "platform/qt/desktop.h"
#include "platform/qt/dialog_window.h"

#include <QApplication>
#include <QPalette>

namespace ostrand::qt {

namespace {

/// Null comes above whatever the user works on.
QWidget* WidgetOf(void* parent) { return parent ? static_cast<QWidget*>(parent) : QApplication::activeWindow(); }

} // namespace

bool RememberedSizes::Load(const std::string& dialog, VWindowSize& size)
{
    const auto found = m_sizes.find(dialog);
    if (found == m_sizes.end())
        return false;
    size = found->second;
    return true;
}

int QtServices::ShowMessage(void* parent, const VMessage& message) { return ShowMessageBox(WidgetOf(parent), message); }

void QtServices::Report(int kind, IReportMessageParams& report) { VReportMessage(kind, report); }

void QtServices::RunModal(VDialog& dialog)
{
    IWindowSizes& sizes = m_options.sizes ? *m_options.sizes : m_ownSizes;
    DialogWindow(dialog, sizes, WidgetOf(dialog.GetParentWindow())).Run();
}

bool QtServices::PickFolder(void* parent, const VUnicodeString& title, VUnicodeString& path)
{
    return ChooseFolder(WidgetOf(parent), title, path);
}

bool QtServices::PickFile(void* parent, VFileRequest& request) { return ChooseFile(WidgetOf(parent), request); }

bool QtServices::PickColor(void* parent, VColorRequest& request) { return ChooseColor(WidgetOf(parent), request); }

uint32_t QtServices::SystemColor(VSystemColor which)
{
    const QPalette palette = QApplication::palette();
    const QColor color = palette.color(which == VSystemColor::Window ? QPalette::Base : QPalette::Text);
    return static_cast<uint32_t>(color.red() | color.green() << 8 | color.blue() << 16);
}

bool QtServices::PickFont(void* parent, VFontRequest& request) { return ChooseFont(WidgetOf(parent), request); }

bool QtServices::SetUpPrinter(void* parent, VPrinterChoice& printer)
{
    return m_options.setUpPrinter && m_options.setUpPrinter(parent, printer);
}

bool QtServices::PickCertificate(void* parent, VUnicodeString& path)
{
    VFileRequest request{
        .title = Translate(u"Select Certificate File"),
        .path = path,
        .extension = {},
        .filter = Translate(u"Certificate Files (*.pem;*.crt;*.cer;*.pfx;*.p12)|*.pem;*.crt;*.cer;*.pfx;*.p12|"
                            u"All Files (*.*)|*.*||")};
    if (!PickFile(parent, request))
        return false;
    path = request.path;
    return true;
}

bool QtServices::CreateCertificate(void* parent, int kind, VUnicodeString& path)
{
    return m_options.createCertificate && m_options.createCertificate(parent, kind, path);
}

bool QtServices::PickSessions(const VUnicodeString& title, VArray<VUnicodeString>& paths)
{
    const VSessionPicker pick = ModuleState().sessionPicker;
    return pick && pick(title.c_str(), paths) == kResultOk;
}

VImageList* QtServices::SessionImages()
{
    const VImageListGetter images = ModuleState().imageListGetter;
    return images ? images() : nullptr;
}

unsigned QtServices::VirtualKeyOf(unsigned scanCode, bool isExtended) { return UsVirtualKey(scanCode, isExtended); }

VUnicodeString QtServices::KeyText(unsigned virtualKey, bool shift, bool control)
{
    return UsKeyText(virtualKey, shift, control);
}

bool QtServices::IsKeyDown(VKeyModifier modifier)
{
    constexpr Qt::KeyboardModifier kModifiers[] = {Qt::ShiftModifier, Qt::ControlModifier, Qt::AltModifier};
    return QGuiApplication::queryKeyboardModifiers().testFlag(kModifiers[static_cast<unsigned>(modifier)]);
}

void QtServices::PlaySound(const VUnicodeString& path) { PlaySoundOf(path); }

bool QtServices::OpenAddress(const VUnicodeString& address) { return OpenAddressOf(address); }

bool QtServices::StartProgram(const VUnicodeString& path, const VUnicodeString& arguments)
{
    return StartProgramOf(path, arguments);
}

unsigned QtServices::CountIcons(const VUnicodeString& path) { return CountIconsOf(path); }

VIconHandle QtServices::LoadIcon(const VUnicodeString& path, unsigned index) { return LoadIconOf(path, index); }

void QtServices::ReleaseIcon(VIconHandle icon) { ReleaseIconOf(icon); }

void QtServices::SetWaiting(bool isWaiting)
{
    if (isWaiting == m_isWaiting)
        return;
    m_isWaiting = isWaiting;
    if (isWaiting)
        QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    else
        QGuiApplication::restoreOverrideCursor();
}

void QtServices::ShowHelp(const VUnicodeString& topic)
{
    if (m_options.showHelp)
        m_options.showHelp(topic);
}

} // namespace ostrand::qt
