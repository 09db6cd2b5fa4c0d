// Importers seen as tests see them: bytes in, schemes or one line of fault out.
#pragma once

#include "imports/scheme_import.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace ostrand::test {

/// Red, green and blue as they are written in most files.
constexpr uint32_t Rgb(uint32_t color) { return (color & 0xFF) << 16 | (color & 0xFF00) | color >> 16; }

/// "line 3: text", or the text alone where there is no line.
inline std::string TextOf(const ImportFault& fault)
{
    const std::string text = ToUtf8(fault.text);
    return fault.line == 0 ? text : "line " + std::to_string(fault.line) + ": " + text;
}

struct Imported : SchemeImport {
    std::string error; ///< empty where there are schemes
    std::vector<std::string> noteTexts;
};

template <class Read>
Imported Import(Read read, std::string_view bytes, std::u16string_view name = u"My theme.txt")
{
    Imported imported;
    ImportFault error;
    if (!read(SchemeFile{bytes, name}, imported, error))
        imported.error = TextOf(error);
    for (const ImportFault& note : imported.notes)
        imported.noteTexts.push_back(TextOf(note));
    return imported;
}

inline std::string ReadTheme(const std::string& name)
{
    std::ifstream in(std::filesystem::path(OSTRAND_TEST_DATA) / "schemes" / name, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

/// UTF-16 with its mark.
inline std::string AsUtf16(std::string_view utf8)
{
    std::string bytes = "\xFF\xFE";
    VUnicodeString text;
    FromUtf8(utf8, text);
    for (const char16_t c : text.View()) {
        bytes.push_back(static_cast<char>(c & 0xFF));
        bytes.push_back(static_cast<char>(c >> 8));
    }
    return bytes;
}

inline std::string Replaced(std::string text, std::string_view what, std::string_view with)
{
    for (size_t at = 0; (at = text.find(what, at)) != std::string::npos; at += with.size())
        text.replace(at, what.size(), with);
    return text;
}

} // namespace ostrand::test
