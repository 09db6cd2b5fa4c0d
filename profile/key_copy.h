// A key with all below it, copied or moved to another place of its store.
#pragma once

#include "core/report.h"
#include "profile/key.h"

namespace ostrand {

/// Copies values and subkeys from one open key to another, and flushes each key. False where a key can't be read or
/// written, or holds a value that can't be carried over, of a kind that this version doesn't know; `report` says why.
/// What was copied before stays.
OSTRAND_API bool CopyKey(const VProfileKey& from, VProfileKey& to, IReportMessageParams& report);

/// A copy at the other path, then the old key goes; both are paths from the root. The new key isn't there, or is the
/// old one in another case. On failure the old one stays, or is there again, and nothing is left of the new one.
OSTRAND_API bool MoveKey(const VProfileStore& store, const VUnicodeString& from, const VUnicodeString& to,
                         IReportMessageParams& report);

} // namespace ostrand
