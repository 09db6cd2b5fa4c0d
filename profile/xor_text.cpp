#include "profile/xor_text.h"

#include "core/code_page.h"
#include "core/hex.h"
#include "platform/platform.h"
#include "profile/secret_text.h"

#include <cstdlib>

namespace ostrand {

namespace {

VXorKey RandomKey()
{
    // On purpose: the C library's generator, shared with the host and easy to foresee. The key stands in front of the
    // text, so a better one would protect nothing more.
    [[maybe_unused]] static const bool isSeeded = [] {
        std::srand(Platform().clock->Seconds());
        return true;
    }();
    VXorKey key;
    for (uint8_t& byte : key)
        byte = static_cast<uint8_t>(std::rand());
    return key;
}

} // namespace

VUnicodeString EncodeXor(std::u16string_view text) { return EncodeXor(text, RandomKey()); }

VUnicodeString EncodeXor(std::u16string_view text, const VXorKey& key)
{
    if (text.empty())
        return {};
    VSecretBytes bytes(key.begin(), key.end());
    bytes.reserve(key.size() + text.size());
    for (size_t i = 0; i < text.size(); ++i)
        bytes.push_back(static_cast<uint8_t>(ToCodePage(text[i]) ^ key[i % key.size()]));
    return HexText(u"", bytes);
}

VSecretBytes DecodeXorBytes(std::u16string_view stored)
{
    constexpr size_t kKeySize = std::tuple_size_v<VXorKey>;
    VSecretBytes bytes;
    ReadHex(stored, bytes);
    if (bytes.size() <= kKeySize)
        return {};
    for (size_t i = kKeySize; i < bytes.size(); ++i)
        bytes[i] ^= bytes[i % kKeySize];
    bytes.erase(bytes.begin(), bytes.begin() + kKeySize);
    return bytes;
}

VUnicodeString DecodeXor(std::u16string_view stored)
{
    return SecretText(DecodeXorBytes(stored), VCharacterWidth::CodePage);
}

} // namespace ostrand
