// What a save would change: a key that takes all writes and passes none of them on. Those that differ from what the key
// holds are kept as a list.
//
//     std::vector<StoredChange> changes;
//     VProfileKey recorder(std::make_unique<ChangeRecorder>(&key, changes));
//     record.Save(&recorder, true);
#pragma once

#include "profile/stored_value.h"

#include <memory>
#include <optional>
#include <vector>

namespace ostrand {

/// One value of a key, or of a key below it.
struct StoredChange {
    VUnicodeString key; ///< path below the recorded key, empty for itself
    VUnicodeString name;
    std::optional<StoreValue> before; ///< none: it isn't there
    std::optional<StoreValue> after;  ///< none: it goes
};

/// Reads show the key as it is. Subkeys are recorded, too, and a missing one isn't made; deleting one isn't supported.
/// Of several writes of one value the last one counts.
class OSTRAND_API ChangeRecorder : public VProfilePrivateKey {
public:
    /// Both are lent; a null key is one that isn't there.
    ChangeRecorder(const VProfileKey* key, std::vector<StoredChange>& changes) : m_key(key), m_changes(changes) {}

    bool ReadSecurity(const char16_t* name, VSecurityDescriptor& out) override
    {
        return m_key && m_key->ReadSecurity(name, out);
    }
    bool ReadMultiSz(const char16_t* name, VStringArray& out) override
    {
        return m_key && m_key->ReadMultiSz(name, out);
    }
    bool ReadBinary(const char16_t* name, void* data, unsigned* size) override
    {
        return m_key && m_key->ReadBinary(name, data, size);
    }
    bool ReadString(const char16_t* name, VUnicodeString& out) override
    {
        return m_key && m_key->ReadString(name, out);
    }
    bool ReadDword(const char16_t* name, unsigned* out) override { return m_key && m_key->ReadDword(name, out); }
    bool WriteSecurity(const char16_t*, VSecurityDescriptor&) override { return false; }
    bool WriteMultiSz(const char16_t* name, const VStringArray& value) override { return Note(name, value); }
    bool WriteBinary(const char16_t* name, const void* data, unsigned size) override;
    bool WriteString(const char16_t* name, const char16_t* value) override { return Note(name, VUnicodeString(value)); }
    bool WriteDword(const char16_t* name, unsigned value) override { return Note(name, value); }
    bool DeleteValue(const char16_t* name) override { return Note(name, std::nullopt); }
    bool DeleteKey(const char16_t*) override { return false; }
    bool KeyExists(const char16_t* name) override { return m_key && m_key->KeyExists(name); }
    bool IsWritable() override { return true; }
    bool SetKeySecurity(VSecurityDescriptor*) override { return false; }
    IReportMessageParams& GetStatus() override { return m_key ? m_key->GetStatus() : m_status; }
    VProfilePrivateKey* OpenKey(const char16_t* name, VSecurityDescriptor*) override;
    VProfilePrivateKeyIterator* CreateIterator(bool values) override;
    bool Flush(IReportMessageParams&) override { return true; }

private:
    bool Note(const char16_t* name, std::optional<StoreValue> after);
    std::optional<StoreValue> Stored(const char16_t* name, const std::optional<StoreValue>& after) const;

    std::unique_ptr<VProfileKey> m_own; // where this is a key below the recorded one
    const VProfileKey* m_key;
    std::vector<StoredChange>& m_changes;
    VUnicodeString m_path;
    VReportMessageParams m_status; // of a key that isn't there
};

/// Writes what was recorded to the key, and flushes the keys that it wrote to. False, with the reason, at the first
/// refusal.
OSTRAND_API bool WriteChanges(VProfileKey& key, const std::vector<StoredChange>& changes, IReportMessageParams& report);

} // namespace ostrand
