// Imported sessions on their way into the default store.
//
// A session begins as a copy of what the session Default has stored, takes the imported values over it, and is read as
// any stored session is, so that all bounds and rules hold. What belongs to a protocol that isn't loaded is stored,
// too, under the names that the sample modules use.
#pragma once

#include "config/session/apply_sessions.h"
#include "imports/imported_session.h"

namespace ostrand {

struct ImportWriteOptions {
    VUnicodeString folder;    ///< path of the folder that takes them; made where it is missing; empty for the top level
    SessionProgress progress; ///< may be empty
};

/// The path that each session gets, in their order: that of the import, with a number behind it where the store has one
/// of that name.
[[nodiscard]] VStringArray PathsOfImport(const std::vector<ImportedSession>& sessions, std::u16string_view folder);

/// Writes all of them as one transaction, and puts them at the end of their folders' lists. False, with nothing
/// written, when it was stopped (no code in the report) or the store refused.
[[nodiscard]] bool WriteImportedSessions(const std::vector<ImportedSession>& sessions,
                                         const ImportWriteOptions& options, VStringArray& paths,
                                         IReportMessageParams& report);

} // namespace ostrand
