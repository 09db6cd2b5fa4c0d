#include "config/global/definition_store.h"

#include "config/session/session_paths.h"
#include "core/fold.h"
#include "core/messages.h"
#include "profile/hives.h"
#include "profile/key_copy.h"

namespace ostrand {

namespace {

} // namespace

VUnicodeString DefinitionStore::PathOf(std::u16string_view name) const { return JoinKeys(m_rootKey, name); }

bool DefinitionStore::Exists(std::u16string_view name) const
{
    const VProfileStore store(true);
    const VUnicodeString path = PathOf(name);
    return store.GetRootKey()->KeyExists(path.c_str()) && HasSessionMark(VProfileKey(store.GetRootKey(), path.c_str()));
}

void DefinitionStore::ListNames(VStringArray& out) const
{
    const VProfileStore store(true);
    if (!store.GetRootKey()->KeyExists(m_rootKey))
        return;
    const VProfileKey all(store.GetRootKey(), m_rootKey);
    VProfileKeyIterator keys(&all, false);
    VUnicodeString name;
    while (keys.Next(name))
        if (HasSessionMark(VProfileKey(&all, name.c_str())))
            out.Append(name);
}

bool DefinitionStore::Save(std::u16string_view name, VProfileData& record, bool force,
                           IReportMessageParams& report) const
{
    const VProfileStore store;
    const VUnicodeString path = PathOf(name);
    const bool isNew = !store.GetRootKey()->KeyExists(path.c_str());
    VProfileKey key(store.GetRootKey(), path.c_str());
    record.Save(&key, force || isNew);
    if (!HasSessionMark(key))
        key.WriteDword(kIsSession, 1);
    return key.Flush(report);
}

bool DefinitionStore::Delete(std::u16string_view name, IReportMessageParams& report) const
{
    const VProfileStore store;
    VProfileKey* const root = store.GetRootKey();
    const VUnicodeString path = PathOf(name);
    if (!root->KeyExists(path.c_str()))
        return Fail(report, kNameUnknown, m_noun, name);
    if (root->DeleteKey(path.c_str()))
        return true;
    report.Assign(&root->GetStatus());
    return false;
}

bool DefinitionStore::Rename(std::u16string_view from, std::u16string_view to, IReportMessageParams& report) const
{
    if (!Exists(from))
        return Fail(report, kNameUnknown, m_noun, from);
    if (from == to)
        return true;
    if (EqualNoCase(from, to) ? !CheckName(to, report) : !CheckNewName(to, report))
        return false;
    return MoveKey(VProfileStore(), PathOf(from), PathOf(to), report);
}

bool DefinitionStore::CheckNewName(std::u16string_view name, IReportMessageParams& report) const
{
    if (!CheckName(name, report))
        return false;
    const VProfileStore store(true);
    return !store.GetRootKey()->KeyExists(PathOf(name).c_str()) || Fail(report, kNameExists, m_noun, name);
}

bool DefinitionStore::CheckName(std::u16string_view name, IReportMessageParams& report) const
{
    if (name.empty())
        return Fail(report, kNameMissing, m_noun);
    if (name.find(u'\\') != std::u16string_view::npos)
        return Fail(report, kNameIllegalCharacter, m_noun, u"\\");
    return true;
}

} // namespace ostrand
