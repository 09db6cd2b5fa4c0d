// Key map files, "*.key": the text form in which maps are exchanged.
//
//   file      = { line }                         in one of the encodings of core/text_encoding.h
//   line      = ";" text | "" | { blank } modifiers blank { blank } key blank action
//   modifiers = letters of N E C S A, each once at most, in any order and case; N says nothing
//   key       = number | virtual-key name        in any case; keymap/virtual_keys.h
//   action    = { blank } ( quote text quote     send; up to the last quote of the line, inner ones are kept
//                         | "RUN" ... "(" quote text quote ")"      from the first (" to the first "), the rest is
//                         | "LAUNCH" ... "(" quote text quote ")"   ignored
//                         | function [ blank text ] )               by exact case; keymap/function_names.h
//   blank     = " " | tab
//
// Backslashes mean nothing here, and nothing escapes a quote. A bad line costs its own binding alone; a bad modifier or
// a missing closing quote not even that: the modifiers that were recognised count, and the string is empty.
#pragma once

#include "core/text_file.h"
#include "keymap/keymap.h"

#include <string>
#include <vector>

namespace ostrand {

/// The error that ends the loading of a map.
inline constexpr size_t kKeymapErrorLimit = 3;
/// For who checks a whole file and wants to hear of everything: more than anybody reads.
inline constexpr size_t kKeymapCheckErrorLimit = 1000;

struct KeymapFileError {
    unsigned line; ///< from 1; comments and empty lines count
    VUnicodeString text;
};

/// Reads one file into any map, a profile's among them. The map must outlive the reader.
class OSTRAND_API KeymapFileReader {
public:
    /// No line begins any more once there are `errorLimit` errors; a line can bring several.
    KeymapFileReader(IKeymap& keymap, size_t errorLimit) : m_keymap(keymap), m_errorLimit(errorLimit) {}

    /// The path itself, else the same below "keymaps" beside the running executable. The code of the second failure.
    [[nodiscard]] unsigned Open(std::u16string_view path);
    /// Sets the bindings of all good lines, later ones over earlier. False where the file wasn't read to its end: too
    /// many errors, a failure of the system, or a line or file of a size that no key map has. The reason is the last
    /// error.
    [[nodiscard]] bool Read();

    const std::vector<KeymapFileError>& Errors() const { return m_errors; }
    /// Their texts, parted by line feeds.
    VUnicodeString AllErrors() const;
    bool CommentSeen() const { return m_commentSeen; }

private:
    void ReadLine(std::u16string_view line);
    void ReadAction(std::u16string_view action, unsigned keyIndex);
    unsigned ReadModifiers(std::u16string_view field);
    void ReadCommand(std::u16string_view action, unsigned keyIndex, unsigned code);
    std::u16string& InCapitals(std::u16string_view field);
    void Bind(unsigned keyIndex, unsigned code, std::u16string_view text);
    template <class... Values>
    void Report(std::u16string_view format, const Values&... values);

    IKeymap& m_keymap;
    size_t m_errorLimit;
    VTextFile m_file;
    unsigned m_line = 0;
    bool m_commentSeen = false;
    std::u16string m_capitals; // of the field in hand; one buffer for all lines
    std::vector<KeymapFileError> m_errors;
};

/// Writes all bindings with a code, one line each, by ascending key index. The code of the system's failure, 0 for
/// none. A line end within a string, which no line can hold, is written as the octal escape that sends it. What else a
/// file can't hold is written nevertheless: a RUN or LAUNCH string with ") in it is read again only up to there.
[[nodiscard]] OSTRAND_API unsigned WriteKeymapFile(const KeyBindings& bindings, std::u16string_view path,
                                                   VTextEncoding encoding);

} // namespace ostrand
