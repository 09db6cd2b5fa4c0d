// A store with one key for tests of values, which tells what was written.
#pragma once

#include "profile/key.h"
#include "stores/memory_store.h"

#include <string>
#include <vector>

namespace ostrand {

class ValueStore {
public:
    VProfileKey& Key() { return *m_writable.GetRootKey(); }
    /// The same key, but every write fails.
    VProfileKey& RefusingKey() { return *m_readOnly.GetRootKey(); }
    /// Names of values written since the last call.
    std::vector<std::u16string> TakeWrites()
    {
        std::vector<std::u16string> names;
        for (const StoreWrite& write : m_factory.Log())
            if (write.act != StoreAct::DeleteValue)
                names.push_back(write.name);
        m_factory.Log().clear();
        return names;
    }

private:
    MemoryStoreFactory m_factory;
    VProfileStore m_writable{false, &m_factory};
    VProfileStore m_readOnly{true, &m_factory};
};

} // namespace ostrand
