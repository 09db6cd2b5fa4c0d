// A key as a dialog sees it before any control does.
#pragma once

#include <cstdint>

namespace ostrand {

// Virtual keys that dialogs act on themselves.
inline constexpr unsigned kKeyTab = 0x09;
inline constexpr unsigned kKeyReturn = 0x0D;
inline constexpr unsigned kKeyDown = 0x28;
inline constexpr unsigned kKeyEscape = 0x1B;
inline constexpr unsigned kKeyF1 = 0x70;

struct VKeyEvent {
    enum class Kind : uint8_t { Down, SystemDown, Up }; ///< system: with Alt held
    Kind kind = Kind::Down;
    unsigned virtualKey = 0;
    unsigned scanCode = 0; ///< set 1
    bool isExtended = false;
    bool isShift = false;
};

} // namespace ostrand
