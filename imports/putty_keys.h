// The saved sessions of PuTTY in a registry export.
//
//   key = .. "\PuTTY\Sessions\" name                             a byte of the name may stand as "%XX"
//
// A session whose key or value the file names twice has the later values; what the file deletes again is gone.
#pragma once

#include "imports/registry_export.h"

#include <string_view>
#include <vector>

namespace ostrand {

struct PuttySession {
    VUnicodeString name; ///< decoded
    size_t line = 0;     ///< of its first key
    bool isDeleted = false;
    /// The last one of each name, in any case; lent.
    std::vector<const RegistryValue*> values;
};

/// All sessions in the order of their keys. The keys must outlive them.
std::vector<PuttySession> FindPuttySessions(const std::vector<RegistryKey>& keys);

} // namespace ostrand
