// VSerialDeviceConfig: the line settings of a serial device. Sessions and the global record describe the printer's port
// with it.
#pragma once

#include "profile/schema.h"

namespace ostrand {

/// A record of ten values, part of another record's key: each stands under a prefix and its name, the port under a name
/// of its own. `Parity` and `Stop Bits` are codes of the platform's serial interface, and so are the flow controls.
class OSTRAND_API VSerialDeviceConfig : public VProfileRecord {
public:
    using ReadContext = VReadContext;

    /// Unnamed and empty, until `LoadPart`.
    VSerialDeviceConfig() = default;
    /// The key may be null: then all values take their defaults.
    VSerialDeviceConfig(const VProfileKey* key, std::u16string_view prefix, std::u16string_view portName);

    /// As the printer's: with the prefix "Printer " and the port `Printer Port`.
    void LoadPart(const VProfileKey* key);
    /// What the key has replaces current values and saved copies; nothing else changes.
    void MergePart(const VProfileKey* key) { Schema().Merge(*this, key); }

    VProfileData* GetMember(int index) override { return Schema().GetMember(*this, index); }
    /// The value of this stored name in any case, or null.
    VProfileData* FindMember(std::u16string_view storedName);
    /// Its names are those without the prefix.
    static const VSchema<VSerialDeviceConfig>& Schema();

    VProfile<int> baudRate, parity, stopBits, dataBits;
    VProfile<bool> dsrFlow;
    VProfile<int> dtrFlowControl;
    VProfile<bool> ctsFlow;
    VProfile<int> rtsFlowControl;
    VProfile<bool> xonFlow;
    VProfileString port;

private:
    void Load(const VProfileKey* key, std::span<const VUnicodeString> names);
};

} // namespace ostrand
