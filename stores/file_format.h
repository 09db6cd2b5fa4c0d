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

#include <optional>
#include <string>
#include <string_view>

namespace ostrand {

/// What a reader found where it looked for a value of its kind.
enum class ReadOutcome { Good, OtherKind, Broken };

// Readers take the text from the value's first byte on; it may go on behind the value's line. `out` is untouched unless
// the outcome is Good.
ReadOutcome ParseDword(std::string_view from, unsigned& out);
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

} // namespace ostrand
