// Texts of foreign files: encodings that they come in, and short citations of what they hold.
#pragma once

#include "core/strings.h"

#include <string>

namespace ostrand {

inline constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";

/// UTF-8 where the bytes are that, else the 8-bit code page.
VUnicodeString DecodeNarrow(std::string_view bytes);
/// UTF-16 little-endian with its mark; else DecodeNarrow behind a mark of UTF-8. False for UTF-16 that ends in the
/// middle of a unit; all before is then in `out`.
bool DecodeFile(std::string_view bytes, VUnicodeString& out);

/// At most `most` characters for a message, controls as "?".
VUnicodeString Cited(std::u16string_view text, size_t most = 60);
inline VUnicodeString Cited(std::string_view bytes, size_t most = 60)
{
    return Cited(DecodeNarrow(bytes.substr(0, 4 * most)), most);
}
/// The last part of a path, without its extension; a leading dot is none.
std::u16string_view BaseName(std::u16string_view fileName);
/// Without blanks, tabs and line ends at both ends.
std::string_view Trim(std::string_view text);
/// Same texts but for the case of ASCII letters.
bool EqualAscii(std::string_view a, std::string_view b);

} // namespace ostrand
