#include "stores/hive_files.h"

#include "core/native_path.h"
#include "core/paths/known_folders.h"
#include "platform/places.h"
#include "stores/file_store.h"
#include "stores/store_key.h"

#include <mutex>

namespace ostrand {

namespace {

constexpr const char* kHiveBelowConfig = "/hollowmere/registry";

/// A hive without a place.
class NoStore final : public VProfilePrivateStore {
public:
    VProfilePrivateKey* OpenRootKey(bool) override { return new FailedKey(kErrorFileNotFound); }
};

/// Both hives; what was learned of the files stays for the next store.
struct Hives {
    struct Hive {
        std::string folder;
        std::unique_ptr<FileStoreFactory> stores;
    };

    std::mutex mutex;
    Hive hives[2];
    VHiveFolderFunction folderFunction = nullptr;
};

Hives& TheHives()
{
    // Never destroyed: values are asked for while static objects go.
    static Hives& hives = *new Hives;
    return hives;
}

std::string UsualFolder(VHive hive)
{
    // On purpose: a fixed place. Variables that list folders are the user's to set, and a policy isn't.
    if (hive == VHive::LocalMachine)
        return std::string(kMachineConfigFolder) + kHiveBelowConfig;
    VUnicodeString config;
    std::string folder;
    if (!GetKnownFolder(VKnownFolder::Config, config) || !ToNativePath(config, folder))
        return {};
    return folder + kHiveBelowConfig;
}

} // namespace

std::string HiveFolder(VHive hive)
{
    const VHiveFolderFunction function = TheHives().folderFunction;
    return function ? function(hive) : UsualFolder(hive);
}

void SetHiveFolderFunction(VHiveFolderFunction function) { TheHives().folderFunction = function; }

std::unique_ptr<VProfilePrivateStore> OpenHive(VHive hive)
{
    const std::string folder = HiveFolder(hive);
    if (folder.empty())
        return std::make_unique<NoStore>();
    Hives& all = TheHives();
    const std::lock_guard guard(all.mutex);
    Hives::Hive& known = all.hives[static_cast<size_t>(hive)];
    if (known.folder != folder)
        known = {folder, std::make_unique<FileStoreFactory>(folder)};
    return std::unique_ptr<VProfilePrivateStore>(known.stores->CreateStore());
}

} // namespace ostrand
