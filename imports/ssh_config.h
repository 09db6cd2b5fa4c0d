// Hosts of OpenSSH client configurations, such as ~/.ssh/config, as sessions of the protocol SSH2.
//
// Each name on a `Host` line that is no pattern becomes a session. Its values are those that ssh would use: the first
// ones in the file's order from what stands in front of the first `Host` and from all blocks whose patterns fit the
// name. HostName, with %h for the name, Port and User are taken over; ProxyJump comes into the description. `Match`
// blocks and files that `Include` names are noted and not followed; other keywords are told once each.
#pragma once

#include "imports/imported_session.h"

namespace ostrand {

/// False, with a line where there is one, if no session can be had.
[[nodiscard]] bool ReadSshConfig(std::string_view bytes, SessionImport& out, ImportFault& error);

} // namespace ostrand
