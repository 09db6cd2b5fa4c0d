#include "stores/transaction_spill.h"

#include "platform/error_codes.h"
#include "stores/file_names.h"
#include "stores/store_lock.h"

#include <cstring>
#include <limits>
#include <type_traits>

namespace ostrand {

namespace {

// A record is the folder, the queue, and the bases, each behind its count. Of this process alone, so numbers are as
// they lie in memory.

template <class T>
void PutRaw(const T* values, size_t count, std::string& out)
{
    static_assert(std::is_trivially_copyable_v<T>);
    const auto size = static_cast<uint32_t>(count);
    out.append(reinterpret_cast<const char*>(&size), sizeof size);
    out.append(reinterpret_cast<const char*>(values), count * sizeof(T));
}

/// The count and its values; false where the bytes end before.
template <class Container>
bool TakeRaw(std::string_view& from, Container& values)
{
    uint32_t count = 0;
    if (from.size() < sizeof count)
        return false;
    std::memcpy(&count, from.data(), sizeof count);
    from.remove_prefix(sizeof count);
    if (from.size() / sizeof(values[0]) < count)
        return false;
    values.resize(count);
    if (count > 0)
        std::memcpy(values.data(), from.data(), count * sizeof(values[0]));
    from.remove_prefix(count * sizeof(values[0]));
    return true;
}

template <class Container>
void PutRaw(const Container& values, std::string& out)
{
    PutRaw(values.data(), values.size(), out);
}

bool TakeQueue(std::string_view& from, WriteQueue& queue)
{
    std::vector<uint8_t> deletions;
    if (!TakeRaw(from, deletions))
        return false;
    std::u16string name;
    std::string text;
    for (const uint8_t isDeleted : deletions) {
        if (!TakeRaw(from, name) || !TakeRaw(from, text))
            return false;
        queue.Put(name.c_str(), isDeleted != 0 ? nullptr : &text);
    }
    return true;
}

void PutQueue(const WriteQueue& queue, std::string& out)
{
    std::vector<uint8_t> deletions;
    for (const QueuedValue& value : queue.Values())
        deletions.push_back(value.isDeleted);
    PutRaw(deletions, out);
    for (const QueuedValue& value : queue.Values()) {
        PutRaw(value.name, out);
        PutRaw(value.text, out);
    }
}

} // namespace

unsigned TransactionSpill::Open()
{
    const std::string path = m_root + '/' + std::string(kSpillFile);
    unsigned code = Files().OpenNameless(path, m_file);
    if (IsMissing(code)) {
        code = MakeFolders(m_root);
        if (code == kErrorSuccess)
            code = Files().OpenNameless(path, m_file);
    }
    return code;
}

void TransactionSpill::Render(FileNode& node)
{
    m_bytes.clear();
    PutRaw(node.Folder(), m_bytes);
    PutQueue(node.Queue(), m_bytes);
    PutRaw(node.SettledBases().Plain(), m_bytes);
}

unsigned TransactionSpill::Put(FileNode& node)
{
    unsigned code = m_file ? kErrorSuccess : Open();
    if (code != kErrorSuccess)
        return code;
    Render(node);
    if (m_bytes.size() > std::numeric_limits<uint32_t>::max())
        return kErrorMoreData;
    if (node.spillRecord == FileNode::kNoRecord)
        AddRecord(node, HashBytes(node.Folder()));
    Record& record = m_records[node.spillRecord];
    if (m_bytes.size() > record.room) {
        record.at = m_end;
        record.room = static_cast<uint32_t>(m_bytes.size());
        m_end += m_bytes.size();
    }
    code = m_file->Seek(record.at);
    if (code == kErrorSuccess)
        code = m_file->Write(m_bytes.data(), m_bytes.size());
    if (code != kErrorSuccess)
        return code;
    record.size = static_cast<uint32_t>(m_bytes.size());
    ++m_count;
    return kErrorSuccess;
}

void TransactionSpill::AddRecord(FileNode& node, uint64_t hash)
{
    const auto isNew = [](size_t) { return false; };
    node.spillRecord = m_records.size();
    m_records.push_back({hash, 0, 0, 0});
    if (m_records.size() > m_index.Room()) {
        m_index.Reset(m_records.size() * 2);
        for (size_t i = 0; i < node.spillRecord; ++i)
            m_index.Put(m_records[i].hash, i, isNew);
    }
    m_index.Put(hash, node.spillRecord, isNew);
}

unsigned TransactionSpill::Take(FileNode& node, bool& isFound)
{
    unsigned code = kErrorSuccess;
    const uint64_t hash = HashBytes(node.Folder());
    const auto isIt = [&](size_t i) {
        if (code != kErrorSuccess || m_records[i].hash != hash || m_records[i].size == 0)
            return false;
        code = Read(m_records[i]);
        return code == kErrorSuccess && Folder() == node.Folder();
    };
    const size_t found = m_index.Find(hash, isIt);
    isFound = found != NameIndex::kNone;
    if (!isFound)
        return code;
    code = Fill(node);
    if (code != kErrorSuccess)
        return code;
    m_records[found].size = 0;
    node.spillRecord = found;
    --m_count;
    return kErrorSuccess;
}

unsigned TransactionSpill::Read(const Record& record)
{
    m_bytes.resize(record.size);
    unsigned code = m_file->Seek(record.at);
    for (size_t done = 0, got = 0; code == kErrorSuccess && done < m_bytes.size(); done += got) {
        code = m_file->Read(m_bytes.data() + done, m_bytes.size() - done, got);
        if (code == kErrorSuccess && got == 0)
            code = kErrorInvalidData;
    }
    return code;
}

std::string_view TransactionSpill::Folder() const
{
    uint32_t size = 0;
    if (m_bytes.size() < sizeof size)
        return {};
    std::memcpy(&size, m_bytes.data(), sizeof size);
    return std::string_view(m_bytes).substr(sizeof size, size);
}

unsigned TransactionSpill::Fill(FileNode& node) const
{
    std::string_view bytes = m_bytes;
    std::string folder;
    WriteQueue queue;
    std::vector<ValueBases::Base> bases;
    if (!TakeRaw(bytes, folder) || !TakeQueue(bytes, queue) || !TakeRaw(bytes, bases) || folder != node.Folder())
        return kErrorInvalidData;
    node.BeginTransaction();
    node.TakeWaiting(std::move(queue), std::move(bases));
    return kErrorSuccess;
}

unsigned TransactionSpill::ForEach(const std::function<unsigned(FileNode&)>& visit)
{
    for (const Record& record : m_records) {
        if (record.size == 0)
            continue;
        unsigned code = Read(record);
        if (code != kErrorSuccess)
            return code;
        FileNode node(Folder(), kValuesSuffix, nullptr);
        code = Fill(node);
        if (code == kErrorSuccess)
            code = visit(node);
        if (code != kErrorSuccess)
            return code;
    }
    return kErrorSuccess;
}

} // namespace ostrand
