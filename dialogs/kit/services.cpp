#include "dialogs/kit/services.h"

#include "core/trace.h"
#include "dialogs/kit/dialog.h"

namespace ostrand {

namespace {

IDialogServices* g_services = nullptr;

/// Nobody is there to see or to answer.
class NoDesktop final : public IDialogServices {
public:
    int ShowMessage(void*, const VMessage& message) override
    {
        VTrace(u"%1\n", message.text);
        return message.buttons == VButtons::Ok      ? kResultOk
               : message.buttons == VButtons::YesNo ? kResultNo
                                                    : kResultCancel;
    }
    void Report(int kind, IReportMessageParams& report) override { VReportMessage(kind, report); }
    void RunModal(VDialog& dialog) override { dialog.EndDialog(kResultCancel); }
    bool PickFolder(void*, const VUnicodeString&, VUnicodeString&) override { return false; }
    bool PickFile(void*, VFileRequest&) override { return false; }
    bool PickColor(void*, VColorRequest&) override { return false; }
    uint32_t NearestColor(uint32_t color) override { return color; }
    uint32_t SystemColor(VSystemColor which) override { return which == VSystemColor::Window ? 0xFFFFFF : 0; }
    bool PickFont(void*, VFontRequest&) override { return false; }
    bool SetUpPrinter(void*, VPrinterChoice&) override { return false; }
    bool PickCertificate(void*, VUnicodeString&) override { return false; }
    bool CanCreateCertificate() override { return false; }
    bool CreateCertificate(void*, int, VUnicodeString&) override { return false; }
    bool PickSessions(const VUnicodeString&, VArray<VUnicodeString>&) override { return false; }
    VImageList* SessionImages() override { return nullptr; }
    unsigned VirtualKeyOf(unsigned, bool) override { return 0; }
    VUnicodeString KeyText(unsigned, bool, bool) override { return {}; }
    bool IsKeyDown(VKeyModifier) override { return false; }
    void PlaySound(const VUnicodeString&) override {}
    bool OpenAddress(const VUnicodeString&) override { return false; }
    bool StartProgram(const VUnicodeString&, const VUnicodeString&) override { return false; }
    unsigned CountIcons(const VUnicodeString&) override { return 0; }
    VIconHandle LoadIcon(const VUnicodeString&, unsigned) override { return 0; }
    void ReleaseIcon(VIconHandle) override {}
    void SetWaiting(bool) override {}
    void ShowHelp(const VUnicodeString&) override {}
};

} // namespace

void SetDialogServices(IDialogServices* services) { g_services = services; }

IDialogServices& DialogServices()
{
    static NoDesktop& none = *new NoDesktop;
    return g_services ? *g_services : none;
}

} // namespace ostrand
