// The columns of a list view.

#include "tests/vectors/state_steps.h"

#include <array>

namespace ostrand::vectors {

namespace {

constexpr std::array kKinds = {Kind{"steps", RunStateSteps<VProfileListViewState>}};

} // namespace

std::span<const Kind> ListViewStateKinds() { return kKinds; }

} // namespace ostrand::vectors
