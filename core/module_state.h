// The library's process-wide state that belongs to no class: one struct, with a reset for tests. Set at start-up on the
// main thread.
#pragma once

#include "core/array.h"
#include "core/sync.h"
#include "core/unknown.h"

namespace ostrand {

class GlobalConfig;
struct VImageList;

/// Lets the user pick sessions; `result` takes their paths. 1 for OK.
using VSessionPicker = int (*)(const char16_t* title, VArray<VUnicodeString>& result);
/// The icons of the session tree, in the toolkit's own form; handed on, never looked into.
using VImageListGetter = VImageList* (*)();

struct VModuleState {
    VUnknownPointer<GlobalConfig> globalConfig;
    /// Outlives every configuration object.
    VUnknownPointer<ISynchObject> configurationLock;
    VSessionPicker sessionPicker = nullptr;
    VImageListGetter imageListGetter = nullptr;
};

/// The configuration is released without saving when the library goes.
OSTRAND_API VModuleState& ModuleState();

} // namespace ostrand
