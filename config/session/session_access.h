// SessionFolderAccess: sessions on their way to and from the default store.
//
//     SessionFolderAccess sessions;
//     if (const auto session = sessions.OpenSession(u"Lab\\Router1")) {
//         session->description.SetText(u"Moved to rack 7");
//         VReportMessageParams report;
//         if (!sessions.SaveSession(*session, false, report)) ...
//     }
#pragma once

#include "config/session/session_config.h"
#include "core/report.h"

namespace ostrand {

/// How far an Apply to all got.
struct SessionCounts {
    unsigned updated = 0;
    unsigned total = 0; ///< with those that can't be written
};

/// Opens the default store for each operation's own duration. Made where the global configuration can be read; one
/// thread at a time.
class OSTRAND_API SessionFolderAccess {
public:
    /// With the global `Sort Alphabetical`.
    SessionFolderAccess();
    explicit SessionFolderAccess(bool sort) : sortAlphabetical(sort) {}

    /// Null where the path names a folder or nothing, such as a session that somebody deleted meanwhile. "Default" is
    /// always there: a missing one is made and stored.
    VUnknownPointer<SessionConfig> OpenSession(std::u16string_view path) const;

    /// To its path name: a session whose key is there unforced, so that an unchanged one isn't written; a new one by
    /// SaveNewSession. On purpose: `force` has no effect. False when the store refused: `report` says why, and the
    /// writes stay queued there.
    bool SaveSession(ISessionConfig& session, bool force, IReportMessageParams& report) const;

    /// Gives the session the path of the folder and the name, saves all of it there, and puts it at the end of the
    /// folder's list. An empty folder means the top level. The session's own name stays. A key that is there is written
    /// over.
    bool SaveNewSession(std::u16string_view folder, std::u16string_view name, ISessionConfig& session,
                        IReportMessageParams& report) const;

    /// Copies what `source` reports as changed to every session of the store, and saves each by force, so that pending
    /// defaults and migrated values go out, too. Sessions that can't be written are only counted. False when the store
    /// refused some: the first reason is in the report, and the walk went on. apply_sessions.h has the same with a
    /// preview, as one transaction, and with a way back.
    bool ApplyToAllSessions(const ISessionConfig& source, SessionCounts& counts, IReportMessageParams& report) const;

    bool sortAlphabetical;
};

} // namespace ostrand
