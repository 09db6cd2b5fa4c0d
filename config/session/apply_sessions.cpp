#include "config/session/apply_sessions.h"

#include "config/session/apply_undo.h"
#include "config/session/session_walk.h"
#include "config/session/store_transaction.h"
#include "core/fold.h"
#include "profile/change_recorder.h"

#include <map>

namespace ostrand {

namespace {

/// What a forced save of the edited session would change.
std::vector<StoredChange> ChangesOf(const VUnicodeString& path, const VProfileKey& key, const SessionEdit& edit)
{
    const auto session = VUnknownPointer<SessionConfig>::Adopt(new SessionConfig(SplitSessionPath(path).name, &key));
    session->SetPathName(path);
    session->AcceptChanges();
    edit(*session);
    std::vector<StoredChange> changes;
    VProfileKey recorder(std::make_unique<ChangeRecorder>(&key, changes));
    session->Save(&recorder, true);
    return changes;
}

bool GoesOn(const ApplyOptions& options, unsigned done) { return !options.progress || options.progress(done); }

/// Puts changes of session after session together, value by value.
class LineCounter {
public:
    explicit LineCounter(std::vector<AppliedLine>& lines) : m_lines(lines) {}

    void Add(StoredChange& change)
    {
        const auto [place, isNew] = m_places.try_emplace(NameOf(change), m_lines.size());
        if (isNew)
            m_lines.push_back({change.key, change.name, std::move(change.after)});
        AppliedLine& line = m_lines[place->second];
        if (!isNew && line.after != change.after)
            line.varies = true;
        ++line.sessions;
        line.missing += change.before ? 0 : 1;
    }

private:
    static std::u16string NameOf(const StoredChange& change)
    {
        std::u16string name(change.key.View());
        (name += u'\\') += change.name;
        return FoldedCase(name);
    }

    std::vector<AppliedLine>& m_lines;
    std::map<std::u16string, size_t> m_places;
};

} // namespace

SessionEdit CopyChangesOf(const ISessionConfig& source)
{
    return [&source](SessionConfig& session) { session.CopyFrom(&source); };
}

void PreviewApply(const SessionEdit& edit, const ApplyOptions& options, ApplyPreview& preview)
{
    preview = {};
    LineCounter lines(preview.lines);
    const VProfileStore store; // not read-only, to see which sessions can be written
    preview.wasStopped = !WalkSessions(store, options.folder, [&](const VUnicodeString& path, VProfileKey& key) {
        ++preview.total;
        if (!key.IsWritable())
            preview.readOnly.Append(path);
        else {
            std::vector<StoredChange> changes = ChangesOf(path, key, edit);
            preview.changed += changes.empty() ? 0 : 1;
            for (StoredChange& change : changes)
                lines.Add(change);
        }
        return GoesOn(options, preview.total);
    });
}

bool ApplyToSessions(const SessionEdit& edit, const ApplyOptions& options, ApplyOutcome& outcome,
                     IReportMessageParams& report)
{
    outcome = {};
    VProfileStore store;
    StoreTransaction transaction(store);
    if (!transaction.Begin(report))
        return false;
    ApplyUndoWriter undo(store);
    bool isRefused = false;
    const bool isWhole = WalkSessions(store, options.folder, [&](const VUnicodeString& path, VProfileKey& key) {
        ++outcome.counts.total;
        if (key.IsWritable()) {
            ++outcome.counts.updated;
            if (const std::vector<StoredChange> changes = ChangesOf(path, key, edit); !changes.empty()) {
                ++outcome.changed;
                isRefused = !WriteChanges(key, changes, report) || !undo.Add(path, changes, report);
            }
        }
        return !isRefused && GoesOn(options, outcome.counts.total);
    });
    outcome.wasStopped = !isWhole && !isRefused;
    if (!isWhole)
        return false;
    if (outcome.changed == 0)
        return true;
    if (!undo.Finish(report) || !transaction.Commit(report))
        return false;
    undo.RemoveFormer();
    return true;
}

} // namespace ostrand
