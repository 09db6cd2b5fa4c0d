// The block cipher alone.

#include "core/cipher/blowfish.h"
#include "tests/vectors/json_text.h"

#include <array>

namespace ostrand::vectors {

namespace {

using Act = size_t (VCipherBlowfish::*)(void*, size_t, const void*, size_t);

template <Act act>
Json Run(const Json& theCase)
{
    const std::vector<uint8_t> key = ToBytes(theCase.at("key"));
    const std::vector<uint8_t> iv = ToBytes(theCase.at("iv"));
    VCipherBlowfish cipher;
    cipher.keyLength = theCase.at("key_length");
    cipher.littleEndian = theCase.at("little_endian");
    cipher.cbc = theCase.at("cbc");
    if (cipher.keyLength == 0 || key.size() < cipher.keyLength || iv.size() != VCipherBlowfish::kBlockSize)
        Unknown("key or chain", theCase.at("key"));
    cipher.SetEncryptionKey(iv.data(), key.data());
    std::vector<uint8_t> bytes = ToBytes(theCase.at("input"));
    bytes.resize((cipher.*act)(bytes.data(), bytes.size(), bytes.data(), bytes.size()));
    return {{"output", FromBytes(bytes)}};
}

constexpr std::array kKinds = {Kind{"encrypt", Run<&VCipherBlowfish::Encrypt>},
                               Kind{"decrypt", Run<&VCipherBlowfish::Decrypt>}};

} // namespace

std::span<const Kind> BlowfishCipherKinds() { return kKinds; }

} // namespace ostrand::vectors
