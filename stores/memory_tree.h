// The tree behind the memory store: keys with their values and subkeys, and what all of them share.
#pragma once

#include "platform/error_codes.h"
#include "stores/memory_store.h"

#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace ostrand {

struct MemoryValue {
    VUnicodeString name;
    StoreValue value;
};

/// Its kind as iterators report it.
VProfileValueType TypeOf(const StoreValue& value);

/// One key. Handles share it, so it lives on behind a handle after its deletion; then it has nothing in it.
struct MemoryNode {
    VUnicodeString name;
    std::u16string path;
    MemoryNode* parent = nullptr;                  // owns this key while it isn't deleted
    std::vector<MemoryValue> values;               // in the order of their first writing
    std::vector<std::shared_ptr<MemoryNode>> keys; // by folded name
    bool isDeleted = false;

    const MemoryValue* FindValue(std::u16string_view valueName) const;
    void SetValue(std::u16string_view valueName, StoreValue value);
    bool RemoveValue(std::u16string_view valueName);
    /// Null when a level is missing.
    std::shared_ptr<MemoryNode> FindKey(std::span<const std::u16string_view> levels) const;
    /// Takes the key out of its parent, with all below it.
    static void Remove(const std::shared_ptr<MemoryNode>& node);
    /// This key, then each below it.
    void ForEach(const std::function<void(const MemoryNode&)>& act) const;
    void Empty();
};

/// What a roll-back puts back: the values of each key that was written to, and the keys that came.
struct MemoryTransaction {
    struct Before {
        std::shared_ptr<MemoryNode> node;
        std::vector<MemoryValue> values;
    };
    std::vector<Before> changed;
    std::vector<std::shared_ptr<MemoryNode>> made;
    size_t logSize = 0;
};

struct MemoryTree {
    std::shared_ptr<MemoryNode> root = std::make_shared<MemoryNode>();
    std::vector<StoreWrite> log;
    bool readOnly = false;
    unsigned writeFailure = kErrorSuccess;
    unsigned flushFailure = kErrorSuccess;
    std::optional<MemoryTransaction> transaction;

    void Begin();
    /// The values of the key are about to change.
    void Keep(const std::shared_ptr<MemoryNode>& node);
    void RollBack();

    /// The key at the end of the levels, each made where it is missing.
    std::shared_ptr<MemoryNode> MakeKey(MemoryNode& from, std::span<const std::u16string_view> levels, bool isLogged);
};

} // namespace ostrand
