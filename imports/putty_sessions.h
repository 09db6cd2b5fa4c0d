// Saved sessions of PuTTY, as a registry export holds them (putty_keys.h), as sessions of this system.
//
// SSH, Telnet, Rlogin and serial lines are taken over; a session of another protocol is noted and passed over, as is
// "Default Settings". Taken along are the host, its port and user, the serial line, size, scrollback, font, the colours
// of text, ground, bold text and cursor, and switches of the terminal; values without a counterpart are told by name.
// The other colours come with the schemes (terminal_theme_schemes.h).
#pragma once

#include "imports/imported_session.h"

namespace ostrand {

/// False, with a line where there is one, if the export is damaged or has no session.
[[nodiscard]] bool ReadPuttySessions(std::string_view bytes, SessionImport& out, ImportFault& error);

} // namespace ostrand
