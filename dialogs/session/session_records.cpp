#include "dialogs/session/session_records.h"

#include "config/session/session_paths.h"

namespace ostrand {

namespace {

/// A new session is stored nowhere yet.
VRecordPlace PlaceOf(const SessionConfig& session, bool isNewSession)
{
    return {isNewSession ? nullptr : GetProfileStoreFactory(), BuildSessionKeyPath(session.GetPathName())};
}

} // namespace

SessionRecords::SessionRecords(SessionConfig& session, GlobalConfig& global, bool isNewSession)
    : m_globalDefaults(VUnknownPointer<GlobalConfig>::Adopt(new GlobalConfig(nullptr, global.IsOrvane()))),
      m_defaults(nullptr, global, true),
      m_values(session, m_defaults, PlaceOf(session, isNewSession)),
      m_terminal(session.terminal, m_defaults.terminal, PlaceOf(session, isNewSession)),
      m_global(global, *m_globalDefaults, {GetProfileStoreFactory(), u"Global"})
{
}

void SessionRecords::AddTo(VForm& form) const
{
    form.AddRecord(m_values);
    form.AddRecord(m_terminal);
    form.AddRecord(m_global);
}

} // namespace ostrand
