// The executable's path out of a command line, as the system's list of file types holds them.
#pragma once

#include "core/strings.h"

namespace ostrand {

/// Reduces a command line to its executable's path: what stands in the leading double quotes, all the rest where the
/// closing one is missing, or all up to the first ".exe". 1 on success; 0 for an empty line and for an unquoted one
/// without ".exe", which is left trimmed.
OSTRAND_API int ExtractExecutable(VUnicodeString& commandLine);
/// The same on a copy. On purpose: a line without ".exe" comes back trimmed and not empty. Held by
/// ExecutableText.AnUnusableLineIsTrimmed.
OSTRAND_API VUnicodeString ExtractExecutablePath(const char16_t* commandLine);

} // namespace ostrand
