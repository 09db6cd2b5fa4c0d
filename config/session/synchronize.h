// SynchronizeProfile: the file-transfer client's list of synchronize tasks, kept in one key.
#pragma once

#include "config/session/synchronize_task.h"
#include "profile/time_value.h"
#include "profile/values.h"
#include "profile/zone_information.h"

#include <memory>

namespace ostrand {

/// A value of its own kind: instead of a saved copy of each field it has a snapshot of all. Saves write everything;
/// what a longer list left in the key stays there, and is read back. One thread at a time.
class OSTRAND_API SynchronizeProfile : public VProfileData {
public:
    SynchronizeProfile();
    /// With a snapshot of its own, where the other has one.
    SynchronizeProfile(const SynchronizeProfile& other);
    /// Takes name, tasks, selections, time and filter with their marks, and the snapshot where both have one.
    SynchronizeProfile& operator=(const SynchronizeProfile& other);

    /// Reads the tasks of the key under this name and takes a snapshot; of a null key, the snapshot alone. True when
    /// there was a task. A time of former releases, which is local, becomes the current time where the key has no
    /// other.
    bool Load(const VProfileKey* key, const VUnicodeString& profileName);
    /// On purpose: true only where the key has a child key of this object's name, and yet the key itself is read. Held
    /// by Synchronize.AMergeLooksForAChildAndReadsTheKey.
    bool ReadValue(const VProfileKey* key);

    /// On purpose: deletes keys, and not values, that are named like the stored values, so these stay. Held by
    /// Synchronize.AShorterListLeavesTheRest.
    void Save(VProfileKey* key, bool force) override;
    /// Without a snapshot true. A new time alone is no change.
    bool IsModified() const override;
    void AcceptChanges() override;
    /// Nothing without a snapshot.
    void RevertChanges() override;
    /// The snapshot stays, so that what an editor brings back counts as a change.
    void CopyValue(const VProfileData& other) override;
    VProfileData* GetMember(int) override { return this; }

    // Selections of the application's dialog; -1 for none. Not stored.
    int selectedTask = -1;
    int selectedItem = -1;
    VProfileTime lastSyncTime; ///< zero: never
    VArray<SynchronizeTask> tasks{3};
    VProfile2<VUnicodeString, VProfileSz> filter; ///< name of a filter definition
    /// In which the time of former releases is told; null for the process's own.
    std::unique_ptr<VTimeZoneInformation> timeZone;

private:
    void CopyFields(const SynchronizeProfile& other);
    void TakeSnapshot();
    void ReadTasks(const VProfileKey& key);
    void ReadFormerTime(const VProfileKey& key);

    std::unique_ptr<SynchronizeProfile> m_snapshot; // has none itself
};

} // namespace ostrand
