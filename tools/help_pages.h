// Man page and shell completion, made from the same tree of commands as --help.
#pragma once

#include <CLI/App.hpp>

#include <string>

namespace ostrand::tool {

/// In roff, for section 1.
std::string ManPage(const CLI::App& app);
/// For bash. Commands and options are fixed in it; names of values and keys come from the installed tool.
std::string BashCompletion(const CLI::App& app);

} // namespace ostrand::tool
