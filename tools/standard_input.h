// What a command reads from its standard input.
#pragma once

#include "core/strings.h"
#include "tools/request.h"

namespace ostrand::tool {

/// The whole input as one text without the line end that a shell's echo puts last. Failed after one line on stderr: not
/// UTF-8, or above 1 MiB.
Exit ReadInput(VUnicodeString& text);

/// A secret as it was given for the field of this name: "-" is replaced by what standard input holds, the empty word
/// stays. Usage, after one line on stderr that asks for `how` instead, for any other.
Exit TakeSecretWord(const std::string& field, const std::string& how, std::string& word);

} // namespace ostrand::tool
