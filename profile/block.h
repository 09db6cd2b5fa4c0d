// Stored blocks, field by field and little-endian, whatever the machine's own byte order and padding.
#pragma once

#include <array>
#include <bit>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <span>
#include <tuple>

namespace ostrand {

namespace block_detail {

template <size_t Bytes>
using Unsigned =
    std::conditional_t<Bytes == 1, uint8_t,
                       std::conditional_t<Bytes == 2, uint16_t, std::conditional_t<Bytes == 4, uint32_t, uint64_t>>>;

template <class N>
    requires std::integral<N> || std::floating_point<N>
void Put(uint8_t*& at, N value)
{
    const auto bits = std::bit_cast<Unsigned<sizeof(N)>>(value);
    for (size_t i = 0; i < sizeof(N); ++i)
        *at++ = static_cast<uint8_t>(bits >> (8 * i));
}

template <class N, size_t Count>
void Put(uint8_t*& at, const std::array<N, Count>& values)
{
    for (const N value : values)
        Put(at, value);
}

template <class N>
    requires std::integral<N> || std::floating_point<N>
void Take(const uint8_t*& at, N& value)
{
    uint64_t bits = 0;
    for (size_t i = 0; i < sizeof(N); ++i)
        bits |= uint64_t{*at++} << (8 * i);
    value = std::bit_cast<N>(static_cast<Unsigned<sizeof(N)>>(bits));
}

template <class N, size_t Count>
void Take(const uint8_t*& at, std::array<N, Count>& values)
{
    for (N& value : values)
        Take(at, value);
}

} // namespace block_detail

/// Writes the fields of a record, a tuple of references to numbers and arrays of numbers, one behind the other without
/// gaps. Their sizes must add up to the block's.
template <size_t Size, class... Fields>
void PackFields(std::span<uint8_t, Size> out, const std::tuple<const Fields&...>& fields)
{
    static_assert((sizeof(Fields) + ...) == Size, "the fields don't fill the block");
    uint8_t* at = out.data();
    std::apply([&at](const Fields&... field) { (block_detail::Put(at, field), ...); }, fields);
}

/// The inverse.
template <size_t Size, class... Fields>
void UnpackFields(std::span<const uint8_t, Size> in, const std::tuple<Fields&...>& fields)
{
    static_assert((sizeof(Fields) + ...) == Size, "the fields don't fill the block");
    const uint8_t* at = in.data();
    std::apply([&at](Fields&... field) { (block_detail::Take(at, field), ...); }, fields);
}

} // namespace ostrand
