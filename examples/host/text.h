// Texts of the command line: in, and out when something is wrong.
#pragma once

#include "core/strings.h"

#include <iostream>
#include <string>

namespace host {

inline ostrand::VUnicodeString Text(const std::string& utf8)
{
    ostrand::VUnicodeString text;
    ostrand::FromUtf8(utf8, text);
    return text;
}

/// Tells what went wrong; the answer is the program's exit code.
inline int Fail(const std::string& message)
{
    std::cerr << "ostrand-options: " << message << '\n';
    return 1;
}

} // namespace host
