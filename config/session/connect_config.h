// ConnectConfig: the settings of one protocol in one session. Protocol modules derive from it, best from
// PlainConnectConfig (plain_connect_config.h); ConnectConfigPtr holds one for each protocol.
#pragma once

#include "config/global/firewall.h"
#include "config/session/common_config.h"
#include "core/map.h"
#include "core/parentable.h"
#include "core/unknown.h"
#include "profile/value.h"

#include <string>

namespace ostrand {

class ConnectConfig;

/// Values that pass from one protocol's settings to the next when the user switches, by names that the modules agree
/// on: such as the port where it isn't the protocol's own.
using VSharedProtocolValues = VMap<VUnicodeString, VUnicodeString>;

/// Takes the window that a protocol's questions belong to, and gives it to those who ask.
class IParentWindow : public IParentable {
public:
    /// The toolkit's own handle; null for none.
    virtual void SetParentWindow(void* window) = 0;

protected:
    ~IParentWindow() = default;
};

/// Counted; made with one reference. The order of the operations is a contract with foreign modules: those of
/// VProfileData are 0 to 13, and the number of each further one stands before it. Operations named Reserved have no
/// meaning to this library; a module answers them with false, nothing or an empty text. One thread at a time.
///
/// Texts leave through IString, whose buffer belongs to the caller. What a module throws is caught by ConnectConfigPtr.
class OSTRAND_API ConnectConfig : public VProfileRecord, public VUnknown<ICounted> {
public:
    ConnectConfig() = default;
    /// A new object with one reference.
    ConnectConfig(const ConnectConfig&) = default;
    ConnectConfig& operator=(const ConnectConfig&) = delete;

    // 14: current values from the key, which may be null; saved copies and `dirty` stay. False where nothing was read.
    virtual bool ReadValue(const VProfileKey* key) = 0;
    // 15: the same without a key.
    virtual bool ReadDefault() = 0;
    // 16: with all saved copies and marks, and one reference, the caller's; for the session that `common` belongs to.
    virtual ConnectConfig* Clone(ICommonConfig* common) const = 0;
    // 17: the user left this protocol for another; puts what the next one may take over.
    virtual void LeaveProtocol(VSharedProtocolValues& shared) = 0;
    // 18: the user came to this protocol.
    virtual void EnterProtocol(const VSharedProtocolValues& shared) = 0;
    // 19
    virtual void Reserved19() = 0;
    // 20
    virtual void Reserved20() = 0;
    // 21: not zero when these settings suffice to connect; else the report may say what lacks. It may be null.
    virtual int IsConnectable(IReportMessageParams* report) = 0;
    // 22
    virtual void GetHostName(IString* out) const = 0;
    // 23
    virtual void Reserved23() = 0;
    // 24
    virtual const char* Reserved24() const = 0;
    // 25
    virtual void Reserved25(IString* out) const = 0;
    // 26: with a reference for the caller; null where the definition is missing.
    virtual FirewallConfig* GetFirewall() = 0;
    // 27
    virtual void GetFirewallName(IString* out) const = 0;
    // 28: whether the protocol has a message that does nothing, to keep a connection alive.
    virtual bool SupportsNoOp() const = 0;
    // 29: lent; null for a protocol that asks nothing.
    virtual IParentWindow* GetParentWindow() = 0;
    // 30
    virtual void Reserved30(IString* out) const = 0;
    // 31
    virtual int Reserved31() const = 0;
    // 32 to 39
    virtual bool Reserved32() = 0;
    virtual bool Reserved33() = 0;
    virtual bool Reserved34() = 0;
    virtual bool Reserved35() = 0;
    virtual bool Reserved36() = 0;
    virtual bool Reserved37() = 0;
    virtual bool Reserved38() = 0;
    virtual bool Reserved39() = 0;
    // 40: one line for the list of transfers.
    virtual void GetTransferStatusText(IString* out) const = 0;
    // 41 to 48
    virtual bool Reserved41() = 0;
    virtual bool Reserved42() = 0;
    virtual bool Reserved43() = 0;
    virtual bool Reserved44() = 0;
    virtual bool Reserved45() = 0;
    virtual bool Reserved46() = 0;
    virtual bool Reserved47() = 0;
    virtual bool Reserved48() = 0;

    /// Not zero for the default session.
    int defaultMark = 0;
    /// The modules' own; copied with the rest.
    int moduleMark = 0;
};

/// The name of the protocol that stands for the absence of one side where two applications share a session.
inline constexpr const char16_t* kNoProtocol = u"None";

} // namespace ostrand
