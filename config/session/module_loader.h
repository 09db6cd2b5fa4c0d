// One module file: finding its functions, checking the contract, letting it fill its row, and giving it back.
#pragma once

#include "config/session/protocol_table.h"

namespace ostrand {

/// What a module exports, by these names with a capital letter.
struct VModuleExports {
    VGetProtocolGuid getProtocolGuid = nullptr;
    VLoadProtocol loadProtocol = nullptr;
    VUnloadProtocol unloadProtocol = nullptr; ///< may be null
};

/// Puts functions of the program in the place of a module file, such as u"ProtoDelta.dll", which is then not looked
/// for; exports without `getProtocolGuid` take them away. Before the protocols are loaded.
OSTRAND_API void RegisterLinkedModule(std::u16string_view moduleFile, const VModuleExports& exports);

/// Loads the file of the row, where it isn't loaded yet, and lets it fill the row. On failure the report says why, and
/// the row has to be given to UnloadModule. `identifier` becomes that of a module which has one.
bool LoadModule(ConnectProtocolTableElement& row, VAppFnTable& table, VReportMessageParams& report,
                VContractId& identifier);
/// Gives the file back, once however often it is called. No object of the module may be left.
void UnloadModule(ConnectProtocolTableElement& row);

} // namespace ostrand
