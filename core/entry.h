// Exported entry points: start-up, and the one global configuration of the process. An application calls, in this
// order, OstrandUiInit, OstrandUiInitProfileFactory, OstrandUiInitClientApplications (core/product.h),
// OstrandUiInitGUI.
#pragma once

#include "core/module_state.h"
#include "core/report.h"
#include "platform/export.h"
#include "profile/key.h"

namespace ostrand {

/// Takes the getter of the router that shows messages; may be null. Fills the tables of emulations
/// (config/session/emulations.h), still without termcap entries.
OSTRAND_API void OstrandUiInit(VReportRouterGetter getter);
/// Takes the getter of the factory that every later default store goes through. Must precede all that opens a store.
OSTRAND_API void OstrandUiInitProfileFactory(VProfileStoreFactoryGetter getter);
/// Takes the session picker and the image list, and creates the global configuration if it isn't there yet. The tables
/// of emulations are filled anew, now with the termcap entries that the user selected.
OSTRAND_API void OstrandUiInitGUI(VSessionPicker picker, VImageListGetter getter);

/// The one configuration, read from the store at the first call; lent, no reference is added. `productId` chooses the
/// application's names at that first call, -1 meaning by the application's name. The reading, here and in a reload,
/// fills the tables of emulations anew. Takes no lock. Don't keep the pointer across ResetGlobalConfig or
/// ReloadGlobalConfig without a reference of your own.
OSTRAND_API void GetGlobalConfig(GlobalConfig*& config, int productId);
/// Drops the configuration under its lock, saving nothing; `config` becomes null.
OSTRAND_API void ResetGlobalConfig(GlobalConfig*& config);
/// Drops the configuration under its lock and reads it anew; unsaved changes are lost.
OSTRAND_API void ReloadGlobalConfig(GlobalConfig*& config);
/// Writes what is changed or pending, with `force` everything; the configuration must exist. False when the store
/// refused: `report`, if given, says why. Writes that the store took and could not bring to its medium stay queued
/// there for the next save; a value whose write it didn't take at all counts as saved and goes out with a forced save.
OSTRAND_API bool SaveGlobalConfig(bool force, IReportMessageParams* report = nullptr);
/// Lays another key's values over the configuration, which must exist. Nothing is written.
OSTRAND_API void MergeGlobalConfig(const VProfileKey& key);

/// Holds the global configuration and its lock for a scope, through a reload too: the old object lives until the end.
/// With no configuration it locks nothing; there is then nothing to guard.
class OSTRAND_API VGlobalConfigLock {
public:
    VGlobalConfigLock();
    ~VGlobalConfigLock();
    VGlobalConfigLock(const VGlobalConfigLock&) = delete;
    VGlobalConfigLock& operator=(const VGlobalConfigLock&) = delete;

private:
    VUnknownPointer<GlobalConfig> m_config;
};

} // namespace ostrand
