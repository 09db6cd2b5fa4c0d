// The message format of the library: templates with numbered inserts, "%1", "%1!d!", "%1!02x!".
//
//   template = { text | "%" ( digits [ "!" spec "!" ] | "%" | "n" | "0" | "r" | "t" | "b" | "." | "!" ) }
//   digits   = "1" .. "99"
//   spec     = [ flags ] [ width ] [ "." precision ] [ "l" ] ( "d" | "i" | "u" | "x" | "X" | "o" | "c" | "s" | "hs" )
//
// "%0" ends the template; "%n" and "%r" are line ends, "%t" a tab, "%b" a blank. An insert without "!spec!" is a
// string.
#pragma once

#include "core/strings.h"
#include "platform/export.h"

#include <concepts>
#include <cstdint>
#include <span>
#include <string_view>

namespace ostrand {

/// A value for an insert: a borrowed 16-bit text or a whole number. Signed numbers are widened with their sign.
class VFormatArgument {
public:
    enum class Kind { Text, Number };

    VFormatArgument(std::u16string_view text) : m_text(text) {}          // NOLINT(google-explicit-constructor)
    VFormatArgument(const char16_t* text) : m_text(text ? text : u"") {} // NOLINT(google-explicit-constructor)
    VFormatArgument(const VUnicodeString& text) : m_text(text.View()) {} // NOLINT(google-explicit-constructor)
    template <std::integral N>
    VFormatArgument(N number) // NOLINT(google-explicit-constructor)
        : m_kind(Kind::Number),
          m_bytes(sizeof(N)),
          m_number(static_cast<uint64_t>(static_cast<int64_t>(number)))
    {
    }

    Kind GetKind() const { return m_kind; }
    std::u16string_view GetText() const { return m_text; }
    uint64_t GetNumber() const { return m_number; }
    /// Size of the type that the number came in; 'd' of a 4-byte number looks at its low 32 bits.
    unsigned GetBytes() const { return m_bytes; }

private:
    Kind m_kind = Kind::Text;
    unsigned m_bytes = 0;
    std::u16string_view m_text;
    uint64_t m_number = 0;
};

enum class VFormatLines { Keep, AsBlanks };

/// Strict form. 0, or kErrorInvalidParameter when an insert has no argument, has one of the wrong kind, or is
/// malformed; `out` is then untouched. With VFormatLines::AsBlanks each line break of the template becomes one blank.
OSTRAND_API unsigned FormatMessageText(std::u16string_view format, std::span<const VFormatArgument> arguments,
                                       VFormatLines lines, VUnicodeString& out);

/// The template as text: inserts stay as typed, the other escapes work. Never fails.
OSTRAND_API VUnicodeString FormatIgnoringInserts(std::u16string_view format, VFormatLines lines = VFormatLines::Keep);

/// The strict form, or the template with its inserts ignored where the arguments don't fit.
OSTRAND_API VUnicodeString FormatList(std::u16string_view format, std::span<const VFormatArgument> arguments);

/// `Format(u"%1!04d!:%2!02d!", year, month)`
template <class... Arguments>
VUnicodeString Format(std::u16string_view format, const Arguments&... arguments)
{
    if constexpr (sizeof...(arguments) == 0) {
        return FormatList(format, {});
    } else {
        const VFormatArgument list[] = {VFormatArgument(arguments)...};
        return FormatList(format, list);
    }
}

} // namespace ostrand
