#include "stores/file_store.h"

#include "platform/platform.h"
#include "stores/file_extras.h"
#include "stores/file_render.h"
#include "stores/file_tree.h"

namespace ostrand {

namespace {

class FileKey final : public StoreKey {
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
        const FileTree::Guard guard(*m_tree);
        if (m_hasWritten)
            m_tree->FlushAtClose(m_node);
        m_tree->Close(m_node, m_document.get());
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
        const FileTree::Guard guard(*m_tree);
        return Answer(m_isReadOnly ? kErrorAccessDenied : m_tree->DeleteKey(m_node, name));
    }
    bool KeyExists(const char16_t* name) override
    {
        const FileTree::Guard guard(*m_tree);
        return m_tree->KeyExists(m_node, name);
    }
    bool IsWritable() override
    {
        const FileTree::Guard guard(*m_tree);
        return !m_isReadOnly && m_tree->CanChange(m_node);
    }

    VProfilePrivateKey* OpenKey(const char16_t* name, VSecurityDescriptor*) override
    {
        const FileTree::Guard guard(*m_tree);
        FileNode* node = nullptr;
        const unsigned code = m_tree->Open(m_node, name, !m_isReadOnly, node);
        if (!Answer(code))
            return new FailedKey(code);
        return new FileKey(m_tree, *node, m_isReadOnly);
    }

    VProfilePrivateKeyIterator* CreateIterator(bool values) override
    {
        auto iterator = std::make_unique<SnapshotIterator>();
        const FileTree::Guard guard(*m_tree);
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
        const FileTree::Guard guard(*m_tree);
        if (m_tree->Flush(m_node, report) != kErrorSuccess)
            return false;
        m_hasWritten = false;
        return TellRefused(report);
    }

private:
    unsigned Load() { return m_node.IsStale() ? m_tree->Load(m_node) : kErrorSuccess; }

    /// Without the mutex as long as the document tells all; what isn't there, or isn't good, takes the long way.
    template <class Reader>
    bool Read(const char16_t* name, Reader read)
    {
        if (m_node.IsOpen(m_document.get())) {
            size_t entry = m_next;
            std::string_view value = m_document->FindNext(NameOf(name), m_next);
            if (value.data()) {
                ++m_next;
            } else {
                const FileDocument::Found found = m_document->FindAnywhere(NameOf(name), m_next);
                entry = found.entry;
                value = found.value;
            }
            if (value.data() && read(value) == ReadOutcome::Good) {
                m_document->MarkRead(entry);
                return Answer(kErrorSuccess);
            }
        }
        return ReadLocked(name, read);
    }
    template <class Reader>
    bool ReadLocked(const char16_t* name, Reader read)
    {
        const FileTree::Guard guard(*m_tree);
        unsigned code = Load();
        if (code == kErrorSuccess)
            code = m_node.Read(NameOf(name), m_next, read);
        if (!m_node.IsOpen(m_document.get())) {
            if (m_document)
                m_node.TakeLateReads(*m_document);
            m_document = m_node.OpenDocument();
        }
        return Answer(code);
    }

    bool Write(const char16_t* name, const std::string& rendered) { return Change(name, &rendered); }
    bool Change(const char16_t* name, const std::string* rendered)
    {
        const FileTree::Guard guard(*m_tree);
        unsigned code = m_node.IsDeleted() ? kErrorFileNotFound : Load();
        if (m_isReadOnly)
            code = kErrorAccessDenied;
        if (code != kErrorSuccess || (rendered && m_node.Holds(NameOf(name), *rendered)))
            return AnswerWrite(code);
        // Asked once for each handle; a right that is lost later shows at the flush.
        m_isChangeable = m_isChangeable || m_tree->CanChange(m_node);
        if (m_isChangeable)
            m_tree->JoinTransaction(m_node);
        code = m_isChangeable ? m_node.Write(NameOf(name), rendered) : kErrorAccessDenied;
        m_hasWritten = m_hasWritten || code == kErrorSuccess;
        // A value that isn't there needs no deleting.
        return rendered || code != kErrorFileNotFound ? AnswerWrite(code) : Answer(code);
    }

    std::shared_ptr<FileTree> m_tree;
    FileNode& m_node;
    std::shared_ptr<const FileDocument> m_document; // that reads go to while the node says so
    size_t m_next = 0;                              // the value that the next read probably asks for
    bool m_isReadOnly;
    bool m_isChangeable = false;
    bool m_hasWritten = false;
};

class FileStore final : public VProfilePrivateStore, public FileExtras {
public:
    explicit FileStore(std::shared_ptr<FileTree> tree) : FileExtras(std::move(tree)) {}
    VProfilePrivateKey* OpenRootKey(bool readOnly) override
    {
        const FileTree::Guard guard(*m_tree);
        return new FileKey(m_tree, *m_tree->OpenRoot(), readOnly);
    }
};

} // namespace

FileStoreFactory::FileStoreFactory(const std::string& rootFolder, size_t transactionBytes)
    : m_tree(std::make_shared<FileTree>(rootFolder, transactionBytes))
{
}

FileStoreFactory::~FileStoreFactory() = default;

VProfilePrivateStore* FileStoreFactory::CreateStore() { return new FileStore(m_tree); }

} // namespace ostrand
