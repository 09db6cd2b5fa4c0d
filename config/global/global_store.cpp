#include "config/global/global_store.h"

#include <algorithm>

namespace ostrand {

namespace {

constexpr const char16_t* kGlobalKey = u"Global";
constexpr const char16_t* kButtonBarKey = u"ButtonBar";
constexpr const char16_t* kDefaultBar = u"Default";

/// By force, and only when something but the time has changed.
void SaveQuickSynchronizeTask(GlobalConfig& config, const VProfileKey& root, IReportMessageParams& outcome)
{
    SynchronizeProfile& task = config.quickSynchronizeTask;
    if (!task.IsModified())
        return;
    VProfileKey key(&root, task.name.c_str());
    task.Save(&key, true);
    static_cast<void>(key.Flush(outcome));
}

} // namespace

VUnknownPointer<GlobalConfig> ReadGlobalConfig(bool isOrvane)
{
    VProfileStore store(true);
    const VProfileKey key(store.GetRootKey(), kGlobalKey);
    return VUnknownPointer<GlobalConfig>::Adopt(new GlobalConfig(&key, isOrvane));
}

bool WriteGlobalConfig(GlobalConfig& config, bool force, IReportMessageParams& report)
{
    config.UndoOverrides();
    VProfileStore store;
    VProfileKey key(store.GetRootKey(), kGlobalKey);
    // The three frames go first and unforced; a forced save writes them once more at their place in the table.
    config.localExplorerFrameState.Save(&key, false);
    config.remoteExplorerFrameState.Save(&key, false);
    config.synchronizeExplorerFrameState.Save(&key, false);
    VReportMessageParams ofTasks, ofValues;
    SaveQuickSynchronizeTask(config, *store.GetRootKey(), ofTasks);
    config.Save(&key, force);
    static_cast<void>(key.Flush(ofValues));
    // All is written as far as it goes; the first refusal is told.
    for (IReportMessageParams* const outcome :
         {static_cast<IReportMessageParams*>(&ofTasks), &config.colorSchemes.GetSaveReport(),
          static_cast<IReportMessageParams*>(&ofValues)})
        if (outcome->GetCode() != 0) {
            report.Assign(outcome);
            return false;
        }
    return true;
}

void GetButtonBarNames(VStringArray& out)
{
    VProfileStore store(true);
    const VProfileKey key(store.GetRootKey(), kButtonBarKey);
    VProfileKeyIterator values(&key, true);
    VUnicodeString name;
    int type = 0;
    while (values.NextValue(name, &type))
        if (type == static_cast<int>(VProfileValueType::MultiSz))
            out.Append(name);
    if (std::find(out.begin(), out.end(), kDefaultBar) == out.end())
        out.Append(kDefaultBar);
}

} // namespace ostrand
