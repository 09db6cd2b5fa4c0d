// IDialogServices: everything that dialogs want of a desktop. One for the process; every dialog may be given another.
// Tests give one that follows a script (tests/support/scripted_services.h); a program without windows has none, and
// then every answer is the one that changes least.
#pragma once

#include "core/module_state.h"
#include "dialogs/kit/file_request.h"
#include "dialogs/kit/message.h"
#include "profile/color_values.h"
#include "profile/log_font.h"

#include <vector>

namespace ostrand {

class VDialog;

struct VColorRequest {
    uint32_t color = 0;             ///< 0x00BBGGRR; in: what is shown first
    CustomColors* custom = nullptr; ///< the chooser's own palette, in and out; null: none
};

struct VFontRequest {
    VLogFont font;
    bool isForPrinter = false;
    VUnicodeString printer; ///< whose fonts to offer, of a printer's request
};

/// A printer as the platform describes it: a block with its names, and one with its settings. Empty: the default one.
struct VPrinterChoice {
    std::vector<uint8_t> names;
    std::vector<uint8_t> settings;
};

enum class VSystemColor : uint8_t { WindowText, Window };
enum class VKeyModifier : uint8_t { Shift, Control, Alt };

/// A picture of the desktop's own; 0 for none. What LoadIcon gave, ReleaseIcon takes back.
using VIconHandle = uintptr_t;

/// All on the thread of the windows. What lets the user choose answers false when cancelled, and then leaves its
/// request as it was. `parent` is the toolkit's own window, or null.
class OSTRAND_API IDialogServices {
public:
    virtual ~IDialogServices() = default;

    /// A result code.
    virtual int ShowMessage(void* parent, const VMessage& message) = 0;
    /// To the application's router: kind 0 or 101.
    virtual void Report(int kind, IReportMessageParams& report) = 0;
    /// Shows the dialog, calls its RunPosted when it is on the screen and after each event, and comes back when it no
    /// longer runs. The dialog has been initialised; its end sets its result.
    virtual void RunModal(VDialog& dialog) = 0;

    virtual bool PickFolder(void* parent, const VUnicodeString& title, VUnicodeString& path) = 0;
    virtual bool PickFile(void* parent, VFileRequest& request) = 0;

    virtual bool PickColor(void* parent, VColorRequest& request) = 0;
    /// What the display makes of a colour.
    virtual uint32_t NearestColor(uint32_t color) = 0;
    virtual uint32_t SystemColor(VSystemColor which) = 0;
    virtual bool PickFont(void* parent, VFontRequest& request) = 0;
    virtual bool SetUpPrinter(void* parent, VPrinterChoice& printer) = 0;

    virtual bool PickCertificate(void* parent, VUnicodeString& path) = 0;
    virtual bool CanCreateCertificate() = 0;
    virtual bool CreateCertificate(void* parent, int kind, VUnicodeString& path) = 0;

    virtual bool PickSessions(const VUnicodeString& title, VArray<VUnicodeString>& paths) = 0;
    virtual VImageList* SessionImages() = 0;

    /// 0 for a key that the layout lacks.
    virtual unsigned VirtualKeyOf(unsigned scanCode, bool isExtended) = 0;
    /// The text that a key gives with these modifiers; empty for none.
    virtual VUnicodeString KeyText(unsigned virtualKey, bool shift, bool control) = 0;
    virtual bool IsKeyDown(VKeyModifier modifier) = 0;

    /// Returns at once; a file that can't be played beeps.
    virtual void PlaySound(const VUnicodeString& path) = 0;
    /// False where the desktop has nothing to open it with.
    virtual bool OpenAddress(const VUnicodeString& address) = 0;
    virtual bool StartProgram(const VUnicodeString& path, const VUnicodeString& arguments) = 0;

    /// Pictures in the file; 0 for one that can't be read.
    virtual unsigned CountIcons(const VUnicodeString& path) = 0;
    virtual VIconHandle LoadIcon(const VUnicodeString& path, unsigned index) = 0;
    virtual void ReleaseIcon(VIconHandle icon) = 0;

    /// While true, the pointer tells that the program is busy.
    virtual void SetWaiting(bool isWaiting) = 0;
    /// Shows help on what the application calls `topic`.
    virtual void ShowHelp(const VUnicodeString& topic) = 0;
};

/// Borrowed; null removes it. Set at start-up, on the main thread.
OSTRAND_API void SetDialogServices(IDialogServices* services);
/// The installed services, or those of a program without windows.
OSTRAND_API IDialogServices& DialogServices();

} // namespace ostrand
