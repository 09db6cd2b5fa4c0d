// JSON as people write it by hand, with "//" and "/* */" comments and a comma behind the last element.
#pragma once

#include <string>
#include <string_view>

namespace ostrand {

/// The same text as plain JSON: comments and such commas are blanks, line ends stay, so every place in it is the same.
/// What is no JSON otherwise is left for the parser to find.
std::string PlainJson(std::string_view text);

} // namespace ostrand
