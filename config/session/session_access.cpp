#include "config/session/session_access.h"

#include "config/global/global_config.h"
#include "config/session/folder_data.h"
#include "config/session/session_paths.h"
#include "config/session/session_walk.h"
#include "core/entry.h"
#include "profile/hives.h"

namespace ostrand {

namespace {

using Session = VUnknownPointer<SessionConfig>;

bool SortsAlphabetically()
{
    GlobalConfig* config = nullptr;
    GetGlobalConfig(config, -1);
    return config->sortAlphabetical;
}

Session Open(std::u16string_view name, const VProfileKey* key) { return Session::Adopt(new SessionConfig(name, key)); }

/// What the first of several refusals said.
void KeepFirst(IReportMessageParams& report, IReportMessageParams& refusal)
{
    if (report.GetCode() == 0)
        report.Assign(&refusal);
}

} // namespace

SessionFolderAccess::SessionFolderAccess() : SessionFolderAccess(SortsAlphabetically()) {}

Session SessionFolderAccess::OpenSession(std::u16string_view path) const
{
    const VUnicodeString keyPath = BuildSessionKeyPath(path);
    {
        const VProfileStore store(true);
        if (!path.empty() && store.GetRootKey()->KeyExists(keyPath.c_str())) {
            const VProfileKey key(store.GetRootKey(), keyPath.c_str());
            if (!HasSessionMark(key))
                return {};
            Session session = Open(SplitSessionPath(path).name, &key);
            session->SetPathName(VUnicodeString(path));
            return session;
        }
    }
    return path == kDefaultSession ? Open(path, nullptr) : Session();
}

bool SessionFolderAccess::SaveSession(ISessionConfig& session, bool, IReportMessageParams& report) const
{
    const VUnicodeString path = session.GetPathName();
    const VUnicodeString keyPath = BuildSessionKeyPath(path);
    VProfileStore store;
    if (!store.GetRootKey()->KeyExists(keyPath.c_str())) {
        const SessionPathParts parts = SplitSessionPath(path);
        return SaveNewSession(parts.folder, parts.name, session, report);
    }
    VProfileKey key(store.GetRootKey(), keyPath.c_str());
    session.Save(&key, false);
    return key.Flush(report);
}

bool SessionFolderAccess::SaveNewSession(std::u16string_view folder, std::u16string_view name, ISessionConfig& session,
                                         IReportMessageParams& report) const
{
    const VUnicodeString path = JoinKeys(folder, name);
    {
        VProfileStore store;
        VProfileKey key(store.GetRootKey(), BuildSessionKeyPath(path).c_str());
        session.SetPathName(path);
        session.Save(&key, true);
        if (!key.Flush(report))
            return false;
    }
    ProfileFolderData list(folder, sortAlphabetical);
    if (!list.SaveLists(report))
        return false;
    InsertName(list.orderedSessions, VUnicodeString(name), {}, false, sortAlphabetical);
    return list.SaveLists(report);
}

bool SessionFolderAccess::ApplyToAllSessions(const ISessionConfig& source, SessionCounts& counts,
                                             IReportMessageParams& report) const
{
    counts = {};
    report.SetMessage(0);
    const VProfileStore store;
    WalkSessions(store, {}, [&](const VUnicodeString& path, VProfileKey& key) {
        ++counts.total;
        if (!key.IsWritable())
            return true;
        ++counts.updated;
        const Session session = Open(SplitSessionPath(path).name, &key);
        session->AcceptChanges();
        session->CopyFrom(&source);
        session->Save(&key, true);
        VReportMessageParams refusal;
        if (!key.Flush(refusal))
            KeepFirst(report, refusal);
        return true;
    });
    return report.GetCode() == 0;
}

} // namespace ostrand
