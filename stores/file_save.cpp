#include "stores/file_save.h"

#include "platform/error_codes.h"
#include "stores/file_render.h"
#include "stores/store_lock.h"

namespace ostrand {

unsigned FileSave::Prepare()
{
    m_file.path = Files().ResolveLinks(m_node.File());
    if (const unsigned code = ReadTheirs(); code != kErrorSuccess)
        return code;
    std::string merged = Theirs().WithEdits(Merge());
    m_text = m_fixedText ? *m_fixedText : std::move(merged);
    return m_text.size() > FileDocument::kLimit ? kErrorMoreData : kErrorSuccess;
}

unsigned FileSave::ReadTheirs()
{
    std::string text;
    const unsigned code = Files().ReadWhole(m_file.path, FileDocument::kLimit, text, m_file.info);
    m_file.exists = code == kErrorSuccess;
    if (!m_file.exists && !IsMissing(code))
        return code;
    m_damaged.reset();
    std::optional<std::string> good;
    if (m_file.exists)
        good = m_tools.keeper.MadeGood(m_node.Folder(), text);
    if (good) {
        m_damaged = std::move(text);
        text = std::move(*good);
    }
    m_isUnchanged = text == m_node.Document().Text();
    if (!m_isUnchanged)
        m_theirs = FileDocument(std::move(text));
    return kErrorSuccess;
}

std::vector<ValueEdit> FileSave::Merge()
{
    const FileDocument& theirs = Theirs();
    ValueBases& bases = m_node.SettledBases();
    std::vector<ValueEdit> edits;
    m_conflicts.clear();
    for (const QueuedValue& queued : m_node.Queue().Values()) {
        const FileDocument::Found found = theirs.FindWhole(queued.name.c_str());
        const uint64_t their = found ? HashValue(found.value) : ValueBases::kNoValue;
        const uint64_t our = queued.isDeleted ? ValueBases::kNoValue : HashValue(queued.text);
        // Ours as last known is no change, so theirs stays, whatever they made of it.
        if (our == their || bases.Compare(queued.hash, our) == BaseRelation::Same)
            continue;
        if (bases.Compare(queued.hash, their) == BaseRelation::Different)
            m_conflicts.push_back(queued.name);
        edits.push_back({queued.name.c_str(), queued.isDeleted ? nullptr : &queued.text});
    }
    return edits;
}

template <class Once>
unsigned FileSave::Insist(Once once)
{
    constexpr int kTries = 8;
    unsigned code = once();
    for (int i = 1; code == kErrorSharingViolation && i < kTries; ++i) {
        code = Prepare();
        if (code == kErrorSuccess)
            code = SetAside();
        if (code == kErrorSuccess)
            code = once();
    }
    return code;
}

unsigned FileSave::Write()
{
    return Insist([this] { return WriteOnce(); });
}

unsigned FileSave::WriteUnsynced()
{
    return Insist([this] { return m_tools.replacer.ReplaceUnsynced(m_file, m_text); });
}

unsigned FileSave::WriteOnce()
{
    unsigned code = kErrorSuccess;
    if (IsNeeded())
        code = SetAside();
    if (code == kErrorSuccess && IsNeeded() && Theirs().Text().empty())
        code = m_tools.replacer.MakeDurable(FolderOf(m_file.path));
    if (code == kErrorSuccess && IsNeeded())
        code = m_tools.replacer.Replace(m_file, m_text);
    // Also for a file that needs no writing: an earlier save may have got as far as this.
    return code == kErrorSuccess ? m_tools.replacer.SyncNames(FolderOf(m_file.path)) : code;
}

unsigned FileSave::SetAside()
{
    if (!m_damaged || m_damaged->empty() || !m_aside.empty())
        return kErrorSuccess;
    const unsigned code = FileKeeper::SetAside(m_file.path, *m_damaged, m_aside);
    if (code != kErrorSuccess)
        m_aside.clear();
    return code;
}

unsigned FileSave::Finish()
{
    const unsigned code =
        m_tools.keeper.Record(m_node.Folder(), Theirs().Text(), m_text, m_conflicts, m_file.info.changed);
    m_node.TakeSaved(std::move(m_text));
    return code;
}

unsigned FileSave::Undo()
{
    if (!m_file.exists) {
        const unsigned code = Files().Remove(m_file.path);
        return IsMissing(code) ? kErrorSuccess : code;
    }
    ReplacedFile now = m_file;
    if (const unsigned code = Files().GetInfo(now.path, now.info); code != kErrorSuccess)
        return code;
    return m_tools.replacer.ReplaceUnsynced(now, m_damaged ? *m_damaged : Theirs().Text());
}

} // namespace ostrand
