// A serial line. It has no host, so what the user typed as one is handed on untouched.
#include "exports.h"

#include "config/session/plain_connect_config.h"
#include "config/session/serial_device.h"

namespace example {

namespace {

using namespace ostrand;

class SerialConfig final : public PlainConnectConfig {
public:
    SerialConfig(const VProfileKey* key, ICommonConfig*) : m_line(key, u"Serial ", u"Serial Port") {}

    ConnectConfig* Clone(ICommonConfig*) const override { return new SerialConfig(*this); }
    VProfileData* GetMember(int index) override { return m_line.GetMember(index); }
    int IsConnectable(IReportMessageParams*) override { return m_line.port.IsEmpty() ? 0 : 1; }

private:
    VSerialDeviceConfig m_line;
};

constexpr Protocol kProtocols[] = {{u"Serial", Create<SerialConfig>}};

} // namespace

std::span<const Protocol> Protocols() { return kProtocols; }

} // namespace example
