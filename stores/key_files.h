// Keys on the disk: which files and folders a key has, and how one is found by a name in any case.
#pragma once

#include "platform/files.h"

#include <string>
#include <string_view>

namespace ostrand {

/// The path of a name in a folder, with room for a suffix.
std::string Joined(std::string_view folder, std::string_view name);
/// The file of values of the key with this folder; not for the root.
std::string ValuesFileBeside(const std::string& folder);
bool IsFolder(const std::string& path);
/// Whether a link makes the folder the same as one above it, up to `root`. No key is listed for it, nor any below it,
/// or there would be no end of them.
bool LeadsBack(const std::string& root, const std::string& folder);
/// Whether there is a key with this folder that can be opened for reading.
bool IsReadableKey(const std::string& folder);
/// The key that a folder's entry belongs to; false for files that are no key's. `base` is the name of its folder.
bool KeyOf(const VFolderEntry& entry, std::u16string& name, std::string_view& base);

/// The key's path from the root, its levels parted by backslashes, by its folder below the store's.
std::u16string PathOfKey(std::string_view below);

/// A name below a key, as the path that a key of this very spelling has.
struct KeyTarget {
    std::u16string_view name;
    std::string exact;

    /// `from` is the folder of the key. kErrorInvalidParameter for an empty level or one that no file can be named
    /// after.
    unsigned Cut(const std::string& from, const char16_t* path);
};

/// The folder as it is spelled on the disk; false where a level is missing, from which on it is spelled as asked.
bool Resolve(const std::string& from, const KeyTarget& target, std::string& folder);

} // namespace ostrand
