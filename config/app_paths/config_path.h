// Where an application keeps its configuration: the path that the user's hive holds for it, the folder beside a
// portable program, the folder that the command line names. In which order they count is the application's business.
#pragma once

#include "core/report.h"

namespace ostrand {

/// The stored folder of an application, by its name; empty when nothing is stored. On purpose: from here on the factory
/// of the library's own values stands at the user's current base key. Held by ConfigPath.ReadingMovesTheDefaultFactory.
OSTRAND_API VUnicodeString GetAppConfigPath(const char16_t* application);
/// The folder of releases that had one for all applications. One that is found becomes this application's own.
OSTRAND_API VUnicodeString GetAppConfigPathAlpha();
/// Stores the folder for this application. In an integrated pair the other one gets it, too, if it has none yet or by
/// force. False where a hive refuses: `report`, if given, says why.
OSTRAND_API bool SaveAppConfigPath(const char16_t* path, bool force, IReportMessageParams* report = nullptr);

/// The folder "Config" below the given one if it holds a file "global.ini", in any case, which marks a portable
/// program; else empty.
OSTRAND_API VUnicodeString GetAppConfigPathUnderExe(const char16_t* folder);

/// Checks the folder that the option /F names. `result` is the path with its last separators overwritten by zeros; its
/// length stays, and only what stands before the first zero counts. False, with kCommandLineFolderInvalid and the path
/// as given, where there is no such folder.
OSTRAND_API bool CheckAppConfigPathCommandLine(const char16_t* path, VUnicodeString& result,
                                               IReportMessageParams& report);

} // namespace ostrand
