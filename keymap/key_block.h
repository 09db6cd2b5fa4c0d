// The stored form of a key map: one block. Numbers are big-endian on every machine.
//
//   block = count { entry }              count: 4 bytes; entries by ascending key index
//   entry = index name argument          index: 4 bytes
//   name, argument = [ EF BB BF ] { byte } 00
//
// The mark says that the text is UTF-8, and is always written; a text without it, of older versions, is in the 8-bit
// code page. A text at the end of the data may lack its zero.
#pragma once

#include "keymap/key_bindings.h"
#include "platform/export.h"

#include <cstdint>
#include <span>
#include <vector>

namespace ostrand {

class IKeymap;

/// Bytes of a block in a store: what a reader makes room for. WriteKeyBlock may give more.
inline constexpr unsigned kLargestKeyBlock = 32000;

/// How a block ended.
enum class KeyBlockEnd {
    Whole,    ///< at its count, or at the end of an entry where the count promises more
    NoCount,  ///< below 4 bytes
    InAnIndex ///< within the 4 bytes of an index
};

/// Sets the bindings of a block, whatever its bytes. Entries with an unknown function, which later versions may have
/// written, with NONE or with an index beyond the keys are skipped. Bytes that are no UTF-8 become U+FFFD.
OSTRAND_API KeyBlockEnd ReadKeyBlock(std::span<const uint8_t> block, IKeymap& keymap);

/// All bindings with a code. An argument ends at its first zero character; what has no UTF-8 becomes "?".
OSTRAND_API std::vector<uint8_t> WriteKeyBlock(const KeyBindings& bindings);

} // namespace ostrand
