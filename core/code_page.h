// The one 8-bit code page of the library, Windows-1252: texts without a mark, narrow arguments, old stored forms.
// Table: the "best fit" mapping published for cp1252, where the five unused bytes are controls of the same number.
#pragma once

#include "core/strings.h"

namespace ostrand {

/// Every byte has a character, so this can't fail.
OSTRAND_API VUnicodeString FromCodePage(std::string_view bytes);
/// One byte for each code unit. What the code page lacks becomes "?", never a look-alike.
OSTRAND_API std::string ToCodePage(std::u16string_view text);

/// The character of one byte, and the byte of one character.
OSTRAND_API char16_t FromCodePage(unsigned char byte);
OSTRAND_API unsigned char ToCodePage(char16_t character);

} // namespace ostrand
