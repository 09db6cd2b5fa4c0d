#include "stores/memory_store.h"

#include "core/fold.h"
#include "profile/store_extras.h"
#include "stores/memory_tree.h"
#include "stores/store_key.h"

#include <cstring>

namespace ostrand {

namespace {

class MemoryKey final : public StoreKey {
public:
    MemoryKey(std::shared_ptr<MemoryTree> tree, std::shared_ptr<MemoryNode> node, bool readOnly)
        : m_tree(std::move(tree)),
          m_node(std::move(node)),
          m_readOnly(readOnly)
    {
    }

    bool ReadMultiSz(const char16_t* name, VStringArray& out) override { return Read(name, out); }
    bool ReadString(const char16_t* name, VUnicodeString& out) override { return Read(name, out); }
    bool ReadDword(const char16_t* name, unsigned* out) override { return Read(name, *out); }
    bool ReadBinary(const char16_t* name, void* data, unsigned* size) override
    {
        const StoreBlock* block = nullptr;
        unsigned code = Look(name, block);
        if (block)
            code = CheckRoom(data, size, block->size());
        if (code == kErrorSuccess && data && !block->empty())
            std::memcpy(data, block->data(), block->size());
        return Answer(code);
    }

    bool WriteMultiSz(const char16_t* name, const VStringArray& value) override
    {
        return Write(StoreAct::List, name, value);
    }
    bool WriteString(const char16_t* name, const char16_t* value) override
    {
        return Write(StoreAct::Text, name, VUnicodeString(value));
    }
    bool WriteDword(const char16_t* name, unsigned value) override { return Write(StoreAct::Dword, name, value); }
    bool WriteBinary(const char16_t* name, const void* data, unsigned size) override
    {
        if (size > 0 && !data)
            return Answer(kErrorInvalidParameter);
        const auto* const bytes = static_cast<const uint8_t*>(data);
        return Write(StoreAct::Block, name, size > 0 ? StoreBlock(bytes, bytes + size) : StoreBlock());
    }

    bool DeleteValue(const char16_t* name) override
    {
        unsigned code = CheckChange();
        if (code == kErrorSuccess)
            m_tree->Keep(m_node);
        if (code == kErrorSuccess && !m_node->RemoveValue(NameOf(name)))
            code = kErrorFileNotFound;
        if (code == kErrorSuccess)
            m_tree->log.push_back({StoreAct::DeleteValue, m_node->path, NameOf(name)});
        return Answer(code);
    }

    bool DeleteKey(const char16_t* name) override
    {
        std::vector<std::u16string_view> levels;
        if (!CutLevels(name, levels))
            return Answer(kErrorInvalidParameter);
        if (const unsigned code = CheckChange(); code != kErrorSuccess)
            return Answer(code);
        const std::shared_ptr<MemoryNode> found = m_node->FindKey(levels);
        if (!found)
            return Answer(kErrorFileNotFound);
        if (m_tree->transaction)
            return Answer(kErrorNotSupported);
        m_tree->log.push_back({StoreAct::DeleteKey, found->path, {}});
        MemoryNode::Remove(found);
        return Answer(kErrorSuccess);
    }

    bool KeyExists(const char16_t* name) override
    {
        std::vector<std::u16string_view> levels;
        return CutLevels(name, levels) && m_node->FindKey(levels);
    }

    bool IsWritable() override { return !m_readOnly && !m_tree->readOnly; }

    VProfilePrivateKey* OpenKey(const char16_t* name, VSecurityDescriptor*) override
    {
        std::vector<std::u16string_view> levels;
        unsigned code = CutLevels(name, levels) ? kErrorSuccess : kErrorInvalidParameter;
        std::shared_ptr<MemoryNode> found;
        if (code == kErrorSuccess)
            found = m_node->FindKey(levels);
        if (code == kErrorSuccess && !found) {
            code = m_readOnly ? kErrorFileNotFound : CheckChange();
            if (code == kErrorSuccess)
                found = m_tree->MakeKey(*m_node, levels, true);
        }
        Answer(code);
        if (!found)
            return new FailedKey(code);
        return new MemoryKey(m_tree, found, m_readOnly);
    }

    VProfilePrivateKeyIterator* CreateIterator(bool values) override
    {
        auto iterator = std::make_unique<SnapshotIterator>();
        if (values) {
            for (const MemoryValue& v : m_node->values)
                iterator->Add(v.name, TypeOf(v.value));
        } else {
            for (const auto& key : m_node->keys)
                iterator->Add(key->name, VProfileValueType::Subkey);
        }
        Answer(kErrorSuccess);
        return iterator.release();
    }

    bool Flush(IReportMessageParams& report) override
    {
        if (m_tree->transaction) // the commit tells
            return TellRefused(report);
        return TellRefused(report) && (m_tree->flushFailure == kErrorSuccess || Fail(report, m_tree->flushFailure));
    }

private:
    /// The value, if it is of T's kind; the code says why not.
    template <class T>
    unsigned Look(const char16_t* name, const T*& found) const
    {
        const MemoryValue* const value = m_node->FindValue(NameOf(name));
        if (!value)
            return kErrorFileNotFound;
        found = std::get_if<T>(&value->value);
        return found ? kErrorSuccess : kErrorUnsupportedType;
    }

    template <class T>
    bool Read(const char16_t* name, T& out)
    {
        const T* found = nullptr;
        const unsigned code = Look(name, found);
        if (found)
            out = *found;
        return Answer(code);
    }

    unsigned CheckChange() const
    {
        if (m_readOnly || m_tree->readOnly)
            return kErrorAccessDenied;
        return m_node->isDeleted ? kErrorFileNotFound : m_tree->writeFailure;
    }

    bool Write(StoreAct act, const char16_t* name, StoreValue value)
    {
        const unsigned code = CheckChange();
        if (code == kErrorSuccess) {
            m_tree->Keep(m_node);
            m_node->SetValue(NameOf(name), std::move(value));
            m_tree->log.push_back({act, m_node->path, NameOf(name)});
        }
        return AnswerWrite(code);
    }

    std::shared_ptr<MemoryTree> m_tree;
    std::shared_ptr<MemoryNode> m_node;
    bool m_readOnly;
};

class MemoryStore final : public VProfilePrivateStore, public IStoreExtras {
public:
    explicit MemoryStore(std::shared_ptr<MemoryTree> tree) : m_tree(std::move(tree)) {}
    VProfilePrivateKey* OpenRootKey(bool readOnly) override { return new MemoryKey(m_tree, m_tree->root, readOnly); }

    bool BeginTransaction(IReportMessageParams& report) override
    {
        if (m_tree->transaction)
            return Fail(report, kErrorInvalidParameter);
        m_tree->Begin();
        return true;
    }
    bool CommitTransaction(IReportMessageParams& report) override
    {
        const unsigned code = m_tree->transaction ? m_tree->flushFailure : kErrorInvalidParameter;
        if (code != kErrorSuccess)
            return Fail(report, code);
        m_tree->transaction.reset();
        return true;
    }
    void RollBackTransaction() override
    {
        if (m_tree->transaction)
            m_tree->RollBack();
    }

private:
    std::shared_ptr<MemoryTree> m_tree;
};

} // namespace

MemoryStoreFactory::MemoryStoreFactory() : m_tree(std::make_shared<MemoryTree>()) {}

MemoryStoreFactory::~MemoryStoreFactory() = default;

VProfilePrivateStore* MemoryStoreFactory::CreateStore() { return new MemoryStore(m_tree); }

void MemoryStoreFactory::Fill(std::span<const StoreEntry> entries)
{
    for (const StoreEntry& e : entries) {
        std::shared_ptr<MemoryNode> node = m_tree->root;
        std::vector<std::u16string_view> levels;
        if (CutLevels(e.key.c_str(), levels))
            node = m_tree->MakeKey(*node, levels, false);
        node->SetValue(e.name, e.value);
    }
}

std::vector<StoreEntry> MemoryStoreFactory::Dump() const
{
    std::vector<StoreEntry> entries;
    m_tree->root->ForEach([&](const MemoryNode& node) {
        for (const MemoryValue& v : node.values)
            entries.push_back({node.path, std::u16string(v.name.View()), v.value});
    });
    return entries;
}

std::vector<std::u16string> MemoryStoreFactory::Keys() const
{
    std::vector<std::u16string> keys;
    m_tree->root->ForEach([&](const MemoryNode& node) {
        if (&node != m_tree->root.get())
            keys.push_back(node.path);
    });
    return keys;
}

std::vector<StoreWrite>& MemoryStoreFactory::Log() { return m_tree->log; }

void MemoryStoreFactory::SetReadOnly(bool readOnly) { m_tree->readOnly = readOnly; }

void MemoryStoreFactory::FailWrites(unsigned code) { m_tree->writeFailure = code; }

void MemoryStoreFactory::FailFlush(unsigned code) { m_tree->flushFailure = code; }

} // namespace ostrand
