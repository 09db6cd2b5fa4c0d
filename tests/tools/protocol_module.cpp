// A protocol module for tests of the tool: whatever protocol is asked for has a host and a port, named after it.
#include "config/session/module_loader.h"
#include "config/session/plain_connect_config.h"
#include "profile/schema.h"

namespace {

using namespace ostrand;

class HostAndPort : public PlainConnectConfig {
public:
    HostAndPort(const VProfileKey* key, const VUnicodeString& protocol)
    {
        host.SetName(protocol + VUnicodeString(u" Host"));
        host.Load(key, VUnicodeString());
        port.SetName(protocol + VUnicodeString(u" Port"));
        port.Load(key, 22);
    }
    HostAndPort(const HostAndPort&) = default;

    ConnectConfig* Clone(ICommonConfig*) const override { return new HostAndPort(*this); }
    void GetHostName(IString* out) const override { out->Set(host.c_str(), false); }
    VProfileData* GetMember(int index) override
    {
        return index == 0 ? static_cast<VProfileData*>(&host) : index == 1 ? &port : nullptr;
    }

    VProfileString host;
    VProfile<int> port;
};

} // namespace

#define EXPORTED extern "C" __attribute__((visibility("default")))

EXPORTED const uint8_t* GetProtocolGuid() { return kProtocolContract.data(); }

EXPORTED bool LoadProtocol(VAppFnTable*, ConnectProtocolTableElement* element, IReportMessageParams*)
{
    element->createConfig = [](const VProfileKey* key, ICommonConfig*,
                               ConnectProtocolTableElement* row) -> ConnectConfig* {
        return new HostAndPort(key, row->name);
    };
    return true;
}

EXPORTED void UnloadProtocol(ConnectProtocolTableElement*) {}
