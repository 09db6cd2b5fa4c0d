#include "platform/qt/keys.h"

#include "keymap/us_keyboard.h"

#include <algorithm>
#include <array>

namespace ostrand::qt {

namespace {

struct NamedKey {
    Qt::Key key;
    uint8_t virtualKey;
};
constexpr std::array kNamedKeys = {
    NamedKey{Qt::Key_Backspace, 0x08}, NamedKey{Qt::Key_Tab, kKeyTab},       NamedKey{Qt::Key_Backtab, kKeyTab},
    NamedKey{Qt::Key_Return, 0x0D},    NamedKey{Qt::Key_Enter, 0x0D},        NamedKey{Qt::Key_Shift, 0x10},
    NamedKey{Qt::Key_Control, 0x11},   NamedKey{Qt::Key_Alt, 0x12},          NamedKey{Qt::Key_Pause, 0x13},
    NamedKey{Qt::Key_CapsLock, 0x14},  NamedKey{Qt::Key_Escape, kKeyEscape}, NamedKey{Qt::Key_Space, 0x20},
    NamedKey{Qt::Key_PageUp, 0x21},    NamedKey{Qt::Key_PageDown, 0x22},     NamedKey{Qt::Key_End, 0x23},
    NamedKey{Qt::Key_Home, 0x24},      NamedKey{Qt::Key_Left, 0x25},         NamedKey{Qt::Key_Up, 0x26},
    NamedKey{Qt::Key_Right, 0x27},     NamedKey{Qt::Key_Down, 0x28},         NamedKey{Qt::Key_Print, 0x2C},
    NamedKey{Qt::Key_Insert, 0x2D},    NamedKey{Qt::Key_Delete, 0x2E},       NamedKey{Qt::Key_Menu, 0x5D},
    NamedKey{Qt::Key_NumLock, 0x90},   NamedKey{Qt::Key_ScrollLock, 0x91},
};

struct ExtendedKey {
    uint8_t kernel;
    uint8_t code;
};
constexpr std::array kExtendedKeys = {
    ExtendedKey{69, 69}, // Num Lock; Pause is 69 and not extended
    ExtendedKey{96, 28},  ExtendedKey{97, 29},  ExtendedKey{98, 53},  ExtendedKey{99, 55},  ExtendedKey{100, 56},
    ExtendedKey{102, 71}, ExtendedKey{103, 72}, ExtendedKey{104, 73}, ExtendedKey{105, 75}, ExtendedKey{106, 77},
    ExtendedKey{107, 79}, ExtendedKey{108, 80}, ExtendedKey{109, 81}, ExtendedKey{110, 82}, ExtendedKey{111, 83},
    ExtendedKey{125, 91}, ExtendedKey{126, 92}, ExtendedKey{127, 93},
};
constexpr unsigned kKernelOffset = 8;
constexpr unsigned kKernelPause = 119;
constexpr unsigned kLastPlainCode = 88;

/// The layout's word where it has one, else the place of the key.
unsigned VirtualKeyOf(const QKeyEvent& event, const ScanCode& scan)
{
    const int key = event.key();
    if ((key >= Qt::Key_A && key <= Qt::Key_Z) || (key >= Qt::Key_0 && key <= Qt::Key_9))
        return static_cast<unsigned>(key);
    if (key >= Qt::Key_F1 && key <= Qt::Key_F24)
        return kKeyF1 + static_cast<unsigned>(key - Qt::Key_F1);
    const auto* const named = std::ranges::find(kNamedKeys, static_cast<Qt::Key>(key), &NamedKey::key);
    return named != kNamedKeys.end() ? named->virtualKey : UsVirtualKey(scan.code, scan.isExtended);
}

} // namespace

ScanCode ToScanCode(unsigned native)
{
    const unsigned kernel = native - kKernelOffset;
    if (native <= kKernelOffset)
        return {};
    const auto* const extended = std::ranges::find(kExtendedKeys, kernel, &ExtendedKey::kernel);
    if (extended != kExtendedKeys.end())
        return {extended->code, true};
    if (kernel == kKernelPause)
        return {69, false};
    return kernel <= kLastPlainCode ? ScanCode{kernel, false} : ScanCode{};
}

VKeyEvent ToKeyEvent(const QKeyEvent& event)
{
    const ScanCode scan = ToScanCode(event.nativeScanCode());
    VKeyEvent key;
    if (event.type() == QEvent::KeyRelease)
        key.kind = VKeyEvent::Kind::Up;
    else if (HoldsAlt(event))
        key.kind = VKeyEvent::Kind::SystemDown;
    key.virtualKey = VirtualKeyOf(event, scan);
    key.scanCode = scan.code;
    key.isExtended = scan.isExtended;
    key.isShift = (event.modifiers() & Qt::ShiftModifier) != 0;
    return key;
}

} // namespace ostrand::qt
