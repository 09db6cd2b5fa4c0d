#include "config/session/serial_device.h"

#include "core/fold.h"

#include <vector>

namespace ostrand {

namespace {

using C = VSerialDeviceConfig;

constexpr int kControlOn = 1;
constexpr int kControlHandshake = 2;

int FollowsDsrFlow(const C& c, const C::ReadContext&) { return c.dsrFlow ? kControlHandshake : kControlOn; }

int FollowsCtsFlow(const C& c, const C::ReadContext&) { return c.ctsFlow ? kControlHandshake : kControlOn; }

constexpr const char16_t* kPort = u"Port";

// clang-format off
constexpr std::array kRows = {
    Int<&C::baudRate>(u"Baud Rate", 38400, u"Bits a second on the printer's serial line."),
    Int<&C::parity>(u"Parity", 0, u"Parity of the printer's serial line, by the platform's code."),
    Int<&C::stopBits>(u"Stop Bits", 0, u"Stop bits of the printer's serial line, by the platform's code."),
    Int<&C::dataBits>(u"Data Bits", 8, u"Data bits of a character on the printer's serial line."),
    Bool<&C::dsrFlow>(u"DSR Flow", false, u"Whether the printer's DSR line controls the flow."),
    Int<&C::dtrFlowControl>(u"DTR Flow Control", By<FollowsDsrFlow>(u"2 with DSR Flow on, else 1"), u"How the DTR line to the printer is driven, by the platform's code."),
    Bool<&C::ctsFlow>(u"CTS Flow", true, u"Whether the printer's CTS line controls the flow."),
    Int<&C::rtsFlowControl>(u"RTS Flow Control", By<FollowsCtsFlow>(u"2 with CTS Flow on, else 1"), u"How the RTS line to the printer is driven, by the platform's code."),
    Bool<&C::xonFlow>(u"XON Flow", false, u"Whether XON and XOFF characters control the flow to the printer."),
    String<&C::port>(kPort, u"", u"The port that the printer is connected to."),
};
// clang-format on

static_assert(NamesAreUnique(kRows));
static_assert(CountInTable(kRows) == 10);

std::vector<VUnicodeString> StoredNames(std::u16string_view prefix, std::u16string_view portName)
{
    std::vector<VUnicodeString> names;
    for (const auto& row : kRows) {
        VUnicodeString name(row.name == kPort ? portName : prefix);
        if (row.name != kPort)
            name += row.name;
        names.push_back(name);
    }
    return names;
}

} // namespace

VSerialDeviceConfig::VSerialDeviceConfig(const VProfileKey* key, std::u16string_view prefix,
                                         std::u16string_view portName)
{
    Load(key, StoredNames(prefix, portName));
}

void VSerialDeviceConfig::LoadPart(const VProfileKey* key)
{
    // Held once for all records, and never destroyed.
    static const auto& names = *new std::vector<VUnicodeString>(StoredNames(u"Printer ", u"Printer Port"));
    Load(key, names);
}

void VSerialDeviceConfig::Load(const VProfileKey* key, std::span<const VUnicodeString> names)
{
    Schema().LoadAs(*this, ReadContext{key, false}, names);
}

VProfileData* VSerialDeviceConfig::FindMember(std::u16string_view storedName)
{
    for (int i = 0; VProfileData* const member = GetMember(i); ++i)
        if (EqualNoCase(member->name, storedName))
            return member;
    return nullptr;
}

const VSchema<VSerialDeviceConfig>& VSerialDeviceConfig::Schema()
{
    static const auto& schema = *new VSchema<VSerialDeviceConfig>(kRows);
    return schema;
}

} // namespace ostrand
