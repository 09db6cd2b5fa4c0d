#include "config/session/protocol_list.h"

#include "core/product.h"
#include "platform/modules.h"

#include <array>

namespace ostrand {

namespace {

/// A product of former releases, for which no application asks any more.
constexpr int kFormerProduct = 7;

// clang-format off
constexpr std::array kList = {
    VProtocolListRow{kProductQuillo,  u"Telnet",             u"ProtoDelta.dll"},
    VProtocolListRow{kProductQuillo,  u"RLogin",             u"ProtoEpsilon.dll"},
    VProtocolListRow{kProductQuillo,  u"Serial",             u"ProtoZeta.dll"},
    VProtocolListRow{kProductQuillo,  u"TAPI",               u"ProtoEta.dll"},
    VProtocolListRow{kProductTessaly, u"SSH2",               u"ProtoAlpha.dll"},
    VProtocolListRow{kProductTessaly, u"SSH1",               u"ProtoAlpha.dll"},
    VProtocolListRow{kProductTessaly, u"Telnet",             u"ProtoDelta.dll"},
    VProtocolListRow{kProductTessaly, u"Telnet/SSL",         u"ProtoGamma.dll"},
    VProtocolListRow{kProductTessaly, u"RLogin",             u"ProtoEpsilon.dll"},
    VProtocolListRow{kProductTessaly, u"Serial",             u"ProtoZeta.dll"},
    VProtocolListRow{kProductTessaly, u"TAPI",               u"ProtoEta.dll"},
    VProtocolListRow{kProductOrvane,  u"SFTP",               u"ProtoTheta.dll"},
    VProtocolListRow{kProductOrvane,  u"FTP",                u"ProtoIota.dll"},
    VProtocolListRow{kProductOrvane,  u"FTP/SSL (implicit)", u"ProtoBeta.dll"},
    VProtocolListRow{kProductOrvane,  u"FTP/SSL (explicit)", u"ProtoBeta.dll"},
    VProtocolListRow{kFormerProduct,  u"SSH2",               u"ProtoAlpha.dll"},
};
// clang-format on

constexpr std::u16string_view kOriginalSuffix = u".dll";

} // namespace

std::span<const VProtocolListRow> GetProtocolList() { return kList; }

VUnicodeString ModuleFileName(std::u16string_view moduleFile)
{
    return VUnicodeString(moduleFile.substr(0, moduleFile.size() - kOriginalSuffix.size())) + kModuleSuffix;
}

} // namespace ostrand
