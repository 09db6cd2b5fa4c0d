// The digits of pi from which Blowfish takes its first state.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace ostrand {

inline constexpr size_t kPiWordCount = 18 + 4 * 256;

/// The fraction of pi, 32 bits a word, from the first bit on.
extern const std::array<uint32_t, kPiWordCount> kPiWords;

} // namespace ostrand
