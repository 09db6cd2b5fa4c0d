// News of a store's folder tree: which keys may have changed since the last look. Nothing runs on its own.
#pragma once

#include "platform/files.h"

#include <memory>
#include <set>
#include <string>

namespace ostrand {

/// Watches the store's folder and all folders of keys below it. One thread at a time.
class StoreWatch {
public:
    explicit StoreWatch(std::string root) : m_root(std::move(root)) {}

    /// kErrorNotSupported where the system gives no news; also fails while the store has no folder.
    unsigned Begin();
    int Descriptor() const { return m_watch->Descriptor(); }
    /// Folders of the keys whose files were touched in any way, by anybody; of all keys when news were lost.
    unsigned Take(std::set<std::string>& keys);

private:
    /// The keys of the folder and below go into `keys`, where that isn't null.
    void AddFolder(const std::string& folder, std::set<std::string>* keys);
    void TakePath(const std::string& path, std::set<std::string>& keys);

    std::string m_root;
    std::unique_ptr<IFolderWatch> m_watch;
};

} // namespace ostrand
