// A session as the commands see it: its own values, those of its active protocols, those of its terminal.
#pragma once

#include "config/session/session_edit.h"
#include "tools/module_folder.h"
#include "tools/value_record.h"

#include <functional>

namespace ostrand::tool {

class SessionRecord : public ValueRecord {
public:
    explicit SessionRecord(VUnknownPointer<SessionConfig> session) : m_session(std::move(session)) {}

    std::vector<NamedValue> Values() override;
    VUnicodeString KeyPath() const override;
    std::unique_ptr<ValueRecord> Clone() const override;
    std::unique_ptr<ValueRecord> Defaults(bool ofThisStore) const override;
    bool IsStored(const NamedValue& value) const override;
    std::string WhyUnknown(std::u16string_view name) override;
    /// The name of a protocol selects it, in the spelling of the list of protocols.
    bool Set(const NamedValue& value, std::span<const std::string> words, std::string& problem) override;
    void Copy(const NamedValue& value, const VProfileData& other) override;
    SettledEdit Settle(const VUnicodeString& edited, ValueRecord& before) override;
    /// A default session that the store lacks is written whole.
    bool Save(std::span<const VUnicodeString> names, IReportMessageParams& report) override;

    SessionConfig& Session() { return *m_session; }
    /// Whether the value is the name of one side's protocol.
    bool IsProtocolName(const NamedValue& value) const { return SideOf(value).has_value(); }
    /// Whether the words name a protocol for this side; else the problem.
    bool CheckProtocol(const NamedValue& value, std::span<const std::string> words, std::string& problem) const;
    /// Why values of an active protocol aren't there; empty where all are.
    std::string MissingProtocols() const;

private:
    std::optional<Side> SideOf(const NamedValue& value) const;
    const VUnicodeString& ProtocolOf(Side side) const;
    void Select(Side side, const VUnicodeString& name);

    VUnknownPointer<SessionConfig> m_session;
};

/// Selects each loaded protocol in turn, so that all values that some session may have are met.
void VisitProtocols(SessionRecord& record, const std::function<void()>& visit);

} // namespace ostrand::tool
