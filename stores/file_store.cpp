#include "stores/file_store.h"

#include "platform/platform.h"
#include "stores/file_render.h"
#include "stores/file_tree.h"
#include "stores/store_places.h"

namespace ostrand {

namespace {

class FileKey final : public StoreKey, public IStorePlaces {
public:
    /// Takes over one handle of the node.
    FileKey(std::shared_ptr<FileTree> tree, FileNode& node, bool readOnly)
        : m_tree(std::move(tree)),
          m_node(node),
          m_isReadOnly(readOnly)
    {
    }
    ~FileKey() override
    {
        if (m_hasWritten)
            m_tree->FlushAtClose(m_node);
        m_tree->Close(m_node);
    }

    bool ReadMultiSz(const char16_t* name, VStringArray& out) override
    {
        return Read(name, [&out](std::string_view from) { return ParseList(from, out); });
    }
    bool ReadString(const char16_t* name, VUnicodeString& out) override
    {
        return Read(name, [&out](std::string_view from) { return ParseText(from, out); });
    }
    bool ReadDword(const char16_t* name, unsigned* out) override
    {
        return Read(name, [out](std::string_view from) { return ParseDword(from, *out); });
    }
    bool ReadBinary(const char16_t* name, void* data, unsigned* size) override
    {
        unsigned room = kErrorSuccess;
        const bool isRead = Read(name, [&](std::string_view from) {
            std::string_view digits;
            const ReadOutcome outcome = ParseBlock(from, digits);
            if (outcome != ReadOutcome::Good)
                return outcome;
            room = CheckRoom(data, size, digits.size() / 2);
            if (data && room == kErrorSuccess)
                DecodeBlock(digits, data);
            return outcome;
        });
        return isRead && Answer(room);
    }

    bool WriteMultiSz(const char16_t* name, const VStringArray& value) override
    {
        return Write(name, RenderList(value));
    }
    bool WriteString(const char16_t* name, const char16_t* value) override
    {
        return Write(name, RenderText(NameOf(value)));
    }
    bool WriteDword(const char16_t* name, unsigned value) override { return Write(name, RenderDword(value)); }
    bool WriteBinary(const char16_t* name, const void* data, unsigned size) override
    {
        if (size > 0 && !data)
            return Answer(kErrorInvalidParameter);
        return Write(name, RenderBlock(data, size));
    }
    bool DeleteValue(const char16_t* name) override { return Change(name, nullptr); }

    bool DeleteKey(const char16_t* name) override
    {
        const std::lock_guard guard(m_tree->mutex);
        return Answer(m_isReadOnly ? kErrorAccessDenied : m_tree->DeleteKey(m_node, name));
    }
    bool KeyExists(const char16_t* name) override
    {
        const std::lock_guard guard(m_tree->mutex);
        return m_tree->KeyExists(m_node, name);
    }
    bool IsWritable() override
    {
        const std::lock_guard guard(m_tree->mutex);
        return !m_isReadOnly && m_tree->CanChange(m_node);
    }

    VProfilePrivateKey* OpenKey(const char16_t* name, VSecurityDescriptor*) override
    {
        const std::lock_guard guard(m_tree->mutex);
        FileNode* node = nullptr;
        const unsigned code = m_tree->Open(m_node, name, !m_isReadOnly, node);
        if (!Answer(code))
            return new FailedKey(code);
        return new FileKey(m_tree, *node, m_isReadOnly);
    }

    VProfilePrivateKeyIterator* CreateIterator(bool values) override
    {
        auto iterator = std::make_unique<SnapshotIterator>();
        const std::lock_guard guard(m_tree->mutex);
        unsigned code = kErrorSuccess;
        if (!values)
            code = m_tree->ListKeys(m_node, *iterator);
        else if (code = Load(); code == kErrorSuccess)
            m_node.ListValues(*iterator);
        Answer(code);
        return iterator.release();
    }

    bool Flush(IReportMessageParams& report) override
    {
        if (m_tree->Flush(m_node, report) != kErrorSuccess)
            return false;
        m_hasWritten = false;
        return TellRefused(report);
    }

    bool FindPlace(const char16_t* valueName, ValuePlace& place) override
    {
        const std::lock_guard guard(m_tree->mutex);
        place.file = m_node.File();
        place.line = valueName && Load() == kErrorSuccess ? m_node.LineOf(valueName) : 0;
        return true;
    }

private:
    unsigned Load() { return m_node.IsStale() ? m_node.Load(*Platform().files) : kErrorSuccess; }

    template <class Reader>
    bool Read(const char16_t* name, Reader read)
    {
        const std::lock_guard guard(m_tree->mutex);
        unsigned code = Load();
        if (code == kErrorSuccess)
            code = m_node.Read(NameOf(name), m_next, read);
        return Answer(code);
    }

    bool Write(const char16_t* name, const std::string& rendered) { return Change(name, &rendered); }
    bool Change(const char16_t* name, const std::string* rendered)
    {
        const std::lock_guard guard(m_tree->mutex);
        unsigned code = m_node.IsDeleted() ? kErrorFileNotFound : Load();
        if (m_isReadOnly)
            code = kErrorAccessDenied;
        if (code != kErrorSuccess || (rendered && m_node.Holds(NameOf(name), *rendered)))
            return AnswerWrite(code);
        // Asked once for each handle; a right that is lost later shows at the flush.
        m_isChangeable = m_isChangeable || m_tree->CanChange(m_node);
        code = m_isChangeable ? m_node.Write(NameOf(name), rendered) : kErrorAccessDenied;
        m_hasWritten = m_hasWritten || code == kErrorSuccess;
        // A value that isn't there needs no deleting.
        return rendered || code != kErrorFileNotFound ? AnswerWrite(code) : Answer(code);
    }

    std::shared_ptr<FileTree> m_tree;
    FileNode& m_node;
    size_t m_next = 0; // the value that the next read probably asks for
    bool m_isReadOnly;
    bool m_isChangeable = false;
    bool m_hasWritten = false;
};

class FileStore final : public VProfilePrivateStore {
public:
    explicit FileStore(std::shared_ptr<FileTree> tree) : m_tree(std::move(tree)) {}
    VProfilePrivateKey* OpenRootKey(bool readOnly) override
    {
        const std::lock_guard guard(m_tree->mutex);
        return new FileKey(m_tree, *m_tree->OpenRoot(), readOnly);
    }

private:
    std::shared_ptr<FileTree> m_tree;
};

} // namespace

FileStoreFactory::FileStoreFactory(const std::string& rootFolder) : m_tree(std::make_shared<FileTree>(rootFolder)) {}

FileStoreFactory::~FileStoreFactory() = default;

VProfilePrivateStore* FileStoreFactory::CreateStore() { return new FileStore(m_tree); }

} // namespace ostrand
