// The field with a session's name, for pages and for applications' own dialogs.
#pragma once

#include "config/session/session_interface.h"
#include "dialogs/kit/exchange.h"

namespace ostrand {

/// Exchanges the text without the blanks around it. A save refuses a name that the session can't have: `isNew` is that
/// of FindSessionNameFault, and the session's path and name are its other arguments.
OSTRAND_API void DDX_SessionName(VDataExchange& dx, VControlId edit, const ISessionConfig& session,
                                 VUnicodeString& name, bool isNew);

} // namespace ostrand
