// The block cipher Blowfish after B. Schneier, "Description of a New Variable-Length Key, 64-Bit Block Cipher"
// (1993): 16 rounds over two halves of 32 bits. Here for stored forms that ask for it; nothing new should.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace ostrand {

/// Set the options, then the key, then work. The order of the virtual operations is part of the contract. One thread at
/// a time. Key schedule and chain are zeroed at the end.
class VCipherBlowfish {
public:
    static constexpr unsigned kBlockSize = 8;
    /// More bytes than the schedule takes in.
    static constexpr unsigned kLongestKey = 72;

    VCipherBlowfish() = default;
    VCipherBlowfish(const VCipherBlowfish&) = delete;
    VCipherBlowfish& operator=(const VCipherBlowfish&) = delete;
    virtual ~VCipherBlowfish();

    /// Bytes of a block that goes in, and of one that comes out.
    virtual unsigned GetInputBlockSize() const { return kBlockSize; }
    virtual unsigned GetOutputBlockSize() const { return kBlockSize; }
    virtual unsigned GetKeyLength() const { return keyLength; }
    /// `iv` is a block, `key` has `keyLength` bytes, which are taken in turn again and again. Costs 521 encryptions.
    virtual void SetEncryptionKey(const void* iv, const void* key);
    /// The same schedule serves both directions.
    virtual void SetDecryptionKey(const void* iv, const void* key) { SetEncryptionKey(iv, key); }
    /// As many whole blocks as both sides hold; answers their bytes. `out` may be `in`. With `cbc` the chain goes on
    /// from call to call.
    virtual size_t Encrypt(void* out, size_t outSize, const void* in, size_t inSize);
    virtual size_t Decrypt(void* out, size_t outSize, const void* in, size_t inSize);

    unsigned keyLength = 16; ///< bytes, from 1 to kLongestKey
    struct Halves {
        uint32_t left = 0, right = 0;
    };
    Halves chain;
    bool littleEndian = false; ///< a block is two little-endian words instead of two big-endian ones
    bool cbc = true;           ///< chain the blocks; false: each for itself

private:
    static constexpr size_t kRounds = 16;

    uint32_t Mix(uint32_t half) const;
    Halves EncryptBlock(Halves block) const;
    Halves DecryptBlock(Halves block) const;
    Halves LoadBlock(const unsigned char* bytes) const;
    void StoreBlock(Halves block, unsigned char* bytes) const;

    std::array<uint32_t, kRounds + 2> m_subkeys{};
    std::array<std::array<uint32_t, 256>, 4> m_boxes{};
};

} // namespace ostrand
