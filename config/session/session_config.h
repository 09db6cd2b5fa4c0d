// SessionConfig: the record of one session, a saved connection with all its options.
//
//     VUnknownPointer<SessionConfig> session = SessionFolderAccess().OpenSession(u"Lab\\Router1");
//     session->terminal.scrollback = 5000;
//     SessionFolderAccess().SaveSession(*session, false, report);
#pragma once

#include "config/session/connect_config_ptr.h"
#include "config/session/logon_actions.h"
#include "config/session/session_interface.h"
#include "config/session/session_values.h"

namespace ostrand {

/// A plain public record. Its values read and write the session's key; whoever shows a dialog takes AcceptChanges
/// first, so that IsModified and CopyFrom tell afterwards what the user changed.
///
/// A session doesn't inherit from the default one: what its key lacks takes the built-in default. The default session's
/// values reach others only by SessionFolderAccess::ApplyToAllSessions.
class OSTRAND_API SessionConfig : public VUnknown<ISessionConfig>, public VProfileRecord, public SessionValues {
public:
    /// Reads the session's own key, with the global configuration of the process; a null key means a new session, all
    /// defaults. A new session that is called "Default" writes itself to the store if that has none: the default
    /// session comes into being by being asked for. One reference, the caller's.
    SessionConfig(std::u16string_view name, const VProfileKey* key);
    /// The same with the global record that is given, lent for the call; it never writes.
    SessionConfig(std::u16string_view name, const VProfileKey* key, const GlobalConfig& global);

    bool IsModified() const override { return VProfileRecord::IsModified(); }
    void AcceptChanges() override { VProfileRecord::AcceptChanges(); }
    void RevertChanges() override { VProfileRecord::RevertChanges(); }
    void Save(VProfileKey* key, bool force) override { VProfileRecord::Save(key, force); }
    void CopyFrom(const ISessionConfig* other) override;
    const VUnicodeString& GetPathName() const override { return m_pathName; }
    void SetPathName(const VUnicodeString& path) override;
    const VUnicodeString& GetSessionName() const override { return m_sessionName; }
    void SetSessionName(const VUnicodeString& sessionName) override { m_sessionName = sessionName; }
    void GetConnectionSummary(VUnicodeString& out) const override;
    SessionConfig* Clone() const override { return new SessionConfig(*this); }
    bool IsTerminalConnectable(IReportMessageParams* report) const override;
    bool IsTransferConnectable(IReportMessageParams* report) const override;
    bool HasTerminalProtocol() const override { return terminalProtocol.HasProtocol(); }
    bool HasTransferProtocol() const override { return transferProtocol.HasProtocol(); }
    ConnectConfig* GetTerminalConnectConfig() override { return terminalProtocol.GetActive(); }
    const ConnectConfig* GetTerminalConnectConfig() const override { return terminalProtocol.GetActive(); }
    ConnectConfig* GetTransferConnectConfig() override { return transferProtocol.GetActive(); }
    const ConnectConfig* GetTransferConnectConfig() const override { return transferProtocol.GetActive(); }
    void SetTerminalProtocol(const VUnicodeString& protocol) override;
    void GetTerminalProtocolName(VUnicodeString& out) const override { out = terminalProtocol.GetProtocolName(); }
    void GetTransferProtocolName(VUnicodeString& out) const override { out = transferProtocol.GetProtocolName(); }
    void GetTransferFirewallName(IString* out) const override;
    void EnumerateFirewalls(VStringArray& out) const override;
    bool IsDefaultSession() const override;
    void GetCallerText(VUnicodeString& out) const override { out = m_callerText; }
    void SetCallerText(const char16_t* text) override { m_callerText = text; }
    bool IsNotMarked() const override { return !defaultMarker; }
    VProfileData* FindValue(const VUnicodeString& valueName) override;

    /// Selects by exact name; clears the protocol note.
    void SetTransferProtocol(const VUnicodeString& protocol);
    /// The side that the running application works with: the transfer side in Orvane, else the terminal side.
    void SetActiveProtocol(const VUnicodeString& protocol);
    void GetActiveProtocolName(VUnicodeString& out) const;
    /// One line for the list of transfers; empty without a transfer protocol.
    void GetTransferStatusText(VUnicodeString& out) const;
    /// A template with the tokens of core/paths/path_tokens.h, for this session and the host of its active protocol.
    /// False, with the report, for one that doesn't expand.
    bool ExpandLogFileName(VUnicodeString& out, std::u16string_view text, IReportMessageParams& report) const;
    /// Whether the template expands to the file.
    bool IsLogFileName(std::u16string_view text, std::u16string_view file) const;
    /// The list is emptied first; OutOfRange of the list for an incomplete last action, behind the complete ones.
    void ReadLogonActions(LogonActionList& list) const;
    void WriteLogonActions(const LogonActionList& list);

    /// The mark, the two sides, the terminal, the values, the printer's line.
    VProfileData* GetMember(int index) override;

    // The application's own, kept as they are.
    bool defaultMarker = false;
    bool secondMarker = false;
    VUnicodeString protocolNote;

    /// What the protocols of the session share. It stands ahead of them, who borrow it.
    CommonConfig commonConfig;
    ConnectConfigPtr terminalProtocol;
    ConnectConfigPtr transferProtocol;

private:
    SessionConfig(const SessionConfig& other);
    void BeTheDefault();
    VUnicodeString ActiveHost() const;

    VUnicodeString m_pathName;
    VUnicodeString m_sessionName;
    VUnicodeString m_callerText;
};

/// Both sides of a session; see config/session/connect_config_ptr.h.
OSTRAND_API void SetConnectConfigParentWindow(SessionConfig& session, void* window);

} // namespace ostrand
