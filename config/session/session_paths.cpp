#include "config/session/session_paths.h"

#include "profile/hives.h"

namespace ostrand {

VUnicodeString BuildSessionKeyPath(std::u16string_view path) { return JoinKeys(kSessionsKey, path); }

bool SessionExists(std::u16string_view path)
{
    const VProfileStore store(true);
    return store.GetRootKey()->KeyExists(BuildSessionKeyPath(path).c_str());
}

bool SessionExistsIn(std::u16string_view folder, std::u16string_view name)
{
    return SessionExists(JoinKeys(folder, name));
}

bool IsFolder(std::u16string_view path)
{
    const VProfileStore store(true);
    return !HasSessionMark(VProfileKey(store.GetRootKey(), BuildSessionKeyPath(path).c_str()));
}

bool HasSessionMark(const VProfileKey& key)
{
    unsigned ignored = 0;
    return key.ReadDword(kIsSession, &ignored);
}

SessionPathParts SplitSessionPath(std::u16string_view path)
{
    const size_t bar = path.rfind(u'\\');
    if (bar == std::u16string_view::npos)
        return {{}, path};
    return {path.substr(0, bar), path.substr(bar + 1)};
}

} // namespace ostrand
