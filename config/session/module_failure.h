// What the user is told, and asked, when a protocol module can't be used.
#pragma once

#include "config/session/module_loader.h"

namespace ostrand {

/// The module that can't be used, and the application that wanted it.
struct VModuleFailure {
    int productId; ///< of the application that the module belongs to
    VUnicodeString modulePath;
    VContractId moduleContract; ///< zeros where it isn't known
    VUnicodeString application; ///< that runs
    VContractId applicationContract = kProtocolContract;
};

/// By the report's code: none does nothing, a failed module is shown as a warning. For any other the user is offered a
/// download of whichever of the two files is older, where both are there: `exit` becomes true when the user won't go on
/// with what there is, `integration` becomes false for one who does.
OSTRAND_API void HandleModuleFailure(VReportMessageParams& report, const VModuleFailure& failure, bool& exit,
                                     bool& integration);

/// 8-4-4-4-12 lower-case digits without braces.
OSTRAND_API VUnicodeString FormatContractId(const VContractId& id);

} // namespace ostrand
