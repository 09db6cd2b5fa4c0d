#include "profile/window_placement.h"

#include "profile/block.h"

namespace ostrand {

namespace {

template <class Placement>
auto AllFields(Placement& p)
{
    return std::tie(p.length, p.flags, p.showCommand, p.minPositionX, p.minPositionY, p.maxPositionX, p.maxPositionY,
                    p.normalLeft, p.normalTop, p.normalRight, p.normalBottom);
}

} // namespace

void VWindowPlacement::Pack(std::span<uint8_t, kStoredSize> out) const { PackFields(out, AllFields(*this)); }

void VWindowPlacement::Unpack(std::span<const uint8_t, kStoredSize> in) { UnpackFields(in, AllFields(*this)); }

template class VProfile2<VWindowPlacement, VProfileBinary>;

} // namespace ostrand
