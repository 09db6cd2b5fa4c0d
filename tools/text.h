// Texts on their way between the library's 16-bit strings, arguments, JSON and the terminal.
#pragma once

#include "core/strings.h"

#include <string>
#include <string_view>

namespace ostrand::tool {

/// UTF-8 in which a lone surrogate stands as the three bytes of its number, so that nothing is lost. The tool's own
/// texts are all of this kind; what goes out passes one of the functions below.
std::string Lossless(std::u16string_view text);

/// For a terminal or a pipe: controls but tab and line feed, and lone surrogates, as "\u001B".
std::string Plain(std::string_view lossless);

/// In double quotes and on one line; a JSON string, and a text of a store's file.
std::string Quoted(std::string_view lossless);

/// What a person typed or stored, for a message: in single quotes, on one line, cut when it is very long. Takes any
/// bytes.
std::string Cited(std::string_view typed);

} // namespace ostrand::tool
