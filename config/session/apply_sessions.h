// One change made to many sessions: what it would do, doing it as one transaction, and taking the last one back.
//
//     ApplyPreview preview;
//     PreviewApply(CopyChangesOf(*source), {}, preview);
//     ... show it, ask ...
//     ApplyOutcome outcome;
//     if (!ApplyToSessions(CopyChangesOf(*source), {}, outcome, report)) ...
//     UndoLastApply({}, undone, report);
//
// Each session is read, takes the edit, and is saved by force, so pending defaults and migrated values go out with it.
// Memory doesn't grow with the number of sessions, as far as the store's transactions keep that promise.
#pragma once

#include "config/session/session_access.h"
#include "profile/stored_value.h"

#include <functional>
#include <optional>
#include <vector>

namespace ostrand {

/// What is done to each session, right after it was read and took AcceptChanges.
using SessionEdit = std::function<void(SessionConfig& session)>;

/// Copies what `source` reports as changed at the time of each call. The source is lent.
OSTRAND_API SessionEdit CopyChangesOf(const ISessionConfig& source);

/// Is told how far a long run is, after each session; false stops it.
using SessionProgress = std::function<bool(unsigned sessionsDone)>;

struct ApplyOptions {
    VUnicodeString folder;    ///< only the sessions below this path; empty for all
    SessionProgress progress; ///< may be empty
};

/// One value that would change, in this many sessions.
struct AppliedLine {
    VUnicodeString key; ///< below the session's, as a rule empty
    VUnicodeString name;
    std::optional<StoreValue> after; ///< none: it would go
    bool varies = false;             ///< other sessions get another one
    unsigned sessions = 0;
    unsigned missing = 0; ///< of these, where it isn't there yet
};

struct ApplyPreview {
    std::vector<AppliedLine> lines; ///< in the order in which they were met
    unsigned total = 0;
    unsigned changed = 0;  ///< sessions with at least one line
    VStringArray readOnly; ///< paths of the sessions that would be left as they are
    bool wasStopped = false;
};

/// Nothing is written.
OSTRAND_API void PreviewApply(const SessionEdit& edit, const ApplyOptions& options, ApplyPreview& preview);

struct ApplyOutcome {
    SessionCounts counts; ///< as SessionFolderAccess::ApplyToAllSessions counts
    unsigned changed = 0; ///< sessions with at least one line
    bool wasStopped = false;
};

/// As one transaction over all sessions that can be written: all are changed, or none, also when the machine fails.
/// What it takes to undo it is stored along, in the key "Apply Undo", in place of that of the last one. False, with
/// nothing changed, when it was stopped, or the store has no transactions or refused; except that a commit which was
/// refused as recorded is finished by the store later.
OSTRAND_API bool ApplyToSessions(const SessionEdit& edit, const ApplyOptions& options, ApplyOutcome& outcome,
                                 IReportMessageParams& report);

} // namespace ostrand
