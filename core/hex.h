// Bytes as hexadecimal digits, two a byte, the higher half first.
#pragma once

#include "core/secret_bytes.h"
#include "core/strings.h"

#include <span>
#include <string_view>

namespace ostrand {

enum class VHexCase { Lower, Upper };

/// The digits of the bytes behind a prefix.
VUnicodeString HexText(std::u16string_view prefix, std::span<const uint8_t> bytes, VHexCase digits = VHexCase::Lower);

/// Digits of either case. A last lone digit is the high half of a byte, and any other character counts as 0; then the
/// answer is false.
bool ReadHex(std::u16string_view digits, VSecretBytes& bytes);

} // namespace ostrand
