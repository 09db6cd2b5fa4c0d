#include "stores/key_files.h"

#include "core/fold.h"
#include "stores/file_names.h"
#include "stores/store_key.h"
#include "stores/store_lock.h"

#include <algorithm>

namespace ostrand {

namespace {

bool IsFile(const std::string& path)
{
    VFileInfo info;
    return Files().GetInfo(path, info) == kErrorSuccess && !info.isFolder;
}

bool IsKey(const std::string& folder) { return IsFile(ValuesFileBeside(folder)) || IsFolder(folder); }

/// Folder of a subkey as it is spelled on the disk; false, with the spelling of `name`, where there is none.
bool FindChild(const std::string& folder, std::u16string_view name, std::string& child)
{
    child = Joined(folder, EncodeKeyName(name));
    if (IsKey(child))
        return true;
    std::vector<VFolderEntry> entries;
    if (Files().ListFolder(folder, entries) != kErrorSuccess)
        return false;
    std::u16string there;
    std::string_view base;
    for (const VFolderEntry& entry : entries)
        if (KeyOf(entry, there, base) && EqualNoCase(there, name)) {
            child = Joined(folder, base);
            return true;
        }
    return false;
}

} // namespace

std::string Joined(std::string_view folder, std::string_view name)
{
    std::string path;
    path.reserve(folder.size() + 1 + name.size() + kValuesSuffix.size());
    path += folder;
    path += '/';
    return path += name;
}

std::string ValuesFileBeside(const std::string& folder) { return folder + std::string(kValuesSuffix); }

bool IsFolder(const std::string& path)
{
    VFileInfo info;
    return Files().GetInfo(path, info) == kErrorSuccess && info.isFolder;
}

bool LeadsBack(const std::string& root, const std::string& folder)
{
    VFileInfo info;
    VFileInfo above;
    if (folder == root || Files().GetInfo(folder, info) != kErrorSuccess)
        return false;
    for (size_t end = folder.rfind('/'); end != std::string::npos && end >= root.size();
         end = folder.rfind('/', end - 1))
        if (Files().GetInfo(folder.substr(0, end), above) == kErrorSuccess && above.device == info.device &&
            above.file == info.file)
            return true;
    return false;
}

bool IsReadableKey(const std::string& folder)
{
    std::unique_ptr<IFile> file;
    const unsigned code =
        Files().Open(ValuesFileBeside(folder), VFileAccess::Read, VFileDisposition::OpenExisting, 0, file);
    VFileInfo info;
    if (code == kErrorSuccess)
        return file->GetInfo(info) == kErrorSuccess && !info.isFolder;
    return IsMissing(code) && IsFolder(folder);
}

bool KeyOf(const VFolderEntry& entry, std::u16string& name, std::string_view& base)
{
    base = entry.name;
    if (!entry.isFolder) {
        if (!base.ends_with(kValuesSuffix))
            return false;
        base.remove_suffix(kValuesSuffix.size());
    }
    return DecodeKeyName(base, name);
}

std::u16string PathOfKey(std::string_view below)
{
    std::u16string path;
    std::u16string level;
    while (!below.empty()) {
        const size_t bar = std::min(below.find('/'), below.size());
        DecodeKeyName(below.substr(0, bar), level);
        path += (path.empty() ? u"" : u"\\") + level;
        below.remove_prefix(std::min(bar + 1, below.size()));
    }
    return path;
}

unsigned KeyTarget::Cut(const std::string& from, const char16_t* path)
{
    name = NameOf(path);
    exact.reserve(from.size() + 1 + name.size() + kValuesSuffix.size());
    exact = from;
    bool fits = true;
    const bool isWhole = ForEachLevel(name, [&](std::u16string_view level) {
        const size_t before = exact.size();
        exact += '/';
        AppendKeyName(level, exact);
        fits = fits && exact.size() - before - 1 + kValuesSuffix.size() <= kLongestFileName;
    });
    return isWhole && fits ? kErrorSuccess : kErrorInvalidParameter;
}

bool Resolve(const std::string& from, const KeyTarget& target, std::string& folder)
{
    folder = from;
    bool isThere = true;
    ForEachLevel(target.name, [&](std::u16string_view level) {
        std::string child;
        if (isThere)
            isThere = FindChild(folder, level, child);
        else
            child = Joined(folder, EncodeKeyName(level));
        folder = std::move(child);
    });
    return isThere;
}

} // namespace ostrand
