// SynchronizeTask: which files are synchronised with which, and its form in a key:
//
//   Task[n].Name, .Type, .MasterOverwrites
//   Task[n].Source[m].Session, .Path, .Recurse
//   Task[n].Target[m].Session, .Path
//
// Numbers are decimal and begin with 0. A list ends at the first entry that isn't complete; MasterOverwrites may be
// missing.
#pragma once

#include "core/array.h"
#include "core/strings.h"
#include "profile/key.h"

namespace ostrand {

struct SynchronizeSource {
    VUnicodeString session; ///< empty: the local machine
    VUnicodeString path;
    bool recurse = false;

    bool operator==(const SynchronizeSource&) const = default;
};

struct SynchronizeTarget {
    VUnicodeString session; ///< empty: the local machine
    VUnicodeString path;

    bool operator==(const SynchronizeTarget&) const = default;
};

struct OSTRAND_API SynchronizeTask {
    VUnicodeString name;
    int type = 0; ///< a code of the file-transfer application
    bool masterOverwrites = false;
    VArray<SynchronizeSource> sources{3};
    VArray<SynchronizeTarget> targets{3};

    bool operator==(const SynchronizeTask&) const = default;

    /// False, with nothing changed, where the key has no such task.
    bool Read(const VProfileKey& key, int number);
    void Write(VProfileKey& key, int number) const;
};

} // namespace ostrand
