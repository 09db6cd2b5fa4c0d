#include "config/session/session_walk.h"

#include "profile/hives.h"

namespace ostrand {

namespace {

/// Far above what people nest, far below what a stack holds: a folder that links lead back into itself ends here.
constexpr int kDeepest = 64;

bool Walk(const VProfileKey& folder, std::u16string_view path, const SessionVisitor& visit, int depth)
{
    VProfileKeyIterator names(&folder, false);
    VUnicodeString name;
    while (names.Next(name)) {
        if (name == kFolderDataKey)
            continue;
        VProfileKey key(&folder, name.c_str());
        const VUnicodeString below = JoinKeys(path, name);
        if (HasSessionMark(key) ? !visit(below, key) : depth < kDeepest && !Walk(key, below, visit, depth + 1))
            return false;
    }
    return true;
}

} // namespace

bool WalkSessions(const VProfileStore& store, std::u16string_view folder, const SessionVisitor& visit)
{
    const VUnicodeString path = BuildSessionKeyPath(folder);
    if (!store.GetRootKey()->KeyExists(path.c_str()))
        return true;
    const VProfileKey top(store.GetRootKey(), path.c_str());
    return Walk(top, folder, visit, 0);
}

} // namespace ostrand
