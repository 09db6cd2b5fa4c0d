// Words of a command line as the parser lets them through, and the options that take them.
#pragma once

#include "tools/request.h"

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>

#include <optional>
#include <string>
#include <vector>

namespace ostrand::tool {

/// The arguments without the program's name. What the parser would take for more than text is marked; see Unmarked.
std::vector<std::string> MarkedWords(int argc, const char* const* argv);
/// A word as it was typed.
std::string Unmarked(const std::string& word);
/// A text of the parser without its marks.
std::string WithoutMarks(std::string text);

/// An option or, without dashes, a positional word.
CLI::Option* AddWord(CLI::App& app, const char* name, std::string& target, const char* what, bool isRequired);
/// An option whose absence counts.
void AddText(CLI::App& app, const char* name, std::optional<std::string>& target, const char* what,
             const char* optionText);
/// All further words, into the request's values.
CLI::Option* AddWords(CLI::App& app, const char* name, Request& request, const char* what);

/// The name of a value, and for AddNameAndValues the words that it is set from.
void AddName(CLI::App& app, Request& request);
void AddNameAndValues(CLI::App& app, Request& request);

} // namespace ostrand::tool
