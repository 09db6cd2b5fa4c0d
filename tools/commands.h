// The actions behind the commands, one function each. Each writes its result to stdout, or one line to stderr; a
// command that fails has written nothing to the store.
#pragma once

#include "tools/request.h"

namespace ostrand::tool {

Exit ListGlobal(const Request& request);
Exit GetGlobal(const Request& request);
Exit DiffGlobal(const Request& request);
Exit SetGlobal(const Request& request);
Exit ResetGlobal(const Request& request);
Exit SaveGlobal(const Request& request);
Exit MergeGlobal(const Request& request);
Exit SchemaOfGlobal(const Request& request);
Exit DumpStore(const Request& request);
/// For shell completion: names of values, paths of keys.
Exit CompleteValues(const Request& request);
Exit CompleteKeys(const Request& request);

} // namespace ostrand::tool
