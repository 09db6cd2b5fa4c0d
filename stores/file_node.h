// One key's file in this process: the document that all handles on the key share, the values that wait to be written,
// and what this process last knew of each value.
#pragma once

#include "platform/error_codes.h"
#include "platform/files.h"
#include "stores/file_document.h"
#include "stores/file_format.h"
#include "stores/store_key.h"
#include "stores/value_bases.h"
#include "stores/write_queue.h"

#include <atomic>
#include <memory>
#include <optional>
#include <string>

namespace ostrand {

/// Lives as long as its tree, whose mutex guards it. The document is there while handles are; what is queued, and the
/// bases, stay.
class FileNode {
public:
    /// `folder` holds the subkeys, the file of its name with `ending` the values; either may be missing on the disk.
    /// `ending` and the pool of layouts, if any, must live as long as the node and its documents.
    FileNode(std::string_view folder, std::string_view ending, LayoutPool* pool)
        : m_folder(folder),
          m_ending(ending),
          m_pool(pool)
    {
    }

    const std::string& Folder() const { return m_folder; }
    std::string File() const { return m_folder + std::string(m_ending); }

    /// Takes the file's bytes as they are now on the disk.
    void TakeText(std::string text);
    /// Whether the file has to be read.
    bool IsStale() const { return m_isStale; }
    void MarkStale()
    {
        m_isStale = true;
        m_open.store(nullptr, std::memory_order_release);
    }
    /// Gives the document's memory back; keeps the bases of what was read. For nodes without handles.
    void LetGo();
    /// The key was deleted: nothing is left of it, and nothing of it will be written.
    void Forget();
    bool IsDeleted() const { return m_isDeleted; }
    void Revive() { m_isDeleted = false; }
    /// Whether nothing would be lost with this object.
    bool IsIdle() const
    {
        return handles == 0 && closings == 0 && m_queue.IsEmpty() && m_bases.IsEmpty() && !m_queueBefore;
    }

    /// Finds the value and hands it to `read`, which answers a ReadOutcome for the text from the value's first byte on.
    /// `next` is the handle's guess, see FileDocument::Find. The result is a platform code.
    template <class Reader>
    unsigned Read(const char16_t* name, size_t& next, Reader read);
    /// Whether the value is there already; writing it would change nothing.
    bool Holds(const char16_t* name, const std::string& rendered);
    /// Queues a value in its rendered form, or null to delete it. A value that isn't there can't be deleted.
    unsigned Write(const char16_t* name, const std::string* rendered);
    void ListValues(SnapshotIterator& out) const;
    /// Line of the value in the file, from 1; 0 for one that doesn't stand there.
    size_t LineOf(const char16_t* name) const;

    const FileDocument& Document() const { return *m_document; }
    /// The document if it tells all by itself: loaded, cut, and with nothing queued; else null. As long as IsOpen says
    /// that it still does, any thread may read from it without the mutex.
    std::shared_ptr<const FileDocument> OpenDocument();
    bool IsOpen(const FileDocument* document) const
    {
        return document && m_open.load(std::memory_order_acquire) == document;
    }
    /// To be called with each document that OpenDocument gave, when its reader goes on to another one: what was read
    /// after the node had left it.
    void TakeLateReads(const FileDocument& document);
    const WriteQueue& Queue() const { return m_queue; }
    /// Moves what the document's marks tell into the bases, and gives those.
    ValueBases& SettledBases();
    /// What was queued stands in the file, whose bytes are these.
    void TakeSaved(std::string text);

    /// Keeps what is queued now, for a roll-back.
    void BeginTransaction() { m_queueBefore = m_queue.Copy(); }
    bool IsInTransaction() const { return m_queueBefore.has_value(); }
    void EndTransaction()
    {
        m_queueBefore.reset();
        restingBytes = 0;
        spillRecord = kNoRecord;
    }
    void RollBack() { m_queue = std::move(*m_queueBefore); }
    /// Whether something waited already when the transaction began.
    bool HasWaitedBefore() const { return !m_queueBefore->IsEmpty(); }
    /// In a node that has nothing yet.
    void TakeWaiting(WriteQueue queue, std::vector<ValueBases::Base> bases)
    {
        m_queue = std::move(queue);
        m_bases.TakePlain(std::move(bases));
    }

    int handles = 0;
    /// Times that the node waits in its tree's list of closed ones, and the bytes that it counts with there.
    int closings = 0;
    size_t closedBytes = 0;
    static constexpr size_t kNoRecord = static_cast<size_t>(-1);
    /// What the node counts with in its transaction, and its place there if it was on the disk.
    size_t restingBytes = 0;
    size_t spillRecord = kNoRecord;

private:
    static unsigned CodeOf(ReadOutcome outcome)
    {
        return outcome == ReadOutcome::Good ? kErrorSuccess : kErrorUnsupportedType;
    }

    static const std::shared_ptr<const FileDocument>& NoDocument();
    /// What a reader would see: a queued value's text or one in the document. Empty for none.
    std::string_view Look(const char16_t* name, FileDocument::Found& found) const;
    void Replace(std::string text);

    std::string m_folder;
    std::string_view m_ending;
    LayoutPool* m_pool;
    std::shared_ptr<const FileDocument> m_document = NoDocument();
    std::atomic<const FileDocument*> m_open = nullptr;
    WriteQueue m_queue;
    std::optional<WriteQueue> m_queueBefore; // the transaction that the node is in
    ValueBases m_bases;                      // an entry's mark in the document goes before these
    bool m_isStale = true;
    bool m_isDeleted = false;
};

template <class Reader>
unsigned FileNode::Read(const char16_t* name, size_t& next, Reader read)
{
    if (!m_queue.IsEmpty())
        if (const QueuedValue* const queued = m_queue.Find(name))
            return queued->isDeleted ? kErrorFileNotFound : CodeOf(read(queued->text));
    FileDocument::Found found = m_document->Find(name, next);
    while (found) {
        const ReadOutcome outcome = read(found.value);
        if (outcome != ReadOutcome::Broken) {
            m_document->MarkRead(found.entry);
            return CodeOf(outcome);
        }
        found = m_document->FindBefore(found.entry, name);
    }
    m_bases.Set(HashName(name), ValueBases::kNoValue);
    return kErrorFileNotFound;
}

} // namespace ostrand
