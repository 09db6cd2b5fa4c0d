// ConnectConfigPtr: one side of a session, terminal or transfer: the name of its protocol, and the settings of every
// protocol of that side, so that a user can go from one to another and back without losing any.
#pragma once

#include "config/session/protocol_table.h"
#include "core/array.h"
#include "profile/schema.h"

namespace ostrand {

/// The protocol table must be complete before the first of these. One thread at a time.
///
/// Modules may throw: the object then does without what they were asked for, goes on, and the failure is reported with
/// module and operation (module_guard.h).
class OSTRAND_API ConnectConfigPtr : public VProfileData {
public:
    static constexpr int kTerminal = 0;
    static constexpr int kTransfer = 1;

    /// Reads the name and makes the settings of all protocols of the kind, but for TAPI, which is only made where it is
    /// selected. `key` may be null. `common` is the session's, borrowed for the life of this object.
    ConnectConfigPtr(const VProfileKey* key, int kind, CommonConfig* common);
    /// For the session that `common` belongs to: settings are cloned, `sharedState` begins empty.
    ConnectConfigPtr(const ConnectConfigPtr& other, CommonConfig* common);
    ConnectConfigPtr(const ConnectConfigPtr&) = delete;
    ConnectConfigPtr& operator=(const ConnectConfigPtr&) = delete;

    /// The settings of the selected protocol; null without one: none selected, its module missing or without settings.
    /// Lent.
    ConnectConfig* GetActive() const;
    /// The selected protocol's row; null without one.
    const ConnectProtocolTableElement* GetActiveRow() const;
    /// Whether there is an active configuration, and its protocol isn't "None".
    bool HasProtocol() const { return GetActive() && protocolName.Value() != kNoProtocol; }
    const VUnicodeString& GetProtocolName() const { return protocolName; }

    /// Selects a protocol by its exact name. The settings that are left hand on what the new ones may take over. A name
    /// without a row leaves no active protocol; the name is kept.
    void SetProtocol(const VUnicodeString& protocol);
    /// Whether the key held the name, and it was empty.
    bool IsStoredEmpty() const { return m_storedEmpty; }
    /// Marks the active settings as those of the default session.
    void MarkAsDefault();

    // The name's value is a text like others; setting it selects.
    bool Parse(const VUnicodeString& text, IProfileValueParser* parser, IReportMessageParams& report) override;
    bool GetVariant(VVariant* out, IReportMessageParams& report) override;
    bool SetVariant(const VVariant* in, IReportMessageParams& report) override;

    /// Writes the name and the active settings; those of other protocols are never written.
    void Save(VProfileKey* key, bool force) override;
    /// On purpose: false without an active protocol and with "None", so that a switch to "None" is no change, though a
    /// save writes the name. Held by ProtocolSwitching.ASwitchToNoneIsWrittenButNoChange.
    bool IsModified() const override;
    void AcceptChanges() override;
    /// Settings and name, and the protocol that was active at the last acceptance: none before the first.
    void RevertChanges() override;
    /// The other's changes, and its protocol where that was switched since its last acceptance. Same kind of object.
    void CopyValue(const VProfileData& other) override;
    /// The name, then the active settings.
    VProfileData* GetMember(int index) override;

    VProfileString protocolName; ///< `Protocol Name`, or `Transfer Protocol Name`

private:
    using Config = VUnknownPointer<ConnectConfig>;

    void ReadName(const VProfileKey* key);
    void CreateConfigs(const VProfileKey* key);
    void Create(size_t row, const VProfileKey* key);
    void CopyConfig(size_t row, const ConnectConfigPtr& other);
    /// Runs `set`, which changes the name's value, and selects what it then is.
    template <class Set>
    bool SelectBy(Set set);

    int m_activeIndex = -1;
    int m_savedIndex = -1;
    VArray<Config> m_configs; // one for each row of the table at construction, null where there is none
    int m_kind;
    VSharedProtocolValues m_sharedState{25};
    bool m_storedEmpty = false;
    CommonConfig* m_common; // the session's
};

/// Gives the window to the settings of each side that has a protocol, and to the firewalls that they use.
OSTRAND_API void SetConnectConfigParentWindow(ConnectConfigPtr& terminal, ConnectConfigPtr& transfer, void* window);

} // namespace ostrand
