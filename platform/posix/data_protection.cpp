// Authenticated encryption with the user's key: XChaCha20-Poly1305 of libsodium.
//
//   block = version:1 nonce:24 ciphertext:n tag:16        the value's name is the associated data

#include "platform/error_codes.h"
#include "platform/posix/posix_services.h"
#include "platform/posix/user_key.h"

#include <sodium.h>
#include <sys/random.h>

namespace ostrand::posix {

namespace {

constexpr uint8_t kVersion = 1;
constexpr size_t kNonceSize = crypto_aead_xchacha20poly1305_ietf_NPUBBYTES;
constexpr size_t kTagSize = crypto_aead_xchacha20poly1305_ietf_ABYTES;
constexpr size_t kHeadSize = 1 + kNonceSize;
static_assert(kUserKeySize == crypto_aead_xchacha20poly1305_ietf_KEYBYTES);

/// The library picks its code for this processor once.
bool IsReady()
{
    static const bool ready = sodium_init() != -1;
    return ready;
}

const unsigned char* BytesOf(std::string_view text) { return reinterpret_cast<const unsigned char*>(text.data()); }

class PosixDataProtection final : public IDataProtection {
public:
    unsigned Protect(std::string_view name, std::span<const uint8_t> plain, std::vector<uint8_t>& block) override
    {
        VSecretBytes key;
        unsigned code = IsReady() ? ReadOrMakeUserKey(key) : kErrorNotSupported;
        block.assign(kHeadSize + plain.size() + kTagSize, kVersion);
        uint8_t* const nonce = block.data() + 1;
        if (code == kErrorSuccess)
            code = FillRandom(nonce, kNonceSize); // long enough that chance never gives one twice
        if (code == kErrorSuccess)
            crypto_aead_xchacha20poly1305_ietf_encrypt(block.data() + kHeadSize, nullptr, plain.data(), plain.size(),
                                                       BytesOf(name), name.size(), nullptr, nonce, key.data());
        else
            block.clear();
        return code;
    }

    unsigned Unprotect(std::string_view name, std::span<const uint8_t> block, VSecretBytes& plain) override
    {
        plain.clear();
        if (block.size() < kHeadSize + kTagSize || block[0] != kVersion)
            return kErrorInvalidData;
        VSecretBytes key;
        const unsigned code = IsReady() ? ReadUserKey(key) : kErrorNotSupported;
        if (code != kErrorSuccess)
            return code;
        plain.resize(block.size() - kHeadSize - kTagSize);
        if (crypto_aead_xchacha20poly1305_ietf_decrypt(plain.data(), nullptr, nullptr, block.data() + kHeadSize,
                                                       block.size() - kHeadSize, BytesOf(name), name.size(),
                                                       block.data() + 1, key.data()) == 0)
            return kErrorSuccess;
        plain.clear();
        return kErrorInvalidData;
    }

    unsigned FillRandom(void* buffer, size_t size) override
    {
        auto* to = static_cast<unsigned char*>(buffer);
        while (size > 0) {
            const ssize_t got = Retry([&] { return getrandom(to, size, 0); });
            if (got == -1)
                return CodeOf(errno);
            to += got;
            size -= static_cast<size_t>(got);
        }
        return kErrorSuccess;
    }
};

constinit Forever<PosixDataProtection> g_dataProtection;

} // namespace

IDataProtection& DataProtection() { return g_dataProtection.object; }

} // namespace ostrand::posix
