#include "stores/store_watch.h"

#include "platform/error_codes.h"
#include "stores/file_names.h"
#include "stores/key_files.h"
#include "stores/store_lock.h"

#include <vector>

namespace ostrand {

namespace {

/// The key's folder for the path of a file of values; empty for any other file.
std::string KeyFolder(const std::string& root, const std::string& path)
{
    if (path == root + '/' + std::string(kRootValuesFile))
        return root;
    if (!path.ends_with(kValuesSuffix))
        return {};
    std::string folder = path.substr(0, path.size() - kValuesSuffix.size());
    std::u16string name;
    return DecodeKeyName(std::string_view(folder).substr(folder.rfind('/') + 1), name) ? folder : std::string();
}

bool IsKeyFolder(const std::string& path)
{
    std::u16string name;
    VFileInfo info;
    return DecodeKeyName(std::string_view(path).substr(path.rfind('/') + 1), name) &&
           Files().GetInfo(path, info) == kErrorSuccess && info.isFolder;
}

} // namespace

unsigned StoreWatch::Begin()
{
    unsigned code = Files().CreateWatch(m_watch);
    if (code == kErrorSuccess)
        code = m_watch->Add(m_root);
    if (code == kErrorSuccess)
        AddFolder(m_root, nullptr);
    return code;
}

void StoreWatch::AddFolder(const std::string& folder, std::set<std::string>* keys)
{
    // Watched before it is read: what comes in between is seen twice, not missed.
    if (LeadsBack(m_root, folder) || m_watch->Add(folder) != kErrorSuccess)
        return;
    std::vector<VFolderEntry> entries;
    Files().ListFolder(folder, entries);
    std::u16string name;
    for (const VFolderEntry& entry : entries) {
        const std::string path = folder + '/' + entry.name;
        if (entry.isFolder && DecodeKeyName(entry.name, name))
            AddFolder(path, keys);
        else if (keys && !entry.isFolder)
            TakePath(path, *keys);
    }
}

void StoreWatch::TakePath(const std::string& path, std::set<std::string>& keys)
{
    if (std::string key = KeyFolder(m_root, path); !key.empty())
        keys.insert(std::move(key));
}

unsigned StoreWatch::Take(std::set<std::string>& keys)
{
    std::vector<std::string> paths;
    bool isComplete = true;
    const unsigned code = m_watch->Take(paths, isComplete);
    for (const std::string& path : paths) {
        TakePath(path, keys);
        if (IsKeyFolder(path))
            AddFolder(path, &keys);
    }
    if (!isComplete)
        AddFolder(m_root, &keys);
    return code;
}

} // namespace ostrand
