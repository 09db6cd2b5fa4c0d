// Words of a command line as numbers, truth values and bytes.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace ostrand::tool {

/// Decimal or 0x, with a sign in front; none for anything else and for what has no room in 63 bits.
std::optional<int64_t> ReadNumber(std::string_view word);
/// A finite decimal number.
std::optional<double> ReadReal(std::string_view word);
/// true, false, 1 or 0, in any case.
std::optional<bool> ReadTruth(std::string_view word);
/// "hex:" and pairs of digits.
std::optional<std::vector<uint8_t>> ReadBlock(std::string_view word);

/// "hex:" in front marks a whole block instead of a field.
inline constexpr std::string_view kBlockMark = "hex:";

} // namespace ostrand::tool
