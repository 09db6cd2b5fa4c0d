// ProfileFolderData: what a folder of sessions shows, in which order, and whether it is open. Kept in the folder's
// subkey __FolderData__, since the keys of a store have no order of a user's own.
//
//     ProfileFolderData folder(u"Lab", config->sortAlphabetical);
//     InsertName(folder.orderedSessions, u"Router2", u"Router1", false, folder.sortAlphabetical);
//     if (!folder.SaveLists(report)) ...
//
// A session that is renamed or deleted keeps the others' places when the folder's data is read before its key changes:
// read, change the key, RenameName or RemoveName, save.
#pragma once

#include "config/session/folder_list.h"
#include "profile/schema.h"

namespace ostrand {

/// A record of three values, and lists beside them. One thread at a time.
class OSTRAND_API ProfileFolderData : public VProfileRecord {
public:
    using ReadContext = VReadContext;

    /// Looks into the default store. `folder` is a path below `Sessions`, empty for the top level. Where the lists had
    /// to be brought in line with the keys, the key of the folder's data is made, with the folder if need be; nothing
    /// is written to it. Who only looks makes none. `sort` is kept for the caller.
    ProfileFolderData(std::u16string_view folder, bool sort, bool onlyLooks = false);

    /// Stores the ordered lists, and `isExpanded`, where they changed or the store lacks them. False when the store
    /// refused: `report` says why, and the writes stay queued there.
    bool SaveLists(IReportMessageParams& report);

    VProfileData* GetMember(int index) override { return Schema().GetMember(*this, index); }
    static const VSchema<ProfileFolderData>& Schema();

    VProfileString folderList, sessionList;       ///< as they are stored
    VStringArray foundFolders, foundSessions;     ///< in the store's order
    VStringArray orderedFolders, orderedSessions; ///< in the order in which they are shown
    VUnicodeString dataKeyPath;                   ///< from the store's root
    bool sortAlphabetical;
    VProfile<bool> isExpanded;

private:
    void Find(const VProfileKey& root, std::u16string_view folderPath);
};

} // namespace ostrand
