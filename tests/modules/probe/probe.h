// How a test tells the probe module what to do, and what the module notes.
#pragma once

#include "config/session/protocol_table.h"

#include <map>
#include <set>
#include <string>
#include <vector>

namespace ostrand::test {

/// Steps are named "PROTOCOL.OPERATION": "SSH2.Save".
struct ProbeScript {
    std::map<std::string, int> calls;
    std::vector<std::string> order; ///< of LeaveProtocol and EnterProtocol
    std::set<std::string> throwing;
    std::set<std::string> refusing; ///< LoadProtocol is false, createConfig null
};

/// The application's table, with the script behind the entries that the library knows.
struct ProbeTable : VAppFnTable {
    ProbeScript* script = nullptr;
};

} // namespace ostrand::test
