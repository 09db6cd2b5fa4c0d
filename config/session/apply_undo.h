// The way back from the last change that was made to many sessions: each line that it changed, with what stood there
// before and behind it. Kept in the default store, in the key "Apply Undo":
//
//   Generation                  number of the subkey that counts
//   <generation>\<chunk>\<n>    one session: its path, then for each line the key below the session's, the name, the
//   text
//                               before and the text after
//
//   text = "-" | "d" number | "s" text | "b" { hexadecimal digits } | "m" { length ":" text }     "-": no such value
//
// Texts of secrets are in the form that the session's key has them in.
#pragma once

#include "config/session/apply_sessions.h"
#include "profile/change_recorder.h"

#include <memory>

namespace ostrand {

/// Writes one record; within a transaction, after whose commit the former record goes.
class ApplyUndoWriter {
public:
    explicit ApplyUndoWriter(VProfileStore& store);
    /// False when the store refused.
    bool Add(const VUnicodeString& path, const std::vector<StoredChange>& changes, IReportMessageParams& report);
    bool Finish(IReportMessageParams& report);
    /// After the commit. What can't be removed is in nobody's way.
    void RemoveFormer();

private:
    VProfileStore& m_store;
    unsigned m_former = 0; ///< 0: none
    unsigned m_generation = 1;
    unsigned m_count = 0;
    std::unique_ptr<VProfileKey> m_chunk;
};

/// Whether there is something to undo.
OSTRAND_API bool HasApplyToUndo();

struct UndoOutcome {
    unsigned restored = 0; ///< sessions that are now as before, as far as their lines weren't changed since
    unsigned missing = 0;  ///< sessions that aren't there any more, or under another path
    unsigned readOnly = 0; ///< sessions that can't be written; the record stays, for another try
    VStringArray kept;     ///< "path: name" of each line that was changed since, and stays as it is
    bool wasStopped = false;
};

/// As one transaction, as ApplyToSessions does it; the record then goes. False, with nothing changed, when there is
/// nothing to undo (kNothingToUndo), it was stopped, or the store refused. The folder of the options doesn't count.
OSTRAND_API bool UndoLastApply(const ApplyOptions& options, UndoOutcome& outcome, IReportMessageParams& report);

} // namespace ostrand
