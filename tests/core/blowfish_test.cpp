// The cipher against the answers that Eric Young published for it.
#include "core/cipher/blowfish.h"

#include <gtest/gtest.h>

#include <array>
#include <vector>

namespace ostrand {
namespace {

using Bytes = std::vector<unsigned char>;

Bytes BigEndian(uint64_t number)
{
    Bytes bytes;
    for (int shift = 56; shift >= 0; shift -= 8)
        bytes.push_back(static_cast<unsigned char>(number >> shift));
    return bytes;
}

const Bytes kNoChain(VCipherBlowfish::kBlockSize);

/// Alone, block by block, as both directions see it.
void ExpectBlock(const Bytes& key, uint64_t plain, uint64_t expected)
{
    VCipherBlowfish cipher;
    cipher.cbc = false;
    cipher.keyLength = static_cast<unsigned>(key.size());
    cipher.SetEncryptionKey(kNoChain.data(), key.data());
    Bytes block = BigEndian(plain);
    EXPECT_EQ(cipher.Encrypt(block.data(), block.size(), block.data(), block.size()), 8u);
    EXPECT_EQ(block, BigEndian(expected));
    EXPECT_EQ(cipher.Decrypt(block.data(), block.size(), block.data(), block.size()), 8u);
    EXPECT_EQ(block, BigEndian(plain));
}

TEST(Blowfish, KeysOfEightBytes)
{
    const struct {
        uint64_t key, plain, cipher;
    } cases[] = {
        {0x0000000000000000, 0x0000000000000000, 0x4EF997456198DD78},
        {0xFFFFFFFFFFFFFFFF, 0xFFFFFFFFFFFFFFFF, 0x51866FD5B85ECB8A},
        {0x3000000000000000, 0x1000000000000001, 0x7D856F9A613063F2},
        {0x1111111111111111, 0x1111111111111111, 0x2466DD878B963C9D},
        {0x0123456789ABCDEF, 0x1111111111111111, 0x61F9C3802281B096},
        {0x1111111111111111, 0x0123456789ABCDEF, 0x7D0CC630AFDA1EC7},
        {0xFEDCBA9876543210, 0x0123456789ABCDEF, 0x0ACEAB0FC6A0A28D},
        {0x7CA110454A1A6E57, 0x01A1D6D039776742, 0x59C68245EB05282B},
        {0x0131D9619DC1376E, 0x5CD54CA83DEF57DA, 0xB1B8CC0B250F09A0},
        {0x07A1133E4A0B2686, 0x0248D43806F67172, 0x1730E5778BEA1DA4},
        {0x3849674C2602319E, 0x51454B582DDF440A, 0xA25E7856CF2651EB},
        {0x04B915BA43FEB5B6, 0x42FD443059577FA2, 0x353882B109CE8F1A},
        {0x0113B970FD34F2CE, 0x059B5E0851CF143A, 0x48F4D0884C379918},
        {0x0170F175468FB5E6, 0x0756D8E0774761D2, 0x432193B78951FC98},
        {0x43297FAD38E373FE, 0x762514B829BF486A, 0x13F04154D69D1AE5},
        {0x07A7137045DA2A16, 0x3BDD119049372802, 0x2EEDDA93FFD39C79},
        {0x04689104C2FD3B2F, 0x26955F6835AF609A, 0xD887E0393C2DA6E3},
        {0x37D06BB516CB7546, 0x164D5E404F275232, 0x5F99D04F5B163969},
        {0x1F08260D1AC2465E, 0x6B056E18759F5CCA, 0x4A057A3B24D3977B},
        {0x584023641ABA6176, 0x004BD6EF09176062, 0x452031C1E4FADA8E},
        {0x025816164629B007, 0x480D39006EE762F2, 0x7555AE39F59B87BD},
        {0x49793EBC79B3258F, 0x437540C8698F3CFA, 0x53C55F9CB49FC019},
        {0x4FB05E1515AB73A7, 0x072D43A077075292, 0x7A8E7BFA937E89A3},
        {0x49E95D6D4CA229BF, 0x02FE55778117F12A, 0xCF9C5D7A4986ADB5},
        {0x018310DC409B26D6, 0x1D9D5C5018F728C2, 0xD1ABB290658BC778},
        {0x1C587F1C13924FEF, 0x305532286D6F295A, 0x55CB3774D13EF201},
        {0x0101010101010101, 0x0123456789ABCDEF, 0xFA34EC4847B268B2},
        {0x1F1F1F1F0E0E0E0E, 0x0123456789ABCDEF, 0xA790795108EA3CAE},
        {0xE0FEE0FEF1FEF1FE, 0x0123456789ABCDEF, 0xC39E072D9FAC631D},
        {0x0000000000000000, 0xFFFFFFFFFFFFFFFF, 0x014933E0CDAFF6E4},
        {0xFFFFFFFFFFFFFFFF, 0x0000000000000000, 0xF21E9A77B71C49BC},
        {0x0123456789ABCDEF, 0x0000000000000000, 0x245946885754369A},
        {0xFEDCBA9876543210, 0xFFFFFFFFFFFFFFFF, 0x6B5C5A9C5D9E0A5A},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::Message() << std::hex << c.key);
        ExpectBlock(BigEndian(c.key), c.plain, c.cipher);
    }
}

TEST(Blowfish, KeysOfAnyLength)
{
    const Bytes key = {0xF0, 0xE1, 0xD2, 0xC3, 0xB4, 0xA5, 0x96, 0x87, 0x78, 0x69, 0x5A, 0x4B,
                       0x3C, 0x2D, 0x1E, 0x0F, 0x00, 0x11, 0x22, 0x33, 0x44, 0x55, 0x66, 0x77};
    const uint64_t ciphers[] = {
        0xF9AD597C49DB005E, 0xE91D21C1D961A6D6, 0xE9C2B70A1BC65CF3, 0xBE1E639408640F05, 0xB39E44481BDB1E6E,
        0x9457AA83B1928C0D, 0x8BB77032F960629D, 0xE87A244E2CC85E82, 0x15750E7A4F4EC577, 0x122BA70B3AB64AE0,
        0x3A833C9AFFC537F6, 0x9409DA87A90F6BF2, 0x884F80625060B8B4, 0x1F85031C19E11968, 0x79D9373A714CA34F,
        0x93142887EE3BE15C, 0x03429E838CE2D14B, 0xA4299E27469FF67B, 0xAFD5AED1C1BC96A8, 0x10851C0E3858DA9F,
        0xE6F51ED79B9DB21F, 0x64A6E14AFD36B46F, 0x80C7D7D45A5479AD, 0x05044B62FA52D080,
    };
    size_t length = 0;
    for (const uint64_t cipher : ciphers) {
        ++length;
        SCOPED_TRACE(length);
        ExpectBlock(Bytes(key.begin(), key.begin() + static_cast<std::ptrdiff_t>(length)), 0xFEDCBA9876543210, cipher);
    }
}

TEST(Blowfish, TheChainGoesOnFromCallToCall)
{
    const Bytes key = {0x01, 0x23, 0x45, 0x67, 0x89, 0xAB, 0xCD, 0xEF, 0xF0, 0xE1, 0xD2, 0xC3, 0xB4, 0xA5, 0x96, 0x87};
    const Bytes iv = BigEndian(0xFEDCBA9876543210);
    const char plain[32] = "7654321 Now is the time for ";
    const Bytes expected = {0x6B, 0x77, 0xB4, 0xD6, 0x30, 0x06, 0xDE, 0xE6, 0x05, 0xB1, 0x56,
                            0xE2, 0x74, 0x03, 0x97, 0x93, 0x58, 0xDE, 0xB9, 0xE7, 0x15, 0x46,
                            0x16, 0xD9, 0x59, 0xF1, 0x65, 0x2B, 0xD5, 0xFF, 0x92, 0xCC};
    for (const size_t cut : {size_t{8}, size_t{32}}) {
        SCOPED_TRACE(cut);
        VCipherBlowfish cipher;
        cipher.SetEncryptionKey(iv.data(), key.data());
        Bytes out(32);
        EXPECT_EQ(cipher.Encrypt(out.data(), cut, plain, 32), cut);
        EXPECT_EQ(cipher.Encrypt(out.data() + cut, 32 - cut, plain + cut, 32 - cut), 32 - cut);
        EXPECT_EQ(out, expected);
        cipher.SetDecryptionKey(iv.data(), key.data());
        EXPECT_EQ(cipher.Decrypt(out.data(), 15, out.data(), 32), 8u) << "half a block isn't touched";
        EXPECT_EQ(cipher.Decrypt(out.data() + 8, 24, out.data() + 8, 24), 24u);
        EXPECT_EQ(out, Bytes(plain, plain + 32));
    }
}

} // namespace
} // namespace ostrand
