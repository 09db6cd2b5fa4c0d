// Texts of secrets to bytes and back.
#pragma once

#include "core/secret_bytes.h"
#include "core/strings.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace ostrand {

/// How the characters of a stored text stand in its bytes; the number is the bytes of one. The wider ones are
/// little-endian, and of 32 bits the lower 16 count.
enum class VCharacterWidth : size_t { CodePage = 1, Bits16 = 2, Bits32 = 4 };

/// The characters up to the first zero, marked sensitive. Bytes of a last incomplete character don't count.
VUnicodeString SecretText(std::span<const uint8_t> bytes, VCharacterWidth width);

/// 16-bit characters with a zero behind them; room for `extra` bytes more is reserved.
VSecretBytes SecretBytes(std::u16string_view text, size_t extra = 0);

} // namespace ostrand
