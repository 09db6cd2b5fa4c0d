// VProfileBlob: a block of any size in a form of its owner's. It departs from the model of all other values in several
// points, which existing stores and applications rely on; each is marked.
#pragma once

#include "platform/export.h"
#include "profile/value.h"

#include <cstdint>
#include <memory>
#include <span>
#include <vector>

namespace ostrand {

class OSTRAND_API VProfileBlob : public VProfileData {
public:
    VProfileBlob() = default;
    /// The bytes, the name and `dirty`, without the saved copy.
    VProfileBlob(const VProfileBlob& other) : VProfileData(other), data(other.data) {}
    /// Takes the bytes, the name and, if `other` has one, the saved copy; schedules a write.
    VProfileBlob& operator=(const VProfileBlob& other);

    /// On purpose: an empty block is never written, even by force; and a write doesn't clear `dirty`, so a blob once
    /// dirty is written by every later save.
    void Save(VProfileKey* key, bool force) override;
    /// Without a saved copy, whether there are any bytes.
    bool IsModified() const override;
    /// On purpose: sets `dirty` when the block is NOT modified.
    void AcceptChanges() override;
    /// The bytes of the saved copy. Without one nothing happens.
    void RevertChanges() override;
    /// On purpose: an assignment, so the saved copy comes along and a write is scheduled.
    void CopyValue(const VProfileData& other) override;
    VProfileData* GetMember(int) override { return this; }

    /// As Load with the name it has. False for a null key or a missing value.
    virtual bool ReadValue(const VProfileKey* key);
    /// True with a null key, which reads nothing. False for a missing or empty value: bytes, saved copy and `dirty`
    /// then stay.
    virtual bool Load(const VProfileKey* key, const VUnicodeString& valueName);
    /// In bytes.
    virtual unsigned GetSize() const { return static_cast<unsigned>(data.size()); }

    void SetData(std::span<const uint8_t> bytes) { data.assign(bytes.begin(), bytes.end()); }

    std::vector<uint8_t> data;
    std::unique_ptr<VProfileBlob> savedCopy; ///< null until a read or save

private:
    void KeepAsSaved() { savedCopy = std::make_unique<VProfileBlob>(*this); }
};

} // namespace ostrand
