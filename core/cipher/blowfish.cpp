#include "core/cipher/blowfish.h"

#include "core/cipher/pi_words.h"
#include "core/zero.h"

#include <algorithm>
#include <cassert>

namespace ostrand {

VCipherBlowfish::~VCipherBlowfish()
{
    ZeroForGood(m_subkeys.data(), sizeof m_subkeys);
    ZeroForGood(m_boxes.data(), sizeof m_boxes);
    ZeroForGood(&chain, sizeof chain);
}

inline uint32_t VCipherBlowfish::Mix(uint32_t half) const
{
    return ((m_boxes[0][half >> 24] + m_boxes[1][half >> 16 & 0xFF]) ^ m_boxes[2][half >> 8 & 0xFF]) +
           m_boxes[3][half & 0xFF];
}

inline VCipherBlowfish::Halves VCipherBlowfish::EncryptBlock(Halves block) const
{
    auto [left, right] = block;
    for (size_t round = 0; round < kRounds; round += 2) {
        left ^= m_subkeys[round];
        right ^= Mix(left);
        right ^= m_subkeys[round + 1];
        left ^= Mix(right);
    }
    return {right ^ m_subkeys[kRounds + 1], left ^ m_subkeys[kRounds]};
}

inline VCipherBlowfish::Halves VCipherBlowfish::DecryptBlock(Halves block) const
{
    auto [left, right] = block;
    for (size_t round = kRounds; round > 0; round -= 2) {
        left ^= m_subkeys[round + 1];
        right ^= Mix(left);
        right ^= m_subkeys[round];
        left ^= Mix(right);
    }
    return {right ^ m_subkeys[0], left ^ m_subkeys[1]};
}

VCipherBlowfish::Halves VCipherBlowfish::LoadBlock(const unsigned char* bytes) const
{
    Halves block;
    for (size_t i = 0; i < 4; ++i) {
        const size_t shift = 8 * (littleEndian ? i : 3 - i);
        block.left |= static_cast<uint32_t>(bytes[i]) << shift;
        block.right |= static_cast<uint32_t>(bytes[i + 4]) << shift;
    }
    return block;
}

void VCipherBlowfish::StoreBlock(Halves block, unsigned char* bytes) const
{
    for (size_t i = 0; i < 4; ++i) {
        const size_t shift = 8 * (littleEndian ? i : 3 - i);
        bytes[i] = static_cast<unsigned char>(block.left >> shift);
        bytes[i + 4] = static_cast<unsigned char>(block.right >> shift);
    }
}

void VCipherBlowfish::SetEncryptionKey(const void* iv, const void* key)
{
    assert(keyLength > 0 && keyLength <= kLongestKey);
    chain = LoadBlock(static_cast<const unsigned char*>(iv));

    const auto* word = kPiWords.begin();
    const auto* const keyBytes = static_cast<const unsigned char*>(key);
    size_t at = 0;
    for (uint32_t& subkey : m_subkeys) {
        uint32_t mixed = 0;
        for (int i = 0; i < 4; ++i, at = (at + 1) % keyLength)
            mixed = mixed << 8 | keyBytes[at];
        subkey = *word++ ^ mixed;
    }
    for (auto& box : m_boxes) {
        std::copy_n(word, box.size(), box.begin());
        word += box.size();
    }

    Halves block;
    const auto replace = [&](auto& words) {
        for (size_t i = 0; i < words.size(); i += 2) {
            block = EncryptBlock(block);
            words[i] = block.left;
            words[i + 1] = block.right;
        }
    };
    replace(m_subkeys);
    for (auto& box : m_boxes)
        replace(box);
}

size_t VCipherBlowfish::Encrypt(void* out, size_t outSize, const void* in, size_t inSize)
{
    const auto* from = static_cast<const unsigned char*>(in);
    auto* to = static_cast<unsigned char*>(out);
    const size_t size = std::min(outSize, inSize) / kBlockSize * kBlockSize;
    for (const auto* const end = from + size; from < end; from += kBlockSize, to += kBlockSize) {
        Halves block = LoadBlock(from);
        if (cbc) {
            block = EncryptBlock({block.left ^ chain.left, block.right ^ chain.right});
            chain = block;
        } else {
            block = EncryptBlock(block);
        }
        StoreBlock(block, to);
    }
    return size;
}

size_t VCipherBlowfish::Decrypt(void* out, size_t outSize, const void* in, size_t inSize)
{
    const auto* from = static_cast<const unsigned char*>(in);
    auto* to = static_cast<unsigned char*>(out);
    const size_t size = std::min(outSize, inSize) / kBlockSize * kBlockSize;
    for (const auto* const end = from + size; from < end; from += kBlockSize, to += kBlockSize) {
        const Halves block = LoadBlock(from);
        Halves plain = DecryptBlock(block);
        if (cbc) {
            plain = {plain.left ^ chain.left, plain.right ^ chain.right};
            chain = block;
        }
        StoreBlock(plain, to);
    }
    return size;
}

} // namespace ostrand
