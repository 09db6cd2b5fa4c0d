// What the dialog of a session's options tells its pages of the records behind them: the session, its terminal, and the
// global record that third states refer to.
#pragma once

#include "config/global/global_config.h"
#include "config/session/session_config.h"
#include "dialogs/kit/form.h"
#include "dialogs/kit/record_info.h"

namespace ostrand {

/// Borrows both records. Made before any value is changed.
class OSTRAND_API SessionRecords {
public:
    SessionRecords(SessionConfig& session, GlobalConfig& global, bool isNewSession);

    void AddTo(VForm& form) const;

private:
    const VUnknownPointer<GlobalConfig> m_globalDefaults;
    SessionValues m_defaults;
    const VRecordInfo<SessionValues> m_values;
    const VRecordInfo<TerminalConfig> m_terminal;
    const VRecordInfo<GlobalConfig> m_global;
};

} // namespace ostrand
