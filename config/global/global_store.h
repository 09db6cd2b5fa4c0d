// The global record on its way to and from the store that the application installed.
#pragma once

#include "config/global/global_config.h"
#include "core/report.h"

namespace ostrand {

/// Reads a new record from the key Global of the default store. The caller owns its one reference.
VUnknownPointer<GlobalConfig> ReadGlobalConfig(bool isOrvane);

/// Writes the record to the key Global: what is changed or pending, or with `force` everything. Overrides of one run
/// are undone before. False when the store refused; the report then says why, and the writes stay queued there.
bool WriteGlobalConfig(GlobalConfig& config, bool force, IReportMessageParams& report);

/// Names of the button bars in the default store, in store order; "Default" stands last where no bar has that name.
OSTRAND_API void GetButtonBarNames(VStringArray& out);

} // namespace ostrand
