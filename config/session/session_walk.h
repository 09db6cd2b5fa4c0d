// All sessions below a folder, depth first, in the store's order.
#pragma once

#include "config/session/session_paths.h"

#include <functional>
#include <string_view>

namespace ostrand {

/// Called with the session's path and its open key, which is lent; false ends the walk. The key's own values may be
/// written meanwhile.
using SessionVisitor = std::function<bool(const VUnicodeString& path, VProfileKey& key)>;

/// Keys are opened as `store` is. `folder` is a path below `Sessions`, empty for all. What lies below a session isn't
/// visited, nor are the folders' own data. False where the visitor ended it.
OSTRAND_API bool WalkSessions(const VProfileStore& store, std::u16string_view folder, const SessionVisitor& visit);

} // namespace ostrand
