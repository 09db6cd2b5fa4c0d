// A store to try things on.
#pragma once

#include <string>

namespace host {

/// Copies the example that lies beside the program to a new folder, and returns that; empty where it can't.
std::string CopyExample();

} // namespace host
