#include "config/session/synchronize.h"

#include "profile/block.h"
#include "profile/time_zones.h"

namespace ostrand {

namespace {

constexpr const char16_t* kFormerTime = u"Last Sync Time";

bool ReadCalendarTime(const VProfileKey& key, const char16_t* name, VCalendarTime& out)
{
    std::array<uint8_t, 16> block{};
    unsigned size = block.size();
    if (!key.ReadBinary(name, block.data(), &size) || size != block.size())
        return false;
    UnpackFields(std::span<const uint8_t, 16>(block), std::tie(out.year, out.month, out.dayOfWeek, out.day, out.hour,
                                                               out.minute, out.second, out.millisecond));
    return true;
}

} // namespace

SynchronizeProfile::SynchronizeProfile()
{
    lastSyncTime.SetName(u"Last Sync Time V2");
    filter.SetName(u"Filter");
}

SynchronizeProfile::SynchronizeProfile(const SynchronizeProfile& other)
    : VProfileData(other),
      selectedTask(other.selectedTask),
      selectedItem(other.selectedItem),
      lastSyncTime(other.lastSyncTime),
      tasks(other.tasks),
      filter(other.filter),
      timeZone(other.timeZone ? std::make_unique<VTimeZoneInformation>(*other.timeZone) : nullptr),
      m_snapshot(other.m_snapshot ? std::make_unique<SynchronizeProfile>(*other.m_snapshot) : nullptr)
{
}

SynchronizeProfile& SynchronizeProfile::operator=(const SynchronizeProfile& other)
{
    if (this == &other)
        return *this;
    VProfileData::operator=(other);
    CopyFields(other);
    if (m_snapshot && other.m_snapshot)
        m_snapshot->CopyFields(*other.m_snapshot);
    return *this;
}

bool SynchronizeProfile::Load(const VProfileKey* key, const VUnicodeString& profileName)
{
    SetName(profileName);
    if (key) {
        selectedTask = selectedItem = -1;
        lastSyncTime.Load(key, VFileTime());
        if (lastSyncTime.ticks == 0)
            ReadFormerTime(*key);
        ReadTasks(*key);
        filter.Load(key, VUnicodeString());
    }
    TakeSnapshot();
    return key && tasks.GetCount() > 0;
}

bool SynchronizeProfile::ReadValue(const VProfileKey* key)
{
    return key && key->KeyExists(name.c_str()) && Load(key, VUnicodeString(name));
}

void SynchronizeProfile::Save(VProfileKey* key, bool force)
{
    if (key) {
        VProfileKeyIterator values(key, true);
        VUnicodeString valueName;
        int type = 0;
        while (values.NextValue(valueName, &type))
            key->DeleteKey(valueName.c_str());
        lastSyncTime.Save(key, force);
        int number = 0;
        for (const SynchronizeTask& task : tasks)
            task.Write(*key, number++);
    }
    filter.Save(key, force);
    dirty = false;
    TakeSnapshot();
}

bool SynchronizeProfile::IsModified() const
{
    return !m_snapshot || selectedTask != m_snapshot->selectedTask || selectedItem != m_snapshot->selectedItem ||
           !(tasks == m_snapshot->tasks) || !(filter.Value() == m_snapshot->filter.Value());
}

void SynchronizeProfile::AcceptChanges() { TakeSnapshot(); }

void SynchronizeProfile::RevertChanges()
{
    if (m_snapshot)
        CopyFields(*m_snapshot);
}

void SynchronizeProfile::CopyValue(const VProfileData& data)
{
    const auto& other = dynamic_cast<const SynchronizeProfile&>(data);
    selectedTask = other.selectedTask;
    selectedItem = other.selectedItem;
    lastSyncTime = other.lastSyncTime.Value();
    tasks = other.tasks;
    filter = other.filter.Value();
}

void SynchronizeProfile::CopyFields(const SynchronizeProfile& other)
{
    CopyValue(other);
    lastSyncTime.dirty = other.lastSyncTime.dirty;
    filter.dirty = other.filter.dirty;
}

void SynchronizeProfile::TakeSnapshot()
{
    if (!m_snapshot)
        m_snapshot = std::make_unique<SynchronizeProfile>();
    m_snapshot->CopyFields(*this);
}

void SynchronizeProfile::ReadTasks(const VProfileKey& key)
{
    tasks.RemoveAll();
    for (int number = 0;; ++number) {
        SynchronizeTask task;
        if (!task.Read(key, number))
            return;
        tasks.Append(std::move(task));
    }
}

void SynchronizeProfile::ReadFormerTime(const VProfileKey& key)
{
    VCalendarTime local, utc;
    VFileTime time;
    if (ReadCalendarTime(key, kFormerTime, local) && VTimeZone::LocalToUtc(timeZone.get(), local, utc) &&
        ToFileTime(utc, time))
        lastSyncTime = time;
}

} // namespace ostrand
