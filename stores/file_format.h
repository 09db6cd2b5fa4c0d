// The text form of one key's values, and how single lines, names and values are read; file_render.h writes them. Made
// to be read, edited, compared and merged by people.
//
//   file    = [ byte-order mark ] { line }
//   line    = ( blanks | comment | value | broken ) ( LF | CR LF )      the last may lack its end, or the LF
//   comment = [ blanks ] ( ";" | "#" ) anything
//   value   = [ blanks ] name [ blanks ] "=" [ blanks ] ( dword | text | list | block | other ) [ blanks ]
//   name    = bare | text      bare: no "=", no quote, no control but tab, no blank at either end,
//                              doesn't begin with ";", "#", "[" or U+FEFF, isn't empty
//   dword   = digits | ( "0x" | "0X" ) hexdigits                      at most 32 bits
//   text    = '"' { character | escape } '"'                            no raw control but tab
//   escape  = "\" ( '"' | "\" | "n" | "r" | "t" | "u" four hexdigits )  "\u" stands for any UTF-16 unit
//   list    = "[" [ text { "," text } ] "]"                             blanks anywhere between
//   block   = "hex:" { two hexdigits }
//   other   = tag ":" { anything but controls }                         kinds of later versions; tag: letters, digits
//
// Blanks are spaces and tabs. Bytes are UTF-8. A broken line is any other; it is kept and reads as missing.
#pragma once

#include "core/array.h"
#include "core/strings.h"
#include "profile/backend.h"
#include "stores/byte_words.h"

#include <optional>
#include <string>
#include <string_view>

namespace ostrand {

inline std::string_view SkipByteOrderMark(std::string_view text)
{
    constexpr std::string_view kMark = "\xEF\xBB\xBF";
    return text.starts_with(kMark) ? text.substr(kMark.size()) : text;
}

/// What a reader found where it looked for a value of its kind.
enum class ReadOutcome { Good, OtherKind, Broken };

/// At most eight decimal digits with a line feed behind them, without a loop: most numbers are of that kind.
inline bool TakeShortDword(std::string_view from, unsigned& out)
{
    if (from.size() < 9)
        return false;
    const uint64_t numbers = LoadWord(from.data()) ^ '0' * kEachByte;
    const uint64_t others = (((numbers & ~kEachTop) + (0x80 - 10) * kEachByte) | numbers) & kEachTop;
    const size_t size = others == 0 ? 8 : FirstOf(others);
    if (size == 0 || from[size] != '\n')
        return false;
    // The digits move up, with zeros below, before them; then neighbours become numbers of two, four, eight digits.
    uint64_t n = numbers << 8 * (8 - size);
    n = n * 10 + (n >> 8);
    n = ((n & 0x000000FF000000FF) * 0x000F424000000064 + ((n >> 16) & 0x000000FF000000FF) * 0x0000271000000001) >> 32;
    out = static_cast<unsigned>(n);
    return true;
}

// Readers take the text from the value's first byte on; it may go on behind the value's line. `out` is untouched unless
// the outcome is Good.
ReadOutcome ParseAnyDword(std::string_view from, unsigned& out);
inline ReadOutcome ParseDword(std::string_view from, unsigned& out)
{
    return TakeShortDword(from, out) ? ReadOutcome::Good : ParseAnyDword(from, out);
}
ReadOutcome ParseText(std::string_view from, VUnicodeString& out);
ReadOutcome ParseList(std::string_view from, VStringArray& out);
/// `digits`: the pairs of a valid block.
ReadOutcome ParseBlock(std::string_view from, std::string_view& digits);
/// Bytes of the pairs that ParseBlock found.
void DecodeBlock(std::string_view digits, void* bytes);

/// A text in quotes at the front, whatever follows it. Bytes taken, 0 for none.
size_t TakeQuoted(std::string_view from, VUnicodeString& out);
/// The same without a look at the text, which may be broken, or even go on in the next line.
size_t SizeOfQuoted(std::string_view from);
/// Bytes of a text that don't stand for themselves, one UTF-16 unit each. DEL isn't among those that do, either: it is
/// written as an escape.
inline uint64_t TestSpecial(uint64_t word)
{
    return TestNonAscii(word | (word + kEachByte)) | TestBelow(word, 0x20) | TestEqual(word, '\\') |
           TestEqual(word, '"');
}
/// Bytes of a text in quotes that stands for itself: ASCII without controls and escapes, so each byte is one UTF-16
/// unit. 0 for any other, and for some near the end of `from`.
inline size_t SizeOfPlain(std::string_view from)
{
    if (!from.starts_with('"'))
        return 0;
    const char* const end = from.data() + from.size();
    for (const char* p = from.data() + 1; end - p >= 8; p += 8)
        if (const uint64_t specials = TestSpecial(LoadWord(p)); specials != 0) {
            p += FirstOf(specials);
            return *p == '"' ? static_cast<size_t>(p + 1 - from.data()) : 0;
        }
    return 0;
}

/// The kind of a whole value; none for a broken one.
std::optional<VProfileValueType> KindOfValue(std::string_view from);
/// The value's own bytes: up to the line's end or the blanks before it.
std::string_view ValueText(std::string_view from);

/// The two sides of a value's line.
struct ValueParts {
    std::string_view name;  ///< as it is spelled, quotes included
    std::string_view value; ///< from its first byte to the end of what was given
};

/// Cuts the line at the front of `from`; false where it has no name with "=". Says nothing about the value, and doesn't
/// look for the end of the line, so `from` has to end there unless the line is known to be good.
bool CutLine(std::string_view from, ValueParts& parts);
/// A name as spelled in a line; false for bad escapes, controls or bytes that are no UTF-8.
bool DecodeName(std::string_view spelled, std::u16string& name);

/// The name of a line.
struct LineName {
    std::string_view spelled; ///< empty for a line without one
    bool isComplex = false;   ///< has quotes or isn't plain ASCII
    std::u16string decoded;   ///< what a complex one stands for
};
/// `line` comes without its line feed.
LineName NameOfLine(std::string_view line);

} // namespace ostrand
