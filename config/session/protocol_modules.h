// Loading the protocol modules of an application and its sibling into the protocol table. Once, on the main thread,
// before sessions are opened.
#pragma once

#include "config/session/protocol_table.h"

#include <vector>

namespace ostrand {

/// Told after each protocol that was tried: when its loading began, as a file time, and its name.
using VModuleProgress = void (*)(uint64_t fileTime, const char16_t* protocol);

/// Looks for the applications in the directory, then loads the protocols of the product and, where it is installed, of
/// its sibling. False, with the report's code, when the product has none (kNoModuleLoaded), or the user stopped
/// (kModuleLoadingStopped). A sibling without protocols counts as not installed. With both, each gets a "None" row.
///
/// With `offerDownload` what fails is put to the user; it becomes false when the user goes on without the sibling.
/// `progress` may be null.
OSTRAND_API bool LoadConnectionProtocolDlls(VAppFnTable& table, int productId, const char16_t* directory,
                                            VModuleProgress progress, bool& offerDownload,
                                            VReportMessageParams& report);
/// The protocols of one product alone; true when there is at least one. `progress` isn't used.
OSTRAND_API bool LoadSingleProductConnectionProtocolDlls(VAppFnTable& table, int productId, const char16_t* directory,
                                                         VModuleProgress progress, bool& offerDownload,
                                                         VReportMessageParams& report);
/// Lets each module say goodbye, gives it back, and empties the table. No session may be left.
OSTRAND_API void UnloadConnectionProtocolDlls();

/// Loads one protocol into a new row, whose place becomes `index`; -1 on failure. A null directory appends the built-in
/// "None" of the product. False without a code where the protocol is missing, or may not be used here.
OSTRAND_API bool LoadOneProtocol(const char16_t* directory, const VUnicodeString& path, const char16_t* name,
                                 int productId, VAppFnTable& table, VReportMessageParams& report, int& index);

/// What the protocols SSH2 and SFTP add to the dialog of the global options, the latter's first; null before one of
/// them was loaded.
OSTRAND_API ConnectProtocolTableElement::AddGlobalPages GetGlobalPagesHook();

enum class VProtocolState {
    Loaded,
    FileMissing,
    RefusedByPolicy, ///< the administrator wants approved cryptography only
    NotEnabled,      ///< its marker file is missing
    NotLoadable,     ///< the file is no module, needs what isn't there, or lacks a function
    OtherContract,   ///< made for another version of this library
    Failed,          ///< by the module's own word
};

/// What became of one protocol that was tried.
struct VProtocolRecord {
    VUnicodeString name;
    int productId;
    VUnicodeString modulePath; ///< empty for the built-in "None"
    VProtocolState state;
    VUnicodeString reason; ///< NotLoadable: the platform's text or the function; Failed: the module's; else empty
};

/// In the order of trying. Valid until the next load.
OSTRAND_API const std::vector<VProtocolRecord>& GetProtocolRecords();

} // namespace ostrand
