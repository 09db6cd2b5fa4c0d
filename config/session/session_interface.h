// ISessionConfig: what applications and dialogs see of a session.
#pragma once

#include "config/session/connect_config.h"
#include "core/report.h"
#include "core/strings.h"
#include "core/unknown.h"
#include "profile/value.h"

namespace ostrand {

/// Counted; one thread at a time uses a session, but any may hold a reference. The order of the operations is a
/// contract with foreign modules. Objects that it answers are lent, and valid as long as the session is and its
/// protocols stay.
class ISessionConfig : public IUnknown {
public:
    /// Whether a value differs from what was read, saved or accepted last.
    virtual bool IsModified() const = 0;
    virtual void AcceptChanges() = 0;
    virtual void RevertChanges() = 0;
    /// All members, in their order; those that are changed or pending, or with `force` every one.
    virtual void Save(VProfileKey* key, bool force) = 0;
    /// Copies what `other` reports as changed; everything else stays. Null, and a session of another implementation,
    /// change nothing.
    virtual void CopyFrom(const ISessionConfig* other) = 0;
    /// The name below `Sessions`, with "\" between folders.
    virtual const VUnicodeString& GetPathName() const = 0;
    /// A session that isn't the default one afterwards loses the default marker.
    virtual void SetPathName(const VUnicodeString& path) = 0;
    /// The name that the session was opened under, without folders.
    virtual const VUnicodeString& GetSessionName() const = 0;
    virtual void SetSessionName(const VUnicodeString& name) = 0;
    /// Host, phone number or port in the first line, then the description; the name alone without a protocol.
    virtual void GetConnectionSummary(VUnicodeString& out) const = 0;
    /// A full copy with one reference, the caller's; only the caller's text and the protocol note stay behind.
    virtual ISessionConfig* Clone() const = 0;
    virtual void ReservedOperation14() {}
    virtual void ReservedOperation15() {}
    /// Whether the side has a protocol whose settings suffice to connect; else the report, which may be null, may say
    /// what lacks.
    virtual bool IsTerminalConnectable(IReportMessageParams* report) const = 0;
    virtual bool IsTransferConnectable(IReportMessageParams* report) const = 0;
    virtual bool HasTerminalProtocol() const = 0;
    virtual bool HasTransferProtocol() const = 0;
    /// Null without an active protocol.
    virtual ConnectConfig* GetTerminalConnectConfig() = 0;
    virtual const ConnectConfig* GetTerminalConnectConfig() const = 0;
    virtual ConnectConfig* GetTransferConnectConfig() = 0;
    virtual const ConnectConfig* GetTransferConnectConfig() const = 0;
    /// Selects by exact name; clears the protocol note.
    virtual void SetTerminalProtocol(const VUnicodeString& name) = 0;
    virtual void GetTerminalProtocolName(VUnicodeString& out) const = 0;
    virtual void GetTransferProtocolName(VUnicodeString& out) const = 0;
    /// Of the transfer side's active protocol; `out` stays without one.
    virtual void GetTransferFirewallName(IString* out) const = 0;
    /// "None", then the firewalls of the default store.
    virtual void EnumerateFirewalls(VStringArray& out) const = 0;
    /// Whether path and name are both "Default", exactly so.
    virtual bool IsDefaultSession() const = 0;
    /// A text of the application's own, kept and never looked into.
    virtual void GetCallerText(VUnicodeString& out) const = 0;
    virtual void SetCallerText(const char16_t* text) = 0;
    virtual ~ISessionConfig() = default;
    /// Deletes the session; called when its last reference goes.
    virtual void Destroy() { delete this; }
    /// Whether the default marker is off.
    virtual bool IsNotMarked() const = 0;
    /// The first member of the table with this value name, in any case; null if there is none.
    virtual VProfileData* FindValue(const VUnicodeString& name) = 0;
};

} // namespace ostrand
