// What a store must be: the abstract back end behind VProfileStore, VProfileKey and VProfileKeyIterator. A back end
// derives from the three private classes and from VProfileStoreFactory. Configuration code never sees which one it is.
#pragma once

#include "core/array.h"
#include "core/report.h"
#include "core/strings.h"
#include "platform/export.h"

namespace ostrand {

struct SECURITY_ATTRIBUTES;
class VSecurityDescriptor;

/// Kind of a stored value, as an iterator reports it.
enum class VProfileValueType : int {
    Dword = 0,
    String = 1,
    Binary = 2,
    MultiSz = 3,
    Subkey = 4,
    Other = -1, ///< a kind that the back end holds and this version doesn't know
};

/// Walks names as of its creation. `NextValue` and `Next` advance the same position; false at the end.
class VProfilePrivateKeyIterator {
public:
    virtual ~VProfilePrivateKeyIterator() = default;
    virtual bool NextValue(VUnicodeString& name, int* type) = 0;
    virtual bool Next(VUnicodeString& name) = 0;
};

/// One key of a store. Names are value names or, where a comment says so, names of subkeys below this key; they ignore
/// case, and a subkey name may go through several levels parted by "\". An operation that fails answers false and
/// leaves its code in the status; a read that fails leaves its target untouched. One thread at a time.
class VProfilePrivateKey {
public:
    virtual ~VProfilePrivateKey() = default;
    /// False where the back end has no access rights, or the block is no valid descriptor.
    virtual bool ReadSecurity(const char16_t* name, VSecurityDescriptor& out) = 0;
    virtual bool ReadMultiSz(const char16_t* name, VStringArray& out) = 0;
    /// `*size`: room in bytes on entry, bytes stored on return. With null `data` only `*size` is answered. False also
    /// for a block longer than the room.
    virtual bool ReadBinary(const char16_t* name, void* data, unsigned* size) = 0;
    virtual bool ReadString(const char16_t* name, VUnicodeString& out) = 0;
    virtual bool ReadDword(const char16_t* name, unsigned* out) = 0;
    virtual bool WriteSecurity(const char16_t* name, VSecurityDescriptor& value) = 0;
    virtual bool WriteMultiSz(const char16_t* name, const VStringArray& value) = 0;
    virtual bool WriteBinary(const char16_t* name, const void* data, unsigned size) = 0;
    virtual bool WriteString(const char16_t* name, const char16_t* value) = 0;
    virtual bool WriteDword(const char16_t* name, unsigned value) = 0;
    virtual bool DeleteValue(const char16_t* name) = 0;
    /// A subkey with all that lies under it; never a value of that name.
    virtual bool DeleteKey(const char16_t* name) = 0;
    /// Whether the subkey can be opened for reading. Leaves the status alone.
    virtual bool KeyExists(const char16_t* name) = 0;
    /// Whether values and subkeys can be changed through this handle.
    virtual bool IsWritable() = 0;
    virtual bool ReservedKeyOperation() { return false; }
    /// Clears the status, and applies the descriptor if there is one. True if the status is then clear.
    virtual bool SetKeySecurity(VSecurityDescriptor* value) = 0;
    /// Outcome of the last operation, kept in the key.
    virtual IReportMessageParams& GetStatus() = 0;
    /// A new handle on the subkey with this key's read-only state, owned by the caller; created if that state allows.
    /// Never null: a failure yields a handle on which all reads and writes fail.
    virtual VProfilePrivateKey* OpenKey(const char16_t* name, VSecurityDescriptor* security) = 0;
    /// Over the values or the subkeys, in the back end's order. Owned by the caller.
    virtual VProfilePrivateKeyIterator* CreateIterator(bool values) = 0;
    /// Brings what was written through handles of this key to the store's medium. True where there is nothing to do;
    /// on failure the report says why, and the writes are kept for another try. False, once, also after a write that
    /// was refused through this handle: so a caller that writes many values asks one question.
    virtual bool Flush(IReportMessageParams& report) = 0;
};

class VProfilePrivateStore {
public:
    virtual ~VProfilePrivateStore() = default;
    /// A new handle on the root, owned by the caller. It may outlive the store.
    virtual VProfilePrivateKey* OpenRootKey(bool readOnly) = 0;
};

/// Makes stores. Owned by the application; must outlive the stores it made.
class OSTRAND_API VProfileStoreFactory {
public:
    virtual ~VProfileStoreFactory() = default;
    /// Owned by the caller.
    virtual VProfilePrivateStore* CreateStore() = 0;
    /// Rights of new keys on platforms that have them; null elsewhere.
    SECURITY_ATTRIBUTES* GetSecurityAttributes() const { return securityAttributes; }

    SECURITY_ATTRIBUTES* securityAttributes = nullptr;
};

using VProfileStoreFactoryGetter = VProfileStoreFactory* (*)();
/// Stores made without a factory ask this getter, at each construction. Null takes it away (tests).
OSTRAND_API void SetProfileStoreFactoryGetter(VProfileStoreFactoryGetter getter);
/// What the getter answers; null without one.
OSTRAND_API VProfileStoreFactory* GetProfileStoreFactory();

} // namespace ostrand
