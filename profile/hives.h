// Hives: two trees of keys beside the application's own store, one of the user and one of the machine. They hold where
// the configuration lies, and what an administrator has decided. On systems without a registry a hive is a folder with
// a file store (stores/hive_files.h); a machine without such folders has empty hives.
#pragma once

#include "profile/backend.h"

#include <memory>

namespace ostrand {

enum class VHive { CurrentUser, LocalMachine };

inline constexpr const char16_t* kRegistryBase = u"SOFTWARE\\Hollowmere";
inline constexpr const char16_t* kFormerRegistryBase = u"SOFTWARE\\Hollowmere Works";

/// Makes stores whose root is a key of a hive.
class OSTRAND_API VRegistryStoreFactory : public VProfileStoreFactory {
public:
    /// An empty path means the hive's root.
    VRegistryStoreFactory(VHive h, std::u16string_view p) : hive(h), path(p) {}
    VProfilePrivateStore* CreateStore() override;

    VHive hive;
    VUnicodeString path;
};

/// A store of the whole hive; where it lies is the business of the layer above.
std::unique_ptr<VProfilePrivateStore> OpenHive(VHive hive);

/// The factory of the library's own values, one for the process. Begins at the base key that is there: the current one
/// of the user, of the machine, then the former one of both; else the user's current one. Changed and used on one
/// thread.
OSTRAND_API VRegistryStoreFactory& DefaultRegistryFactory();
/// For tests: looks for the base key again.
OSTRAND_API void FindRegistryBase();

/// Path of an application's product key: the current one of the machine, the former one of the machine, the same of the
/// user, whichever can be opened first; else the current one.
OSTRAND_API VUnicodeString BuildProductKeyPath(std::u16string_view application);

/// Levels of a key's path with "\" between; empty ones are left out.
OSTRAND_API VUnicodeString JoinKeys(std::u16string_view a, std::u16string_view b);

} // namespace ostrand
