// The order in which a folder shows its sessions, or its subfolders: a list of names, stored as one text in which each
// name is followed by a colon. No name holds a colon. Names are the same when they differ in case alone, as in a store.
#pragma once

#include "core/array.h"
#include "platform/export.h"

#include <cstddef>
#include <string_view>

namespace ostrand {

/// "a:b:" for two names; empty for none.
OSTRAND_API VUnicodeString JoinFolderList(const VStringArray& names);

/// Brings a stored list in line with the names that the store holds: those of the list that are there, in its order
/// and the store's spelling; behind them, in the store's order, those that it lacks. `ordered` is emptied first. True
/// where the result isn't what was stored.
OSTRAND_API bool MergeFolderList(std::u16string_view stored, const VStringArray& found, VStringArray& ordered);

/// Puts a name directly behind the anchor; at the end where the anchor is empty or not in the list, and always in a
/// folder that is shown alphabetically. Where the name was in the list before, it is taken out. `unused` has no effect.
OSTRAND_API void InsertName(VStringArray& list, const VUnicodeString& name, const VUnicodeString& anchor, bool unused,
                            bool sortAlphabetical);
/// The same for any number of names, which come to stand together, in their order. Takes time for the list once.
OSTRAND_API void InsertNames(VStringArray& list, const VStringArray& names, const VUnicodeString& anchor,
                             bool sortAlphabetical);

/// The new name takes the old one's place; it is taken out where it stood elsewhere. False, with nothing changed, where
/// the old one isn't in the list.
OSTRAND_API bool RenameName(VStringArray& list, std::u16string_view from, const VUnicodeString& to);
/// To a place from 0, counted without the name itself; beyond the end means the end. False as above.
OSTRAND_API bool MoveName(VStringArray& list, std::u16string_view name, size_t place);
OSTRAND_API bool RemoveName(VStringArray& list, std::u16string_view name);

} // namespace ostrand
