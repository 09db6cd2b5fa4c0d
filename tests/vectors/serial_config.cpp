// The printer's serial line.

#include "config/session/serial_device.h"
#include "tests/vectors/json_store.h"
#include "tests/vectors/json_values.h"

namespace ostrand::vectors {

namespace {

Json Read(const Json& theCase)
{
    auto store = StoreOf(theCase);
    VSerialDeviceConfig device(store ? store->Key() : nullptr, u"Printer ", u"Printer Port");
    return {{"values", StatesOf(device)}};
}

constexpr std::array kKinds = {Kind{"read", Read}};

} // namespace

std::span<const Kind> SerialConfigKinds() { return kKinds; }

} // namespace ostrand::vectors
