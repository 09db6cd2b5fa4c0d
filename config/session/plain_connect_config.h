// PlainConnectConfig: answers of a protocol with nothing to tell, so that a module writes only what it has.
#pragma once

#include "config/session/connect_config.h"

namespace ostrand {

/// Everything but `Clone`: false, nothing and empty texts; no connection and no host, the firewall "None", no members.
class OSTRAND_API PlainConnectConfig : public ConnectConfig {
public:
    VProfileData* GetMember(int) override { return nullptr; }

    bool ReadValue(const VProfileKey*) override { return false; }
    bool ReadDefault() override { return ReadValue(nullptr); }
    void LeaveProtocol(VSharedProtocolValues&) override {}
    void EnterProtocol(const VSharedProtocolValues&) override {}
    void Reserved19() override {}
    void Reserved20() override {}
    int IsConnectable(IReportMessageParams*) override { return 0; }
    void GetHostName(IString* out) const override { out->Set(u"", false); }
    void Reserved23() override {}
    const char* Reserved24() const override { return ""; }
    void Reserved25(IString* out) const override { out->Set(u"", false); }
    FirewallConfig* GetFirewall() override;
    void GetFirewallName(IString* out) const override;
    bool SupportsNoOp() const override { return false; }
    IParentWindow* GetParentWindow() override { return nullptr; }
    void Reserved30(IString* out) const override { out->Set(u"", false); }
    int Reserved31() const override { return -1; }
    bool Reserved32() override { return false; }
    bool Reserved33() override { return false; }
    bool Reserved34() override { return false; }
    bool Reserved35() override { return false; }
    bool Reserved36() override { return false; }
    bool Reserved37() override { return false; }
    bool Reserved38() override { return false; }
    bool Reserved39() override { return false; }
    void GetTransferStatusText(IString* out) const override { out->Set(u"", false); }
    bool Reserved41() override { return false; }
    bool Reserved42() override { return false; }
    bool Reserved43() override { return false; }
    bool Reserved44() override { return false; }
    bool Reserved45() override { return false; }
    bool Reserved46() override { return false; }
    bool Reserved47() override { return false; }
    bool Reserved48() override { return false; }
};

} // namespace ostrand
