// Stores behind JSON: a key as {"value name": {"dword" | "string" | "list" | "block": ...}}, filled from a case and
// told again, with a watch on what was written.
#pragma once

#include "profile/key.h"
#include "stores/memory_store.h"
#include "tests/vectors/json_text.h"

#include <optional>

namespace ostrand::vectors {

/// A memory store of its own with the key that a case speaks of, which holds what `values` says.
class JsonStore {
public:
    explicit JsonStore(const Json& values = Json::object(), const char16_t* keyName = kKey);

    MemoryStoreFactory& Factory() { return m_factory; }
    /// Open for writing.
    VProfileKey* Key() { return &*m_key; }
    /// One value; null where there is none.
    Json Value(const VUnicodeString& name) const;
    /// All values.
    Json Values() const;
    /// Whether anything was written since the last call.
    bool TakeWrote();

    static constexpr const char16_t* kKey = u"Global";

private:
    std::u16string m_keyName;
    MemoryStoreFactory m_factory;
    std::optional<VProfileStore> m_store;
    std::optional<VProfileKey> m_key;
};

/// Makes a store the default one for its own lifetime; null counts as one without values. One at a time.
class DefaultStore {
public:
    explicit DefaultStore(VProfileStoreFactory* factory = nullptr);
    ~DefaultStore();
    DefaultStore(const DefaultStore&) = delete;
    DefaultStore& operator=(const DefaultStore&) = delete;

private:
    static inline VProfileStoreFactory* s_factory = nullptr;
    MemoryStoreFactory m_empty;
};

/// What a step reads: its "store", none for a null key.
std::optional<JsonStore> StoreOf(const Json& step, const char* member = "store");

} // namespace ostrand::vectors
