#include "config/global/global_config.h"

#include "core/module_state.h"

namespace ostrand {

namespace {

/// Whether the store was there before: told by the presence of Version, not by its content.
bool HasVersion(const VProfileKey* key)
{
    VUnicodeString ignored;
    return key && key->ReadString(u"Version", ignored);
}

const VUnicodeString kQuickSync = u"QuickSync";

template <class Read>
void WithQuickSyncKey(Read read)
{
    const VProfileStore store(true);
    const VProfileKey tasks(store.GetRootKey(), kQuickSync.c_str());
    read(&tasks);
}

} // namespace

GlobalConfig::GlobalConfig(const VProfileKey* key, bool isOrvane) : m_isOrvane(isOrvane)
{
    Schema().Load(*this, ReadContext{{key, isOrvane}, HasVersion(key)});
    if (key)
        WithQuickSyncKey([this](const VProfileKey* tasks) { quickSynchronizeTask.Load(tasks, kQuickSync); });
    else
        quickSynchronizeTask.Load(nullptr, kQuickSync);
}

void GlobalConfig::Lock()
{
    if (ISynchObject* const lock = ModuleState().configurationLock.Get())
        lock->Lock();
}

void GlobalConfig::Unlock()
{
    if (ISynchObject* const lock = ModuleState().configurationLock.Get())
        lock->Unlock();
}

void GlobalConfig::Merge(const VProfileKey* key)
{
    Schema().Merge(*this, key);
    if (key)
        WithQuickSyncKey([this](const VProfileKey* tasks) { quickSynchronizeTask.ReadValue(tasks); });
}

VProfileData* GlobalConfig::GetMember(int index) { return Schema().GetMember(*this, index); }

VProfileData* GlobalConfig::FindMember(std::u16string_view valueName)
{
    const VSchema<GlobalConfig>& schema = Schema();
    return schema.GetMember(*this, schema.FindMember(valueName, m_isOrvane));
}

void GlobalConfig::UndoOverrides()
{
    if (transferTypeOverridden)
        transferType.RevertChanges();
    if (overwriteActionOverridden)
        overwriteAction.RevertChanges();
    if (logFileOverridden) {
        enableLogFile.RevertChanges();
        logFile.RevertChanges();
    }
    if (retryOverridden) {
        retryAttempts.RevertChanges();
        retryDelay.RevertChanges();
    }
}

} // namespace ostrand
