#include "stores/file_extras.h"

#include "stores/store_lock.h"

namespace ostrand {

namespace {

bool Told(IReportMessageParams& report, unsigned code) { return code == kErrorSuccess || Fail(report, code); }

/// A key's file as it is.
struct Present {
    std::string folder;
    bool isThere = false;
    std::string text;
    VFileInfo info;

    /// A missing file is no failure: the key may have been deleted.
    unsigned Look(FileTree& tree, const char16_t* key)
    {
        unsigned code = tree.FindFolder(key, folder);
        if (code == kErrorSuccess)
            code = tree.ReadValuesFile(folder, text, info);
        isThere = code == kErrorSuccess;
        return IsMissing(code) ? kErrorSuccess : code;
    }
    const std::string* Text() const { return isThere ? &text : nullptr; }
};

} // namespace

bool FileExtras::BeginTransaction(IReportMessageParams& report)
{
    const FileTree::Guard guard(*m_tree);
    return Told(report, m_tree->BeginTransaction());
}

bool FileExtras::CommitTransaction(IReportMessageParams& report)
{
    const FileTree::Guard guard(*m_tree);
    return m_tree->Commit(report) == kErrorSuccess;
}

void FileExtras::RollBackTransaction()
{
    const FileTree::Guard guard(*m_tree);
    m_tree->RollBack();
}

bool FileExtras::Poll(std::vector<VUnicodeString>& keys, IReportMessageParams& report)
{
    const FileTree::Guard guard(*m_tree);
    return Told(report, m_tree->Poll(keys));
}

int FileExtras::PollDescriptor()
{
    const FileTree::Guard guard(*m_tree);
    return m_tree->PollDescriptor();
}

bool FileExtras::FindPlace(const char16_t* key, const char16_t* valueName, ValuePlace& place)
{
    const FileTree::Guard guard(*m_tree);
    FileNode* node = nullptr;
    if (m_tree->OpenPath(key, node) != kErrorSuccess)
        return false;
    place.file = node->File();
    place.line = valueName ? node->LineOf(valueName) : 0;
    m_tree->Close(*node);
    return true;
}

bool FileExtras::ListVersions(const char16_t* key, std::vector<StoreVersion>& versions, IReportMessageParams& report)
{
    const FileTree::Guard guard(*m_tree);
    Present present;
    unsigned code = present.Look(*m_tree, key);
    if (code == kErrorSuccess)
        code = m_tree->Keeper().List(present.folder, present.Text(), present.info, versions);
    return Told(report, code);
}

bool FileExtras::ReadVersion(const char16_t* key, unsigned number, std::string& text, IReportMessageParams& report)
{
    const FileTree::Guard guard(*m_tree);
    Present present;
    unsigned code = present.Look(*m_tree, key);
    if (code == kErrorSuccess)
        code = m_tree->Keeper().Read(present.folder, present.Text(), present.info, number, text);
    return Told(report, code);
}

bool FileExtras::RestoreVersion(const char16_t* key, unsigned number, IReportMessageParams& report)
{
    const FileTree::Guard guard(*m_tree);
    Present present;
    std::string text;
    std::string aside;
    unsigned code = present.Look(*m_tree, key);
    if (code == kErrorSuccess)
        code = m_tree->Keeper().Read(present.folder, present.Text(), present.info, number, text);
    if (code == kErrorSuccess)
        code = m_tree->RewriteKey(present.folder, &text, aside);
    return Told(report, code);
}

bool FileExtras::ProposeRepair(const char16_t* key, std::string& text, IReportMessageParams& report)
{
    const FileTree::Guard guard(*m_tree);
    Present present;
    const unsigned code = present.Look(*m_tree, key);
    if (code != kErrorSuccess || !present.isThere)
        return Told(report, code == kErrorSuccess ? kErrorFileNotFound : code);
    const std::optional<Damage> damage = m_tree->Keeper().Examine(present.folder, present.text);
    text = damage ? damage->good : present.text;
    return true;
}

bool FileExtras::RepairKey(const char16_t* key, std::string& aside, IReportMessageParams& report)
{
    const FileTree::Guard guard(*m_tree);
    Present present;
    unsigned code = present.Look(*m_tree, key);
    aside.clear();
    if (code == kErrorSuccess && present.isThere && m_tree->Keeper().IsDamagedNow(present.folder, present.text))
        code = m_tree->RewriteKey(present.folder, nullptr, aside);
    return Told(report, code);
}

} // namespace ostrand
