#include "config/session/folder_data.h"

#include "config/global/global_config.h"
#include "config/session/session_paths.h"
#include "core/entry.h"
#include "core/fold.h"
#include "profile/hives.h"

namespace ostrand {

namespace {

using C = ProfileFolderData;

// clang-format off
constexpr std::array kRows = {
    String<&C::folderList>(u"Folder List", u"", u"Order of the subfolders, each name followed by a colon."),
    String<&C::sessionList>(u"Session List", u"", u"Order of the sessions, each name followed by a colon."),
    Bool<&C::isExpanded>(u"Is Expanded", false, u"Whether the folder is open in the session tree."),
};
// clang-format on

static_assert(NamesAreUnique(kRows));

bool HidesDotNames()
{
    GlobalConfig* config = nullptr;
    GetGlobalConfig(config, -1);
    return config->hideDotSessionFiles;
}

bool IsShown(std::u16string_view subkey, bool hidesDotNames)
{
    return !(hidesDotNames && subkey.starts_with(u'.')) && !EqualNoCase(subkey, kFolderDataKey) &&
           subkey != kTemporarySession;
}

} // namespace

const VSchema<ProfileFolderData>& ProfileFolderData::Schema()
{
    static const auto& schema = *new VSchema<ProfileFolderData>(kRows);
    return schema;
}

ProfileFolderData::ProfileFolderData(std::u16string_view folder, bool sort, bool onlyLooks)
    : dataKeyPath(JoinKeys(BuildSessionKeyPath(folder), kFolderDataKey)),
      sortAlphabetical(sort)
{
    const auto load = [this](const VProfileKey* key) { Schema().Load(*this, ReadContext{key, false}); };
    const VProfileStore store(true);
    const VProfileKey& root = *store.GetRootKey();
    Find(root, SplitSessionPath(dataKeyPath).folder);

    const bool isMissing = !root.KeyExists(dataKeyPath.c_str());
    if (!isMissing) {
        const VProfileKey data(&root, dataKeyPath.c_str());
        load(&data);
    }
    const bool areSessionsChanged = MergeFolderList(sessionList, foundSessions, orderedSessions);
    const bool areFoldersChanged = MergeFolderList(folderList, foundFolders, orderedFolders);
    if (isMissing && onlyLooks)
        load(nullptr);
    if (onlyLooks || (!isMissing && !areSessionsChanged && !areFoldersChanged))
        return;
    const VProfileStore writable;
    const VProfileKey made(writable.GetRootKey(), dataKeyPath.c_str());
    load(&made);
}

void ProfileFolderData::Find(const VProfileKey& root, std::u16string_view folderPath)
{
    const VUnicodeString path(folderPath);
    if (!root.KeyExists(path.c_str()))
        return;
    const bool hidesDotNames = HidesDotNames();
    const VProfileKey folder(&root, path.c_str());
    VProfileKeyIterator subkeys(&folder, false);
    VUnicodeString subkey;
    while (subkeys.Next(subkey))
        if (IsShown(subkey, hidesDotNames))
            (HasSessionMark(VProfileKey(&folder, subkey.c_str())) ? foundSessions : foundFolders).Append(subkey);
}

bool ProfileFolderData::SaveLists(IReportMessageParams& report)
{
    folderList = JoinFolderList(orderedFolders);
    sessionList = JoinFolderList(orderedSessions);
    const VProfileStore store;
    VProfileKey key(store.GetRootKey(), dataKeyPath.c_str());
    Save(&key, false);
    return key.Flush(report);
}

} // namespace ostrand
