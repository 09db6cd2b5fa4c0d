#include "stores/file_transaction.h"

#include "core/fold.h"
#include "platform/error_codes.h"
#include "stores/key_files.h"

namespace ostrand {

namespace {

/// What a commit holds of a closed key's file in memory: the old text and the new one, and what goes with them.
constexpr size_t kTexts = 2;
constexpr size_t kOverhead = 1024;

} // namespace

FileTransaction::~FileTransaction() { RollBack(); }

void FileTransaction::Join(FileNode& node)
{
    if (node.IsInTransaction())
        return;
    node.BeginTransaction();
    m_members.push_back(&node);
}

std::u16string FileTransaction::PathOf(std::string_view folder) const
{
    return PathOfKey(folder.substr(m_root.size()).substr(1));
}

size_t FileTransaction::FindNew(std::string_view folder) const
{
    if (m_newKeys.empty() || folder.size() <= m_root.size())
        return NameIndex::kNone;
    const std::u16string path = PathOf(folder);
    return m_newIndex.Find(HashName(path), [&](size_t i) { return EqualNoCase(PathOf(m_newKeys[i]), path); });
}

const std::string* FileTransaction::FindNewKey(std::string_view folder) const
{
    const size_t found = FindNew(folder);
    return found == NameIndex::kNone ? nullptr : &m_newKeys[found];
}

void FileTransaction::AddKey(FileNode& node)
{
    Join(node);
    const auto isNew = [](size_t) { return false; };
    m_newKeys.push_back(node.Folder());
    size_t first = m_newKeys.size() - 1;
    if (m_newKeys.size() > m_newIndex.Room()) {
        m_newIndex.Reset(m_newKeys.size() * 2);
        first = 0;
    }
    for (; first < m_newKeys.size(); ++first)
        m_newIndex.Put(HashName(PathOf(m_newKeys[first])), first, isNew);
}

bool FileTransaction::CanSpill(const FileNode& node) const
{
    return node.handles == 0 && node.closings == 0 && !node.HasWaitedBefore() && node.Folder().size() > m_root.size();
}

void FileTransaction::Rest(FileNode& node, size_t bytes, std::vector<FileNode*>& gone)
{
    m_resting -= node.restingBytes;
    node.restingBytes = kTexts * bytes + kOverhead;
    m_resting += node.restingBytes;
    if (m_resting <= m_spillAt)
        return;
    unsigned code = kErrorSuccess;
    std::erase_if(m_members, [&](FileNode* member) {
        if (code != kErrorSuccess || !CanSpill(*member))
            return false;
        code = m_spill.Put(*member);
        if (code != kErrorSuccess)
            return false;
        m_resting -= member->restingBytes;
        gone.push_back(member);
        return true;
    });
    // What the disk doesn't take stays in memory.
    m_spillAt = m_resting + m_budget;
}

unsigned FileTransaction::Resume(FileNode& node)
{
    bool isFound = false;
    const unsigned code = m_spill.IsEmpty() ? kErrorSuccess : m_spill.Take(node, isFound);
    if (code == kErrorSuccess && isFound)
        m_members.push_back(&node);
    return code;
}

unsigned FileTransaction::Commit(SaveTools& tools, const SaveDone& done)
{
    FileCommit commit(tools, m_spill, done);
    const unsigned code = commit.Run(m_members);
    m_leftJournal = commit.HasLeftJournal();
    if (code == kErrorSuccess)
        Release();
    return code;
}

void FileTransaction::Release()
{
    for (FileNode* const node : m_members)
        node->EndTransaction();
    m_members.clear();
    m_newKeys.clear();
    m_newIndex.Reset(0);
    m_spill = TransactionSpill(m_root);
}

void FileTransaction::RollBack()
{
    for (FileNode* const node : m_members) {
        node->RollBack();
        if (FindNew(node->Folder()) != NameIndex::kNone)
            node->Forget();
    }
    Release();
}

} // namespace ostrand
