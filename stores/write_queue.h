// Values that were written through a key and didn't reach its file yet, in the order of their first writing.
#pragma once

#include "stores/name_index.h"

#include <cstdint>
#include <string>
#include <vector>

namespace ostrand {

struct QueuedValue {
    std::u16string name;
    uint64_t hash;    ///< of the name
    std::string text; ///< the rendered value
    bool isDeleted;   ///< takes the value away; `text` is empty then
};

/// One entry for each name, without regard to case; the first spelling stays.
class WriteQueue {
public:
    bool IsEmpty() const { return m_values.empty(); }
    const std::vector<QueuedValue>& Values() const { return m_values; }
    /// Null for a name that nothing waits for.
    const QueuedValue* Find(const char16_t* name) const;
    /// Null `text` takes the value away.
    void Put(const char16_t* name, const std::string* text);
    void Clear() { *this = WriteQueue(); }
    WriteQueue Copy() const;

private:
    size_t PlaceOf(uint64_t hash, const char16_t* name) const;

    std::vector<QueuedValue> m_values;
    NameIndex m_index;
};

} // namespace ostrand
