// Public handles on a store: VProfileStore, VProfileKey, VProfileKeyIterator. Short-lived objects on the stack, one
// thread at a time; configuration objects keep none of them.
//
//     VProfileStore store(true);                              // read-only
//     VProfileKey global(store.GetRootKey(), u"Global");
//     unsigned columns = 0;
//     if (!global.ReadDword(u"Max Columns", &columns)) ...    // missing, or of another kind
#pragma once

#include "profile/backend.h"
#include "profile/store_extras.h"

#include <memory>
#include <utility>

namespace ostrand {

class VProfileKey;

class OSTRAND_API VProfileStore {
public:
    /// Read-write. A null factory means the one that the application installed; with none installed the process ends
    /// with a message, since a silent default would write settings where nobody looks.
    explicit VProfileStore(VProfileStoreFactory* factory = nullptr) : VProfileStore(false, factory) {}
    explicit VProfileStore(bool readOnly, VProfileStoreFactory* factory = nullptr);
    virtual ~VProfileStore();
    VProfileStore(const VProfileStore&) = delete;
    VProfileStore& operator=(const VProfileStore&) = delete;

    /// Lent; keys opened from it may outlive this store.
    VProfileKey* GetRootKey() const { return m_root.get(); }
    /// What the store offers besides its keys. Lent, and never none: a store without it answers "not supported".
    IStoreExtras& Extras() const;

private:
    friend class VProfileKey;
    std::unique_ptr<VProfilePrivateStore> m_private;
    std::unique_ptr<VProfileKey> m_root;
    bool m_readOnly;
};

/// Forwards to the back end, one to one; see VProfilePrivateKey for what each operation promises. What only reads is
/// const. Writes may stay in memory until `Flush` or the end of this handle.
class OSTRAND_API VProfileKey {
public:
    explicit VProfileKey(VProfileStore& store) : m_private(store.m_private->OpenRootKey(store.m_readOnly)) {}
    VProfileKey(const VProfileKey* parent, const char16_t* name) : m_private(parent->m_private->OpenKey(name, nullptr))
    {
    }
    /// A handle on a key that its maker brings along.
    explicit VProfileKey(std::unique_ptr<VProfilePrivateKey> backEnd) : m_private(std::move(backEnd)) {}
    virtual ~VProfileKey() = default;
    VProfileKey(const VProfileKey&) = delete;
    VProfileKey& operator=(const VProfileKey&) = delete;

    bool ReadSecurity(const char16_t* name, VSecurityDescriptor& out) const
    {
        return m_private->ReadSecurity(name, out);
    }
    bool ReadMultiSz(const char16_t* name, VStringArray& out) const { return m_private->ReadMultiSz(name, out); }
    bool ReadBinary(const char16_t* name, void* data, unsigned* size) const
    {
        return m_private->ReadBinary(name, data, size);
    }
    bool ReadString(const char16_t* name, VUnicodeString& out) const { return m_private->ReadString(name, out); }
    bool ReadDword(const char16_t* name, unsigned* out) const { return m_private->ReadDword(name, out); }
    bool WriteSecurity(const char16_t* name, VSecurityDescriptor& value)
    {
        return m_private->WriteSecurity(name, value);
    }
    bool WriteMultiSz(const char16_t* name, const VStringArray& value) { return m_private->WriteMultiSz(name, value); }
    bool WriteBinary(const char16_t* name, const void* data, unsigned size)
    {
        return m_private->WriteBinary(name, data, size);
    }
    bool WriteString(const char16_t* name, const char16_t* value) { return m_private->WriteString(name, value); }
    bool WriteDword(const char16_t* name, unsigned value) { return m_private->WriteDword(name, value); }
    bool DeleteValue(const char16_t* name) { return m_private->DeleteValue(name); }
    bool DeleteKey(const char16_t* name) { return m_private->DeleteKey(name); }
    bool KeyExists(const char16_t* name) const { return m_private->KeyExists(name); }
    bool IsWritable() const { return m_private->IsWritable(); }
    bool SetKeySecurity(VSecurityDescriptor* value) { return m_private->SetKeySecurity(value); }
    IReportMessageParams& GetStatus() const { return m_private->GetStatus(); }
    /// Owned by the caller.
    VProfilePrivateKey* OpenKey(const char16_t* name, VSecurityDescriptor* security) const
    {
        return m_private->OpenKey(name, security);
    }
    /// Owned by the caller.
    VProfilePrivateKeyIterator* CreateIterator(bool values) const { return m_private->CreateIterator(values); }
    /// The back end's own handle, for interfaces that only some stores offer. Lent.
    VProfilePrivateKey* GetBackEnd() const { return m_private.get(); }
    /// Brings written values to the medium. True where there is nothing to do; on failure `report` says why and the
    /// writes stay queued for another try.
    [[nodiscard]] bool Flush(IReportMessageParams& report) { return m_private->Flush(report); }

private:
    std::unique_ptr<VProfilePrivateKey> m_private;
};

class OSTRAND_API VProfileKeyIterator {
public:
    VProfileKeyIterator(const VProfileKey* key, bool values) : m_private(key->CreateIterator(values)) {}
    virtual ~VProfileKeyIterator() = default;
    VProfileKeyIterator(const VProfileKeyIterator&) = delete;
    VProfileKeyIterator& operator=(const VProfileKeyIterator&) = delete;

    /// `type` is one of VProfileValueType.
    virtual bool NextValue(VUnicodeString& name, int* type) { return m_private->NextValue(name, type); }
    virtual bool Next(VUnicodeString& name) { return m_private->Next(name); }

private:
    std::unique_ptr<VProfilePrivateKeyIterator> m_private;
};

} // namespace ostrand
