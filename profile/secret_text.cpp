#include "profile/secret_text.h"

#include "core/code_page.h"

namespace ostrand {

namespace {

char16_t CharacterAt(std::span<const uint8_t> bytes, size_t at, VCharacterWidth width)
{
    if (width == VCharacterWidth::CodePage)
        return FromCodePage(bytes[at]);
    return static_cast<char16_t>(bytes[at] | bytes[at + 1] << 8);
}

} // namespace

VUnicodeString SecretText(std::span<const uint8_t> bytes, VCharacterWidth width)
{
    const auto step = static_cast<size_t>(width);
    size_t length = 0;
    while ((length + 1) * step <= bytes.size() && CharacterAt(bytes, length * step, width) != 0)
        ++length;

    char16_t* characters = nullptr;
    VUnicodeString text = VUnicodeString::WithLength(length, characters);
    for (size_t i = 0; i < length; ++i)
        characters[i] = CharacterAt(bytes, i * step, width);
    text.MarkSensitive();
    return text;
}

VSecretBytes SecretBytes(std::u16string_view text, size_t extra)
{
    VSecretBytes bytes;
    bytes.reserve((text.size() + 1) * sizeof(char16_t) + extra);
    for (const char16_t c : text) {
        bytes.push_back(static_cast<uint8_t>(c & 0xFF));
        bytes.push_back(static_cast<uint8_t>(c >> 8));
    }
    bytes.insert(bytes.end(), sizeof(char16_t), 0);
    return bytes;
}

} // namespace ostrand
