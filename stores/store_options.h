// What a person may set for a whole store: the file "%store.ini" in its root, in the form of a key's file.
//
//     History Versions = 50      versions kept of each key; 0: none
//     History Bytes = 65536      bytes that they take for each key
#pragma once

#include "stores/file_history.h"

#include <string>
#include <string_view>

namespace ostrand {

inline constexpr std::string_view kStoreOptionsFile = "%store.ini";

struct StoreOptions {
    HistoryLimits history;
};

/// Missing values, and those of another kind, have their defaults; so has a file that can't be read.
StoreOptions ReadStoreOptions(const std::string& root);

} // namespace ostrand
