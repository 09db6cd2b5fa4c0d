#include "stores/file_node.h"

#include "stores/file_render.h"

namespace ostrand {

const std::shared_ptr<const FileDocument>& FileNode::NoDocument()
{
    static const auto none = [] {
        auto document = std::make_shared<const FileDocument>();
        document->Cut();
        return document;
    }();
    return none;
}

void FileNode::Replace(std::string text)
{
    m_open.store(nullptr, std::memory_order_release);
    m_document = text.empty() ? NoDocument() : std::make_shared<const FileDocument>(std::move(text), m_pool);
}

std::shared_ptr<const FileDocument> FileNode::OpenDocument()
{
    if (m_isStale || !m_queue.IsEmpty() || !m_document->IsCut())
        return nullptr;
    m_open.store(m_document.get(), std::memory_order_release);
    return m_document;
}

void FileNode::TakeText(std::string text)
{
    m_isStale = false;
    if (text == m_document->Text())
        return;
    SettledBases();
    Replace(std::move(text));
}

void FileNode::LetGo()
{
    SettledBases();
    Replace({});
    m_isStale = true;
}

void FileNode::Forget()
{
    Replace({});
    m_queue.Clear();
    m_bases.Clear();
    m_isStale = false;
    m_isDeleted = true;
}

ValueBases& FileNode::SettledBases()
{
    const FileDocument& document = *m_document;
    const auto& layout = document.Layout();
    // Room for all values of a layout pays where a good part of them was read.
    if (layout && layout->IsShared() && document.HasRead(layout->Count() / 4 + 1)) {
        m_bases.Use(layout);
        document.TakeRead([&](size_t entry) { m_bases.SetAt(entry, HashValue(document.ValueAt(entry))); });
    } else {
        document.TakeRead(
            [&](size_t entry) { m_bases.Set(document.HashOf(entry), HashValue(document.ValueAt(entry))); });
    }
    return m_bases;
}

void FileNode::TakeLateReads(const FileDocument& document)
{
    if (&document == m_document.get())
        return;
    document.TakeRead(
        [&](size_t entry) { m_bases.SetIfNew(document.HashOf(entry), HashValue(document.ValueAt(entry))); });
}

std::string_view FileNode::Look(const char16_t* name, FileDocument::Found& found) const
{
    if (const QueuedValue* const queued = m_queue.Find(name))
        return queued->text;
    found = m_document->FindWhole(name);
    return found.value;
}

bool FileNode::Holds(const char16_t* name, const std::string& rendered)
{
    FileDocument::Found found;
    const std::string_view there = Look(name, found);
    if (there.empty() || !SameValue(there, rendered))
        return false;
    if (found)
        m_document->MarkRead(found.entry); // written, so known
    return true;
}

unsigned FileNode::Write(const char16_t* name, const std::string* rendered)
{
    FileDocument::Found found;
    if (!rendered && Look(name, found).empty())
        return kErrorFileNotFound;
    m_open.store(nullptr, std::memory_order_release);
    m_queue.Put(name, rendered);
    return kErrorSuccess;
}

void FileNode::ListValues(SnapshotIterator& out) const
{
    for (size_t i = 0; i < m_document->Count(); ++i) {
        const std::u16string name = m_document->NameAt(i);
        const QueuedValue* const queued = m_queue.Find(name.c_str());
        if ((queued && queued->isDeleted) || m_document->FindWhole(name.c_str()).entry != i)
            continue;
        out.Add(name.c_str(), *KindOfValue(queued ? queued->text : m_document->ValueAt(i)));
    }
    for (const QueuedValue& queued : m_queue.Values())
        if (!queued.isDeleted && !m_document->FindWhole(queued.name.c_str()))
            out.Add(queued.name.c_str(), *KindOfValue(queued.text));
}

size_t FileNode::LineOf(const char16_t* name) const
{
    const FileDocument::Found found = m_document->FindWhole(name);
    return found ? m_document->LineOf(found.entry) : 0;
}

void FileNode::TakeSaved(std::string text)
{
    ValueBases& bases = SettledBases();
    Replace(std::move(text));
    for (const QueuedValue& queued : m_queue.Values())
        bases.Set(queued.hash, queued.isDeleted ? ValueBases::kNoValue : HashValue(queued.text));
    m_queue.Clear();
    m_isStale = false;
}

} // namespace ostrand
