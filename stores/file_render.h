// How names and values are written in a key's file, and what equality of values means there. The grammar stands in
// file_format.h.
#pragma once

#include "core/array.h"
#include "core/strings.h"
#include "stores/file_format.h"
#include "stores/name_index.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace ostrand {

/// Bare where the grammar lets it, else in quotes.
std::string RenderName(std::u16string_view name);

// A value is always rendered the same way: two values are equal when their rendered forms are.
std::string RenderDword(unsigned value);
std::string RenderText(std::u16string_view value);
std::string RenderList(const VStringArray& value);
std::string RenderBlock(const void* data, size_t size);

/// The value at the front of `from` as it would be rendered; empty for a broken one or one of a kind that isn't known.
std::string Rerender(std::string_view from);
/// Whether the value at the front of `from` is the one that `rendered` stands for, however a person spelled it.
bool SameValue(std::string_view from, std::string_view rendered);
inline uint64_t HashDword(unsigned value)
{
    constexpr uint64_t kSeed = 1;
    return FinishHash(MixHash(kSeed, value)) | 2;
}
uint64_t HashAnyValue(std::string_view from);
/// Hash of the value at the front of `from`, which must be whole. The same for all its spellings, and never 0 or 1.
inline uint64_t HashValue(std::string_view from)
{
    unsigned number = 0;
    if (TakeShortDword(from, number))
        return HashDword(number);
    const size_t plain = SizeOfPlain(from);
    return plain > 0 ? HashBytes(from.substr(0, plain)) | 2 : HashAnyValue(from);
}

} // namespace ostrand
