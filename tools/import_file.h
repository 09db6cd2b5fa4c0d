// A file that an import reads, and what the importers say about it.
#pragma once

#include "imports/import_fault.h"
#include "tools/request.h"

#include <string>

namespace ostrand::tool {

/// All of it; Failed after one line on stderr.
Exit ReadImportFile(const std::string& file, std::string& bytes);
/// "FILE:LINE: what is wrong"
std::string FaultText(const std::string& file, const ImportFault& fault);

} // namespace ostrand::tool
