// Settings of a protocol that connects to a host: the host itself, which all protocols of a session share, and values
// of the protocol's own.
#pragma once

#include "config/session/plain_connect_config.h"
#include "profile/schema.h"

#include <array>

namespace example {

/// What doesn't depend on the protocol's values.
class NetworkConfig : public ostrand::PlainConnectConfig {
public:
    NetworkConfig(const ostrand::VProfileKey* key, ostrand::ICommonConfig* common);
    /// With the host of another session.
    NetworkConfig(const NetworkConfig& other, ostrand::ICommonConfig* common);

    /// The host's values first.
    ostrand::VProfileData* GetMember(int index) final;
    /// Values of the host, for a page.
    ostrand::VProfileData* GetHostname() const { return m_hostValues[0]; }
    ostrand::VProfileData* GetUsername() const { return m_hostValues[2]; }
    void LeaveProtocol(ostrand::VSharedProtocolValues& shared) override;
    void EnterProtocol(const ostrand::VSharedProtocolValues& shared) override;
    int IsConnectable(ostrand::IReportMessageParams*) override;
    void GetHostName(ostrand::IString* out) const override { m_host->GetHostname(out); }
    ostrand::FirewallConfig* GetFirewall() override { return m_host->GetFirewall(); }
    void GetFirewallName(ostrand::IString* out) const override { m_host->GetFirewallName(out); }
    bool SupportsNoOp() const override { return true; }
    ostrand::IParentWindow* GetParentWindow() override { return &m_window; }
    void GetTransferStatusText(ostrand::IString* out) const override { m_host->GetHostname(out); }

protected:
    /// The protocol's own values; null behind the last.
    virtual ostrand::VProfileData* GetValue(int index) = 0;

private:
    struct Window final : ostrand::IParentWindow {
        void SetParentWindow(void* window) override { handle = window; }
        void* GetParentWindow() override { return handle; }
        void* handle = nullptr;
    };

    void TakeHostValues();

    ostrand::VUnknownPointer<ostrand::IRemoteHostConfig> m_host;
    std::array<ostrand::VProfileData*, 3> m_hostValues{};
    Window m_window;
};

/// The settings of a protocol whose values are a record with a schema.
template <class Values>
class NetworkConfigOf final : public NetworkConfig {
public:
    static constexpr const char16_t* kTitle = Values::kTitle;
    using Record = Values;

    NetworkConfigOf(const ostrand::VProfileKey* key, ostrand::ICommonConfig* common) : NetworkConfig(key, common)
    {
        Values::Schema().Load(m_values, {key, false});
    }
    Record& GetRecord() { return m_values; }
    static Record MakeDefaults()
    {
        Record record;
        Record::Schema().Load(record, {nullptr, false});
        return record;
    }
    ostrand::ConnectConfig* Clone(ostrand::ICommonConfig* common) const override
    {
        return new NetworkConfigOf(*this, common);
    }

protected:
    ostrand::VProfileData* GetValue(int index) override { return Values::Schema().GetMember(m_values, index); }

private:
    NetworkConfigOf(const NetworkConfigOf& other, ostrand::ICommonConfig* common)
        : NetworkConfig(other, common),
          m_values(other.m_values)
    {
    }

    Values m_values;
};

/// Base of a record of values, whose rows are `Values::Rows()`.
template <class Values>
struct ProtocolValues {
    using ReadContext = ostrand::VReadContext;

    static const ostrand::VSchema<Values>& Schema()
    {
        static constexpr auto kRows = Values::Rows();
        static_assert(ostrand::NamesAreUnique(kRows));
        // Never destroyed: values share its names.
        static const auto& schema = *new ostrand::VSchema<Values>(kRows);
        return schema;
    }
};

} // namespace example
