// A serial line. It has no host, so what the user typed as one is handed on untouched.
#include "exports.h"

#include "config/session/plain_connect_config.h"
#include "config/session/serial_device.h"

namespace example {

namespace {

using namespace ostrand;

class SerialConfig final : public PlainConnectConfig {
public:
    static constexpr const char16_t* kTitle = u"Serial";
    using Record = VSerialDeviceConfig;

    SerialConfig(const VProfileKey* key, ICommonConfig*) : m_line(LineOf(key)) {}

    ConnectConfig* Clone(ICommonConfig*) const override { return new SerialConfig(*this); }
    VProfileData* GetMember(int index) override { return m_line.GetMember(index); }
    Record& GetRecord() { return m_line; }
    static Record MakeDefaults() { return LineOf(nullptr); }
    int IsConnectable(IReportMessageParams*) override { return m_line.port.IsEmpty() ? 0 : 1; }
    /// What summaries show behind "Port:".
    void GetHostName(IString* out) const override { out->Set(m_line.port.c_str(), false); }

private:
    static Record LineOf(const VProfileKey* key) { return {key, u"Serial ", u"Serial Port"}; }

    VSerialDeviceConfig m_line;
};

constexpr Protocol kProtocols[] = {ProtocolOf<SerialConfig>()};

} // namespace

std::span<const Protocol> Protocols() { return kProtocols; }

} // namespace example
