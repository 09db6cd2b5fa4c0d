#include "stores/store_lock.h"

#include "platform/error_codes.h"
#include "stores/file_names.h"

namespace ostrand {

bool IsMissing(unsigned code) { return code == kErrorFileNotFound || code == kErrorPathNotFound; }

std::string FolderOf(const std::string& path)
{
    const size_t bar = path.rfind('/');
    if (bar == std::string::npos)
        return ".";
    return bar == 0 ? "/" : path.substr(0, bar);
}

unsigned MakeFolders(const std::string& folder)
{
    unsigned code = Files().CreateFolder(folder, kFolderMode);
    if (IsMissing(code) && FolderOf(folder) != folder) {
        code = MakeFolders(FolderOf(folder));
        if (code == kErrorSuccess)
            code = Files().CreateFolder(folder, kFolderMode);
    }
    return code == kErrorAlreadyExists ? kErrorSuccess : code;
}

unsigned LockStore(const std::string& root, unsigned patience, std::unique_ptr<IFile>& lock)
{
    const std::string path = root + '/' + std::string(kLockFile);
    const auto open = [&] {
        return Files().Open(path, VFileAccess::ReadWrite, VFileDisposition::OpenAlways, kFileMode, lock);
    };
    unsigned code = open();
    if (IsMissing(code)) {
        code = MakeFolders(root);
        if (code == kErrorSuccess)
            code = open();
    }
    return code == kErrorSuccess ? lock->Lock(patience) : code;
}

} // namespace ostrand
