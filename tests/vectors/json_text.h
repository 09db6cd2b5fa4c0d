// JSON documents of known answers: reading them, lone surrogates and all; texts, bytes and lists between JSON and the
// library; and whether a result meets an expectation.
#pragma once

#include "core/array.h"
#include "core/strings.h"
#include "tests/vectors/topics.h"

#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace ostrand::vectors {

/// Pieces are joined: wherever a list holds nothing but {"text", "times"} or {"hex", "times"}, the text stands instead.
/// Throws for a file that can't be read or is no JSON. A lone surrogate, which a JSON library refuses, may stand in
/// it as an escape; ToText gives it back.
Json ReadDocument(const std::string& path);

VUnicodeString ToText(const Json& text);
Json FromText(std::u16string_view text);
VStringArray ToList(const Json& list);
Json FromList(const VStringArray& list);
std::vector<uint8_t> ToBytes(const Json& hex);
Json FromBytes(std::span<const uint8_t> bytes);
/// A number given as itself, cut to 32 bits where it is wider.
uint32_t ToNumber(const Json& number);

/// Every fact that `expected` names must be told by `got`, which may tell more. A "store" is compared as a whole.
bool Meets(const Json& expected, const Json& got);

/// "unknown step 'x'" and its like.
[[noreturn]] void Unknown(const char* what, const std::string& name);

} // namespace ostrand::vectors
