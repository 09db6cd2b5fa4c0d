// Keys below a key, for commands that look at many.
#pragma once

#include "profile/key.h"

namespace ostrand::tool {

/// Visits the key and all keys below it, depth first, each with its path.
template <class Visit>
void WalkKeys(const VProfileKey& key, const VUnicodeString& path, Visit visit)
{
    visit(key, path);
    VProfileKeyIterator keys(&key, false);
    VUnicodeString name;
    while (keys.Next(name)) {
        const VProfileKey below(&key, name.c_str());
        VUnicodeString pathBelow = path;
        if (!path.IsEmpty())
            pathBelow += u"\\";
        pathBelow += name;
        WalkKeys(below, pathBelow, visit);
    }
}

} // namespace ostrand::tool
