// Sessions and folders of sessions that get another path, a copy, or go; with the lists of the folders that show them.
//
//     VReportMessageParams report;
//     if (!RenameSession(u"Lab\\Router1", u"Archive\\Router1", config->sortAlphabetical, report)) ...
//
// In the default store. Paths are below `Sessions`; what may be a name is the caller's business (session_name.h). False
// when the store refused: `report` says why. One thread at a time.
#pragma once

#include "core/report.h"
#include "platform/export.h"

#include <string_view>

namespace ostrand {

/// A session, or a folder with all below it, also into another folder, which is made where it is missing. All values
/// come along, also those that this version doesn't know. In its folder's list it keeps its place; in another's it
/// stands at the end. The new path is free, or the old one in another case, and not below the old one.
OSTRAND_API bool RenameSession(std::u16string_view from, std::u16string_view to, bool sortAlphabetical,
                               IReportMessageParams& report);
/// A session with all its values. In the same folder's list the copy stands behind it, in another's at the end.
OSTRAND_API bool CopySession(std::u16string_view from, std::u16string_view to, bool sortAlphabetical,
                             IReportMessageParams& report);
/// A session, or a folder with all below it.
OSTRAND_API bool DeleteSession(std::u16string_view path, bool sortAlphabetical, IReportMessageParams& report);

} // namespace ostrand
