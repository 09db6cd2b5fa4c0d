// Files of a store's folder that no key will ever find, for people: a name that is written in another way than the
// store writes it, or one that differs from a key's in case alone.
#pragma once

#include "platform/export.h"

#include <string>
#include <vector>

namespace ostrand {

enum class StrayKind {
    NoKeysName,    ///< no key's name is written like that
    DiffersInCase, ///< names ignore case: only one of the two is reached under that name
};

struct StrayFile {
    StrayKind kind;
    std::string path; ///< UTF-8 as the system has it
    std::string twin; ///< path of the other one, for DiffersInCase
    bool operator==(const StrayFile&) const = default;
};

/// Looks into a key's folder and all folders below. What isn't a key's by its ending is nobody's concern, so are
/// folders that begin with a dot. The result is a platform code; a missing folder is an empty one.
OSTRAND_API unsigned FindStrayFiles(const std::string& folder, std::vector<StrayFile>& strays);

/// A half sentence: "isn't named as the store names a key's file".
OSTRAND_API const char16_t* DescribeStray(StrayKind kind);

} // namespace ostrand
