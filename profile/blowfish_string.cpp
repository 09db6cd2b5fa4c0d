#include "profile/blowfish_string.h"

#include "core/cipher/blowfish.h"
#include "core/hex.h"
#include "profile/secret_text.h"

#include <array>

namespace ostrand {

namespace {

using CipherKey = std::array<uint8_t, 32>;

constexpr CipherKey kInnerKey = {0x01, 0x23, 0x45, 0x67, 0x89, 0xAB, 0xCD, 0xEF, 0x00, 0x11, 0x22,
                                 0x33, 0x44, 0x55, 0x66, 0x77, 0x88, 0x99, 0xAA, 0xBB, 0xCC, 0xDD,
                                 0xEE, 0xFF, 0x0F, 0x1E, 0x2D, 0x3C, 0x4B, 0x5A, 0x69, 0x78};
constexpr CipherKey kOuterKey = {0xFE, 0xDC, 0xBA, 0x98, 0x76, 0x54, 0x32, 0x10, 0xFF, 0xEE, 0xDD,
                                 0xCC, 0xBB, 0xAA, 0x99, 0x88, 0x77, 0x66, 0x55, 0x44, 0x33, 0x22,
                                 0x11, 0x00, 0x78, 0x69, 0x5A, 0x4B, 0x3C, 0x2D, 0x1E, 0x0F};

constexpr size_t kBlock = VCipherBlowfish::kBlockSize;
constexpr size_t kSaltSize = 4;

struct CipherMode {
    unsigned keyLength;
    bool littleEndian, cbc;
};
constexpr std::array kModes = {CipherMode{16, false, true}, CipherMode{32, true, false}, CipherMode{16, true, true}};

/// A cipher with its key; the chain begins at zero.
class ReadyCipher : public VCipherBlowfish {
public:
    ReadyCipher(unsigned mode, const CipherKey& key)
    {
        const CipherMode& m = kModes[mode < kModes.size() ? mode : 0];
        keyLength = m.keyLength;
        littleEndian = m.littleEndian;
        cbc = m.cbc;
        const uint8_t noChain[kBlock] = {};
        SetEncryptionKey(noChain, key.data());
    }
    void EncryptAll(VSecretBytes& bytes) { Encrypt(bytes.data(), bytes.size(), bytes.data(), bytes.size()); }
    void DecryptAll(VSecretBytes& bytes) { Decrypt(bytes.data(), bytes.size(), bytes.data(), bytes.size()); }
};

void InsertRandom(VSecretBytes& bytes, size_t at, size_t count, IRandomSource* random)
{
    const auto place = bytes.insert(bytes.begin() + static_cast<std::ptrdiff_t>(at), count, 0);
    if (random)
        random->GetBytes(&*place, static_cast<unsigned>(count)); // on failure they stay zero, and the text decodable
}

/// Takes the letter away, if there is one.
VCharacterWidth TakeWidth(std::u16string_view& stored)
{
    const bool is16 = stored.starts_with(u'u');
    const bool is32 = stored.starts_with(u'l');
    stored.remove_prefix(is16 || is32 ? 1 : 0);
    return is16 ? VCharacterWidth::Bits16 : is32 ? VCharacterWidth::Bits32 : VCharacterWidth::CodePage;
}

} // namespace

VBlowfishString& VBlowfishString::operator=(const char16_t* text)
{
    MarkSensitive(); // the mark passes on to the new buffer
    VUnicodeString::operator=(text);
    return *this;
}

void VBlowfishString::SetRandomSource(IRandomSource* source) { random = VUnknownPointer<IRandomSource>::Share(source); }

VUnicodeString VBlowfishString::Encode() const
{
    VSecretBytes bytes = SecretBytes(*this, kBlock + 2 * kSaltSize);
    InsertRandom(bytes, bytes.size(), kBlock - bytes.size() % kBlock, random.Get());
    ReadyCipher(mode, kInnerKey).EncryptAll(bytes);
    InsertRandom(bytes, 0, kSaltSize, random.Get());
    InsertRandom(bytes, bytes.size(), kSaltSize, random.Get());
    ReadyCipher(mode, kOuterKey).EncryptAll(bytes);
    return HexText(u"u", bytes);
}

void VBlowfishString::Decode(std::u16string_view stored)
{
    encoded = VUnicodeString(stored);
    encoded.MarkSensitive();
    const VCharacterWidth width = TakeWidth(stored);
    VSecretBytes bytes;
    stored.remove_suffix(stored.size() % 2); // a last lone digit doesn't count
    if (!ReadHex(stored, bytes) || bytes.empty() || bytes.size() % kBlock != 0)
        bytes.clear();
    else {
        ReadyCipher(mode, kOuterKey).DecryptAll(bytes);
        bytes.erase(bytes.end() - kSaltSize, bytes.end());
        bytes.erase(bytes.begin(), bytes.begin() + kSaltSize);
        ReadyCipher(mode, kInnerKey).DecryptAll(bytes);
    }
    VUnicodeString::operator=(SecretText(bytes, width));
}

} // namespace ostrand
