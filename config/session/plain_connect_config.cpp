#include "config/session/plain_connect_config.h"

#include "config/global/firewall_list.h"

namespace ostrand {

FirewallConfig* PlainConnectConfig::GetFirewall() { return new FirewallConfig(kNoFirewall, nullptr); }

void PlainConnectConfig::GetFirewallName(IString* out) const { out->Set(kNoFirewall, false); }

} // namespace ostrand
