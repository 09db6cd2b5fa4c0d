// JSON text of a tree whose strings may hold lone surrogates.
#pragma once

#include <nlohmann/json.hpp>

#include <string>

namespace ostrand::tool {

/// Members keep their order.
using Json = nlohmann::ordered_json;

/// Indented by two blanks, innermost arrays and objects on one line where they are short; ends with a line feed. The
/// tree's strings come from `Lossless`; nlohmann's own writer refuses what they may hold, so they are escaped here.
std::string WriteJson(const Json& tree);

} // namespace ostrand::tool
