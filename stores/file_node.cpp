#include "stores/file_node.h"

#include "stores/file_render.h"

namespace ostrand {

void FileNode::TakeText(std::string text)
{
    m_isStale = false;
    if (text == m_document.Text())
        return;
    SettledBases();
    m_document = FileDocument(std::move(text));
}

unsigned FileNode::Load(IFiles& files)
{
    std::string text;
    VFileInfo info;
    const unsigned code = files.ReadWhole(m_file, FileDocument::kLimit, text, info);
    const bool isMissing = code == kErrorFileNotFound || code == kErrorPathNotFound;
    if (code != kErrorSuccess && !isMissing)
        return code;
    TakeText(isMissing ? std::string() : std::move(text));
    return kErrorSuccess;
}

void FileNode::LetGo()
{
    SettledBases();
    m_document = FileDocument();
    m_isStale = true;
}

void FileNode::Forget()
{
    m_document = FileDocument();
    m_queue.Clear();
    m_bases.Clear();
    m_isStale = false;
    m_isDeleted = true;
    syncsFolder = false;
}

ValueBases& FileNode::SettledBases()
{
    const bool isFirst = m_bases.IsEmpty();
    if (isFirst)
        m_bases.Reserve(m_document.Count());
    m_document.ForEachRead([&](uint64_t name, std::string_view value) {
        if (isFirst)
            m_bases.Append(name, HashValue(value));
        else
            m_bases.Set(name, HashValue(value));
    });
    return m_bases;
}

std::string_view FileNode::Look(const char16_t* name, FileDocument::Found& found) const
{
    if (const QueuedValue* const queued = m_queue.Find(name))
        return queued->text;
    found = m_document.FindWhole(name);
    return found.value;
}

bool FileNode::Holds(const char16_t* name, const std::string& rendered)
{
    FileDocument::Found found;
    const std::string_view there = Look(name, found);
    if (there.empty() || !SameValue(there, rendered))
        return false;
    if (found)
        m_document.MarkRead(found.entry); // written, so known
    return true;
}

unsigned FileNode::Write(const char16_t* name, const std::string* rendered)
{
    FileDocument::Found found;
    if (!rendered && Look(name, found).empty())
        return kErrorFileNotFound;
    m_queue.Put(name, rendered);
    return kErrorSuccess;
}

void FileNode::ListValues(SnapshotIterator& out) const
{
    for (size_t i = 0; i < m_document.Count(); ++i) {
        const std::u16string name = m_document.NameAt(i);
        const QueuedValue* const queued = m_queue.Find(name.c_str());
        if ((queued && queued->isDeleted) || m_document.FindWhole(name.c_str()).entry != i)
            continue;
        out.Add(name.c_str(), *KindOfValue(queued ? queued->text : m_document.ValueAt(i)));
    }
    for (const QueuedValue& queued : m_queue.Values())
        if (!queued.isDeleted && !m_document.FindWhole(queued.name.c_str()))
            out.Add(queued.name.c_str(), *KindOfValue(queued.text));
}

size_t FileNode::LineOf(const char16_t* name) const
{
    const FileDocument::Found found = m_document.FindWhole(name);
    return found ? m_document.LineOf(found.entry) : 0;
}

void FileNode::TakeSaved(std::string text)
{
    ValueBases& bases = SettledBases();
    m_document = FileDocument(std::move(text));
    for (const QueuedValue& queued : m_queue.Values())
        bases.Set(queued.hash, queued.isDeleted ? ValueBases::kNoValue : HashValue(queued.text));
    m_queue.Clear();
    m_isStale = false;
}

} // namespace ostrand
