// QtServices: all services of dialogs through Qt.
#pragma once

#include "platform/qt/qt_view.h"

#include <map>

namespace ostrand::qt {

/// Sizes for as long as the process.
class RememberedSizes final : public IWindowSizes {
public:
    bool Load(const std::string& dialog, VWindowSize& size) override;
    void Save(const std::string& dialog, const VWindowSize& size) override { m_sizes[dialog] = size; }

private:
    std::map<std::string, VWindowSize> m_sizes;
};

class QtServices final : public IDialogServices {
public:
    explicit QtServices(const QtViewOptions& options) : m_options(options) {}

    int ShowMessage(void* parent, const VMessage& message) override;
    void Report(int kind, IReportMessageParams& report) override;
    void RunModal(VDialog& dialog) override;
    bool PickFolder(void* parent, const VUnicodeString& title, VUnicodeString& path) override;
    bool PickFile(void* parent, VFileRequest& request) override;
    bool PickColor(void* parent, VColorRequest& request) override;
    uint32_t NearestColor(uint32_t color) override { return color; } // displays show all of them
    uint32_t SystemColor(VSystemColor which) override;
    bool PickFont(void* parent, VFontRequest& request) override;
    bool SetUpPrinter(void* parent, VPrinterChoice& printer) override;
    bool PickCertificate(void* parent, VUnicodeString& path) override;
    bool CanCreateCertificate() override { return m_options.createCertificate != nullptr; }
    bool CreateCertificate(void* parent, int kind, VUnicodeString& path) override;
    bool PickSessions(const VUnicodeString& title, VArray<VUnicodeString>& paths) override;
    VImageList* SessionImages() override;
    unsigned VirtualKeyOf(unsigned scanCode, bool isExtended) override;
    VUnicodeString KeyText(unsigned virtualKey, bool shift, bool control) override;
    bool IsKeyDown(VKeyModifier modifier) override;
    void PlaySound(const VUnicodeString& path) override;
    bool OpenAddress(const VUnicodeString& address) override;
    bool StartProgram(const VUnicodeString& path, const VUnicodeString& arguments) override;
    unsigned CountIcons(const VUnicodeString& path) override;
    VIconHandle LoadIcon(const VUnicodeString& path, unsigned index) override;
    void ReleaseIcon(VIconHandle icon) override;
    void SetWaiting(bool isWaiting) override;
    void ShowHelp(const VUnicodeString& topic) override;

private:
    const QtViewOptions m_options;
    RememberedSizes m_ownSizes;
    bool m_isWaiting = false;
};

} // namespace ostrand::qt
