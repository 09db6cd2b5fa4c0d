// The layout of a frame.

#include "tests/vectors/state_steps.h"

#include <array>

namespace ostrand::vectors {

namespace {

constexpr std::array kKinds = {Kind{"steps", RunStateSteps<VProfileExplorerFrameState>}};

} // namespace

std::span<const Kind> ExplorerFrameStateKinds() { return kKinds; }

} // namespace ostrand::vectors
