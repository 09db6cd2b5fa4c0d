// Pictures of the dialog, as PNG.
#pragma once

#include "dialogs/session/session_options_dialog.h"
#include "examples/host/arguments.h"

namespace host {

/// Of the page that is asked for, or of each page that the session's dialog has; nothing is changed or saved. The
/// program's exit code.
int Photograph(ostrand::GlobalConfig& global, ostrand::SessionConfig& session,
               const ostrand::SessionOptionsSetup& setup, const Arguments& arguments);

} // namespace host
