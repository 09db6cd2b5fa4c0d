// The Log File page of a session: where its log goes, when it starts, which lines of the user's own go into it.
#pragma once

#include "config/session/session_values.h"
#include "dialogs/kit/property_page.h"

namespace ostrand {

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

    /// Borrows the values.
    explicit SessionLogFilePage(SessionValues& session);

    bool OnInitDialog() override;

private:
    void DoDataExchange(VDataExchange& dx) override;
    void EnableOnlyCustom();
    void OnBrowse();

    VEdited<VUnicodeString> m_fileName;
    VEdited<bool> m_prompt, m_startOnConnect, m_raw, m_newAtMidnight, m_appends;
    VEdited<VUnicodeString> m_onConnect, m_onDisconnect, m_onEachLine;
    VEdited<bool> m_onlyCustom;
};

} // namespace ostrand
