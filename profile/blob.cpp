#include "profile/blob.h"

namespace ostrand {

VProfileBlob& VProfileBlob::operator=(const VProfileBlob& other)
{
    if (this == &other) {
        dirty = true;
        return *this;
    }
    if (other.savedCopy)
        savedCopy = std::make_unique<VProfileBlob>(*other.savedCopy);
    VProfileData::operator=(other);
    data = other.data;
    return *this;
}

void VProfileBlob::Save(VProfileKey* key, bool force)
{
    if (!key || data.empty() || (!force && !IsDirty() && !IsModified()))
        return;
    key->WriteBinary(name.c_str(), data.data(), GetSize());
    KeepAsSaved();
}

bool VProfileBlob::IsModified() const { return savedCopy ? data != savedCopy->data : !data.empty(); }

void VProfileBlob::AcceptChanges()
{
    if (!IsModified())
        dirty = true;
    KeepAsSaved();
}

void VProfileBlob::RevertChanges()
{
    if (savedCopy)
        data = savedCopy->data;
}

void VProfileBlob::CopyValue(const VProfileData& other) { *this = dynamic_cast<const VProfileBlob&>(other); }

bool VProfileBlob::ReadValue(const VProfileKey* key)
{
    unsigned size = 0;
    return key && key->ReadBinary(name.c_str(), nullptr, &size) && Load(key, name);
}

bool VProfileBlob::Load(const VProfileKey* key, const VUnicodeString& valueName)
{
    SetName(valueName);
    if (!key)
        return true;
    unsigned size = 0;
    if (!key->ReadBinary(name.c_str(), nullptr, &size) || size == 0)
        return false;
    std::vector<uint8_t> stored(size);
    if (!key->ReadBinary(name.c_str(), stored.data(), &size))
        return false;
    stored.resize(size);
    data = std::move(stored);
    dirty = false;
    KeepAsSaved();
    return true;
}

} // namespace ostrand
