// The encoded form of a text: hexadecimal digits of four key bytes, then of the text in the 8-bit code page, each byte
// XOR the key byte of its place. It hides the text from a glance and from nothing else, since the key stands in front.
#pragma once

#include "core/secret_bytes.h"
#include "core/strings.h"

#include <array>
#include <cstdint>
#include <string_view>

namespace ostrand {

using VXorKey = std::array<uint8_t, 4>;

/// With the key given, or one of the C library's `rand`, which the first use in the process seeds with the time. An
/// empty text stays empty. Characters that the code page lacks are lost.
VUnicodeString EncodeXor(std::u16string_view text);
VUnicodeString EncodeXor(std::u16string_view text, const VXorKey& key);

/// The text up to its first zero, marked sensitive. Anything can be decoded: what is no digit counts as 0, a last lone
/// digit is the high half of a byte.
VUnicodeString DecodeXor(std::u16string_view stored);
/// All bytes behind the key.
VSecretBytes DecodeXorBytes(std::u16string_view stored);

} // namespace ostrand
