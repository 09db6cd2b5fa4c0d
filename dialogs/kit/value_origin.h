// Why a value is what it is: where it is stored, under which name, what corrected it.
#pragma once

#include "core/strings.h"
#include "profile/backend.h"
#include "profile/schema_entry.h"
#include "profile/store_extras.h"

#include <optional>

namespace ostrand {

/// Where a record is kept. Without a factory nothing is known.
struct VRecordPlace {
    VProfileStoreFactory* factory = nullptr;
    VUnicodeString key; ///< path below the store's root
};

struct VValueOrigin {
    enum class Kind : uint8_t { Unknown, Stored, OldName, NotStored };
    Kind kind = Kind::Unknown;
    ValuePlace place;                 ///< line 0 where values have no place of their own
    bool isCorrected = false;         ///< by a bound or a rule, after reading
    std::optional<int> correctedFrom; ///< the number that a bound didn't take
};

/// Reads the store, where the value has this name. A value of another kind under it counts as stored.
OSTRAND_API VValueOrigin FindOrigin(const VSchemaEntry& entry, const VUnicodeString& valueName,
                                    const VRecordPlace& place, bool isCorrected);

} // namespace ostrand
