// Where sessions lie in the default store: one key each below `Sessions`, nested in the keys of their folders. A
// session's path is relative to `Sessions`, levels parted by "\": "Lab\Router1". Names ignore case, as those of all
// keys.
#pragma once

#include "profile/key.h"

#include <string_view>

namespace ostrand {

/// The key, directly below the store's root, that holds all sessions.
inline constexpr const char16_t* kSessionsKey = u"Sessions";
/// A key is a session, or one of the definitions beside it, when it has a number of this name; any other is a folder.
inline constexpr const char16_t* kIsSession = u"Is Session";

// Names below `Sessions` with a meaning of their own.
inline constexpr const char16_t* kFolderDataKey = u"__FolderData__"; ///< in each folder: the order of what it shows
inline constexpr const char16_t* kTemporarySession = u"_@@TMP@@_";   ///< of an application; in no folder's list
inline constexpr const char16_t* kDefaultSession = u"Default";

/// `Sessions`, with the session's or folder's path behind it unless that is empty.
OSTRAND_API VUnicodeString BuildSessionKeyPath(std::u16string_view path);
/// Whether the store has the key, be it a session's or a folder's.
OSTRAND_API bool SessionExists(std::u16string_view path);
/// An empty folder means the top level.
OSTRAND_API bool SessionExistsIn(std::u16string_view folder, std::u16string_view name);
/// On purpose: true also where there is no such key. Held by SessionFolders.WhatIsNoSessionIsAFolder.
OSTRAND_API bool IsFolder(std::u16string_view path);
/// Whether the key is a session's. The mark counts, not its value.
OSTRAND_API bool HasSessionMark(const VProfileKey& key);

/// A path cut at its last "\"; without one, all of it is the name.
struct SessionPathParts {
    std::u16string_view folder;
    std::u16string_view name;
};
/// Parts of the text that is given, which must outlive them.
OSTRAND_API SessionPathParts SplitSessionPath(std::u16string_view path);

} // namespace ostrand
