// VMarginData: the margins of printed pages in one stored block.
#pragma once

#include "platform/export.h"
#include "profile/block.h"
#include "profile/values.h"

namespace ostrand {

/// In inches.
struct VMarginData {
    static constexpr unsigned kStoredSize = 32;

    double left = 0;
    double right = 0;
    double top = 0;
    double bottom = 0;

    void Pack(std::span<uint8_t, kStoredSize> out) const { PackFields(out, std::tie(left, right, top, bottom)); }
    void Unpack(std::span<const uint8_t, kStoredSize> in) { UnpackFields(in, std::tie(left, right, top, bottom)); }

    friend bool operator==(const VMarginData& a, const VMarginData& b)
    {
        return Same(a.left, b.left) && Same(a.right, b.right) && Same(a.top, b.top) && Same(a.bottom, b.bottom);
    }

private:
    /// A stored block may hold anything: what is no number equals itself here, or it would count as changed for good.
    static bool Same(double a, double b) { return a == b || (a != a && b != b); }
};

extern template class OSTRAND_API VProfile2<VMarginData, VProfileBinary>;

} // namespace ostrand
