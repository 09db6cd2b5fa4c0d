// SFTP.
#include "exports.h"
#include "network_config.h"

namespace example {

namespace {

using namespace ostrand;

struct SftpValues : ProtocolValues<SftpValues> {
    static constexpr const char16_t* kTitle = u"SFTP";

    static consteval auto Rows()
    {
        using C = SftpValues;
        return std::array{
            Int<&C::port>(u"SFTP Port", 22, u"Port of the server.", Within{1, 65535}),
            String<&C::keyFile>(u"SFTP Key File", u"", u"The private key."),
            Int<&C::packet>(u"SFTP Maximum Packet", 32768, u"Bytes of one packet.", Within{1024, 262144}),
            Bool<&C::compression>(u"SFTP Compression", false, u"Whether what is sent is compressed."),
        };
    }

    VProfile<int> port, packet;
    VProfileString keyFile;
    VProfile<bool> compression;
};

constexpr Protocol kProtocols[] = {ProtocolOf<NetworkConfigOf<SftpValues>>()};

} // namespace

std::span<const Protocol> Protocols() { return kProtocols; }

} // namespace example
