#include "config/session/session_moves.h"

#include "config/session/folder_data.h"
#include "config/session/session_paths.h"
#include "core/fold.h"
#include "profile/key_copy.h"

namespace ostrand {

namespace {

/// A path is in one of a folder's two lists.
template <class Change>
void ChangeLists(ProfileFolderData& folder, Change change)
{
    change(folder.orderedSessions);
    change(folder.orderedFolders);
}

/// Lists what the folder now has.
bool SaveListsOf(std::u16string_view folder, bool sortAlphabetical, IReportMessageParams& report)
{
    return ProfileFolderData(folder, sortAlphabetical).SaveLists(report);
}

bool RemoveFrom(ProfileFolderData& folder, std::u16string_view name, IReportMessageParams& report)
{
    ChangeLists(folder, [name](VStringArray& list) { RemoveName(list, name); });
    return folder.SaveLists(report);
}

} // namespace

bool RenameSession(std::u16string_view from, std::u16string_view to, bool sortAlphabetical,
                   IReportMessageParams& report)
{
    const SessionPathParts old = SplitSessionPath(from);
    const SessionPathParts fresh = SplitSessionPath(to);
    ProfileFolderData folder(old.folder, sortAlphabetical); // with the old name in its place
    if (!MoveKey(VProfileStore(), BuildSessionKeyPath(from), BuildSessionKeyPath(to), report))
        return false;
    if (!EqualNoCase(old.folder, fresh.folder))
        return RemoveFrom(folder, old.name, report) && SaveListsOf(fresh.folder, sortAlphabetical, report);
    ChangeLists(folder, [&](VStringArray& list) { RenameName(list, old.name, VUnicodeString(fresh.name)); });
    return folder.SaveLists(report);
}

bool CopySession(std::u16string_view from, std::u16string_view to, bool sortAlphabetical, IReportMessageParams& report)
{
    {
        const VProfileStore store;
        const VUnicodeString toPath = BuildSessionKeyPath(to);
        bool isCopied = false;
        {
            const VProfileKey original(store.GetRootKey(), BuildSessionKeyPath(from).c_str());
            VProfileKey copy(store.GetRootKey(), toPath.c_str());
            isCopied = CopyKey(original, copy, report);
        }
        if (!isCopied) {
            store.GetRootKey()->DeleteKey(toPath.c_str());
            return false;
        }
    }
    const SessionPathParts old = SplitSessionPath(from);
    const SessionPathParts fresh = SplitSessionPath(to);
    ProfileFolderData folder(fresh.folder, sortAlphabetical);
    if (EqualNoCase(old.folder, fresh.folder))
        InsertName(folder.orderedSessions, VUnicodeString(fresh.name), VUnicodeString(old.name), false,
                   sortAlphabetical);
    return folder.SaveLists(report);
}

bool DeleteSession(std::u16string_view path, bool sortAlphabetical, IReportMessageParams& report)
{
    const SessionPathParts parts = SplitSessionPath(path);
    ProfileFolderData folder(parts.folder, sortAlphabetical);
    const VProfileStore store;
    if (!store.GetRootKey()->DeleteKey(BuildSessionKeyPath(path).c_str())) {
        report.Assign(&store.GetRootKey()->GetStatus());
        return false;
    }
    return RemoveFrom(folder, parts.name, report);
}

} // namespace ostrand
