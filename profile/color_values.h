// CustomColors: sixteen colours in one stored block.
#pragma once

#include "platform/export.h"
#include "profile/block.h"
#include "profile/values.h"

namespace ostrand {

/// Each colour is 0x00BBGGRR.
struct CustomColors : std::array<uint32_t, 16> {
    static constexpr unsigned kStoredSize = 64;

    void Pack(std::span<uint8_t, kStoredSize> out) const { PackFields(out, std::tie(Colors())); }
    void Unpack(std::span<const uint8_t, kStoredSize> in) { UnpackFields(in, std::tie(Colors())); }

private:
    using Array = std::array<uint32_t, 16>;
    const Array& Colors() const { return *this; }
    Array& Colors() { return *this; }
};

extern template class OSTRAND_API VProfile2<CustomColors, VProfileBinary>;

} // namespace ostrand
