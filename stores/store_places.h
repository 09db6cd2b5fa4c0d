// Where a value stands, for messages to people: an optional interface of a store's keys.
#pragma once

#include "platform/export.h"

#include <cstddef>
#include <string>

namespace ostrand {

class VProfileKey;

struct ValuePlace {
    std::string file; ///< path, UTF-8
    size_t line = 0;  ///< from 1; 0 for a value that doesn't stand in the file (yet)
};

/// A key whose values stand in a file. The value name null asks for the file alone.
class IStorePlaces {
public:
    virtual bool FindPlace(const char16_t* valueName, ValuePlace& place) = 0;

protected:
    ~IStorePlaces() = default;
};

/// False, `place` untouched, where the store behind the key has no files.
OSTRAND_API bool FindValuePlace(const VProfileKey& key, const char16_t* valueName, ValuePlace& place);

} // namespace ostrand
