// VWindowPlacement: where a window stands and how it is shown, with its stored form and its value.
#pragma once

#include "platform/export.h"
#include "profile/values.h"

#include <cstdint>
#include <span>

namespace ostrand {

/// Positions and edges in pixels of the desktop.
struct WINDOWPLACEMENT {
    uint32_t length = 44; ///< of the record itself, as the platform asks
    uint32_t flags = 0;
    uint32_t showCommand = 0; ///< 1 normal, 2 minimised, 3 maximised
    int32_t minPositionX = 0;
    int32_t minPositionY = 0;
    int32_t maxPositionX = 0;
    int32_t maxPositionY = 0;
    int32_t normalLeft = 0;
    int32_t normalTop = 0;
    int32_t normalRight = 0;
    int32_t normalBottom = 0;

    bool operator==(const WINDOWPLACEMENT&) const = default;
};

class OSTRAND_API VWindowPlacement : public WINDOWPLACEMENT {
public:
    static constexpr unsigned kStoredSize = 44;

    void Pack(std::span<uint8_t, kStoredSize> out) const;
    void Unpack(std::span<const uint8_t, kStoredSize> in);

    bool operator==(const VWindowPlacement&) const = default;
};

extern template class OSTRAND_API VProfile2<VWindowPlacement, VProfileBinary>;

class OSTRAND_API VProfileWindowPlacement : public VProfile2<VWindowPlacement, VProfileBinary> {
public:
    using VProfile2::operator=;
};

} // namespace ostrand
