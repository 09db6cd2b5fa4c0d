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

template <class Act>
bool FileExtras::WithPresent(const char16_t* key, IReportMessageParams& report, Act act)
{
    const FileTree::Guard guard(*m_tree);
    Present present;
    unsigned code = present.Look(*m_tree, key);
    if (code == kErrorSuccess)
        code = act(present);
    return Told(report, code);
}

bool FileExtras::ListVersions(const char16_t* key, std::vector<StoreVersion>& versions, IReportMessageParams& report)
{
    return WithPresent(key, report, [&](const Present& present) {
        return m_tree->Keeper().List(present.folder, present.Text(), present.info, versions);
    });
}

bool FileExtras::ReadVersion(const char16_t* key, unsigned number, std::string& text, IReportMessageParams& report)
{
    return WithPresent(key, report, [&](const Present& present) {
        return m_tree->Keeper().Read(present.folder, present.Text(), present.info, number, text);
    });
}

bool FileExtras::RestoreVersion(const char16_t* key, unsigned number, IReportMessageParams& report)
{
    return WithPresent(key, report, [&](const Present& present) {
        std::string text;
        std::string aside;
        const unsigned code = m_tree->Keeper().Read(present.folder, present.Text(), present.info, number, text);
        return code == kErrorSuccess ? m_tree->RewriteKey(present.folder, &text, aside) : code;
    });
}

bool FileExtras::ProposeRepair(const char16_t* key, std::string& text, IReportMessageParams& report)
{
    return WithPresent(key, report, [&](const Present& present) {
        if (!present.isThere)
            return kErrorFileNotFound;
        text = m_tree->Keeper().MadeGood(present.folder, present.text).value_or(present.text);
        return kErrorSuccess;
    });
}

bool FileExtras::RepairKey(const char16_t* key, std::string& aside, IReportMessageParams& report)
{
    aside.clear();
    return WithPresent(key, report, [&](const Present& present) {
        const bool isDamaged = present.isThere && m_tree->Keeper().MadeGood(present.folder, present.text);
        return isDamaged ? m_tree->RewriteKey(present.folder, nullptr, aside) : kErrorSuccess;
    });
}

} // namespace ostrand
