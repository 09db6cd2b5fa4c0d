// The Log File page of a session: where its log goes, when it starts, which lines of the user's own go into it.
#pragma once

#include "dialogs/kit/property_page.h"

namespace ostrand {

/// The values that the page edits, of whatever record has them. Borrowed.
struct LogFileValues {
    VProfileString& logFilename;
    VProfile<bool>& logPrompt;
    VProfile<bool>& startLogUponConnect;
    VProfile<bool>& rawLog;
    VProfile<bool>& newLogFileAtMidnight;
    VProfile<int>& logMode; ///< 0 overwrites, 1 appends
    VProfileString& customLogMessageConnect;
    VProfileString& customLogMessageDisconnect;
    VProfileString& customLogMessageEachLine;
    VProfile<bool>& logOnlyCustom;
};

class OSTRAND_API SessionLogFilePage final : public VPropertyTreePage {
public:
    enum Id : VControlId {
        FileName = 1,
        Browse,
        Prompt,
        StartOnConnect,
        Raw,
        NewAtMidnight,
        Mode,
        OnConnect,
        OnDisconnect,
        OnEachLine,
        OnlyCustom
    };

    explicit SessionLogFilePage(const LogFileValues& session);

    bool OnInitDialog() override;

private:
    void DoDataExchange(VDataExchange& dx) override;
    void EnableOnlyCustom();
    void OnBrowse();

    VEdited<VUnicodeString> m_fileName;
    VEdited<bool> m_prompt, m_startOnConnect, m_raw, m_newAtMidnight;
    VEdited<int> m_mode;
    VEdited<VUnicodeString> m_onConnect, m_onDisconnect, m_onEachLine;
    VEdited<bool> m_onlyCustom;
};

} // namespace ostrand
