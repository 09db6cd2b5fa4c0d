// From an item of a template to its control.
#pragma once

#include "dialogs/kit/control.h"

#include <memory>
#include <vector>

namespace ostrand {

/// One for each item; null for layout and parts.
std::vector<std::unique_ptr<VControl>> MakeControls(IControlOwner& owner, const VTemplate& shown);

} // namespace ostrand
