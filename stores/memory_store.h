// A store in memory, for tests and for hosts that keep nothing: the whole contract of a store, a log of what was
// written, and switches that make it refuse.
//
//     MemoryStoreFactory factory;
//     factory.Fill({{u"Global", u"MRU Count", 4u}, {u"Sessions\\Router 1", u"Hostname", u"router"}});
//     { VProfileStore store(false, &factory); ... }
//     EXPECT_THAT(factory.Log(), ElementsAre(StoreWrite{StoreAct::Dword, u"Global", u"MRU Count"}));
#pragma once

#include "platform/export.h"
#include "profile/stored_value.h"

#include <memory>
#include <span>
#include <string>
#include <vector>

namespace ostrand {

/// One value with its place; levels of the key are parted by "\", and the root's key is empty.
struct StoreEntry {
    std::u16string key;
    std::u16string name;
    StoreValue value;
    bool operator==(const StoreEntry&) const = default;
};

enum class StoreAct { Dword, Text, Block, List, DeleteValue, CreateKey, DeleteKey };

/// One act that the store took; refused ones leave no trace. `name` is empty where a key is made or deleted.
struct StoreWrite {
    StoreAct act;
    std::u16string key;
    std::u16string name;
    bool operator==(const StoreWrite&) const = default;
};

struct MemoryTree;

/// All stores of one factory show one tree. One thread at a time.
class OSTRAND_API MemoryStoreFactory : public VProfileStoreFactory {
public:
    MemoryStoreFactory();
    ~MemoryStoreFactory() override;
    VProfilePrivateStore* CreateStore() override;

    /// Puts values in, making their keys; not logged, and never refused.
    void Fill(std::span<const StoreEntry> entries);
    void Fill(std::initializer_list<StoreEntry> entries) { Fill(std::span(entries.begin(), entries.size())); }
    /// All values: a key's own in their order, then its subkeys by folded name.
    std::vector<StoreEntry> Dump() const;
    /// Paths of all keys below the root, in the same order.
    std::vector<std::u16string> Keys() const;

    std::vector<StoreWrite>& Log();

    /// No handle is writable; acts fail with kErrorAccessDenied.
    void SetReadOnly(bool readOnly);
    /// Handles say that they are writable, but each act fails with this code. 0 switches it off.
    void FailWrites(unsigned code);
    /// `Flush` fails with this code; what was written stays. 0 switches it off.
    void FailFlush(unsigned code);

private:
    std::shared_ptr<MemoryTree> m_tree; // shared with handles, which may outlive the factory
};

} // namespace ostrand
