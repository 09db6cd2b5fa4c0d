// A memory store that is the default one for its lifetime, with what stands below one key.
#pragma once

#include "profile/key.h"
#include "stores/memory_store.h"

#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace ostrand::test {

class DefaultMemoryStore {
public:
    DefaultMemoryStore()
    {
        s_factory = &factory;
        SetProfileStoreFactoryGetter([]() -> VProfileStoreFactory* { return s_factory; });
    }
    ~DefaultMemoryStore() { SetProfileStoreFactoryGetter(nullptr); }
    DefaultMemoryStore(const DefaultMemoryStore&) = delete;
    DefaultMemoryStore& operator=(const DefaultMemoryStore&) = delete;

    std::optional<StoreValue> Get(std::u16string_view key, std::u16string_view name) const
    {
        for (StoreEntry& entry : factory.Dump())
            if (entry.key == key && entry.name == name)
                return std::move(entry.value);
        return std::nullopt;
    }
    /// Names of the values below a key.
    std::vector<std::u16string> NamesIn(std::u16string_view key) const
    {
        std::vector<std::u16string> names;
        for (StoreEntry& entry : factory.Dump())
            if (entry.key == key)
                names.push_back(std::move(entry.name));
        return names;
    }
    /// What was written since the last call: "key|name".
    std::vector<std::u16string> TakeWrites()
    {
        std::vector<std::u16string> writes;
        for (const StoreWrite& write : std::exchange(factory.Log(), {}))
            writes.push_back(write.key + u"|" + write.name);
        return writes;
    }

    MemoryStoreFactory factory;

private:
    static inline MemoryStoreFactory* s_factory = nullptr;
};

} // namespace ostrand::test
