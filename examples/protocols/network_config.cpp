#include "network_config.h"

namespace example {

namespace {

using namespace ostrand;

// Names under which values pass from protocol to protocol.
const VUnicodeString kHost = u"Host";
const VUnicodeString kUser = u"User";

constexpr const char16_t* kHostValues[] = {u"Hostname", u"Firewall Name", u"Username"};

} // namespace

NetworkConfig::NetworkConfig(const VProfileKey* key, ICommonConfig* common)
    : m_host(VUnknownPointer<IRemoteHostConfig>::Adopt(common->GetRemoteHostConfig(key)))
{
    TakeHostValues();
}

NetworkConfig::NetworkConfig(const NetworkConfig& other, ICommonConfig* common)
    : PlainConnectConfig(other),
      m_host(VUnknownPointer<IRemoteHostConfig>::Adopt(common->GetRemoteHostConfig(nullptr)))
{
    TakeHostValues();
}

void NetworkConfig::TakeHostValues()
{
    for (size_t i = 0; i < m_hostValues.size(); ++i)
        m_hostValues[i] = m_host->FindValue(kHostValues[i]);
}

VProfileData* NetworkConfig::GetMember(int index)
{
    const auto i = static_cast<size_t>(index);
    return i < m_hostValues.size() ? m_hostValues[i] : GetValue(static_cast<int>(i - m_hostValues.size()));
}

void NetworkConfig::LeaveProtocol(VSharedProtocolValues& shared)
{
    VUnicodeStringI text;
    m_host->GetHostname(&text);
    shared.Set(kHost, text);
    m_host->GetUsername(&text);
    shared.Set(kUser, text);
}

void NetworkConfig::EnterProtocol(const VSharedProtocolValues& shared)
{
    VUnicodeString text;
    if (shared.Lookup(kHost, text))
        m_host->SetHostname(text.c_str());
    if (shared.Lookup(kUser, text))
        m_host->SetUsername(text.c_str());
}

int NetworkConfig::IsConnectable(IReportMessageParams*)
{
    VUnicodeStringI host;
    m_host->GetHostname(&host);
    return host.IsEmpty() ? 0 : 1;
}

} // namespace example
