// The 12 bits that name a key with its modifiers: the index of a binding in a key map.
#pragma once

namespace ostrand {

inline constexpr unsigned kKeyCount = 4096;

/// Bits 0 to 7: the virtual-key code.
inline constexpr unsigned kVirtualKeyMask = 0x0FF;
/// The key lies outside the main block.
inline constexpr unsigned kExtendedKey = 0x100;
inline constexpr unsigned kControlHeld = 0x200;
inline constexpr unsigned kShiftHeld = 0x400;
inline constexpr unsigned kAltHeld = 0x800;

} // namespace ostrand
