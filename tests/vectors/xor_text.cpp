// Texts in their encoded form.

#include "profile/xor_text.h"
#include "tests/vectors/json_text.h"

#include <array>

namespace ostrand::vectors {

namespace {

Json Encode(const Json& theCase)
{
    const std::vector<uint8_t> bytes = ToBytes(theCase.at("key"));
    VXorKey key{};
    if (bytes.size() != key.size())
        Unknown("key", theCase.at("key"));
    std::copy(bytes.begin(), bytes.end(), key.begin());
    return {{"stored", FromText(EncodeXor(ToText(theCase.at("text")), key))}};
}

Json Decode(const Json& theCase) { return {{"text", FromText(DecodeXor(ToText(theCase.at("stored"))))}}; }

Json Lost(const Json& theCase)
{
    const VUnicodeString text = ToText(theCase.at("text"));
    return {{"round_trip", DecodeXor(EncodeXor(text)) == text}};
}

constexpr std::array kKinds = {Kind{"encode", Encode}, Kind{"decode", Decode}, Kind{"lost", Lost}};

} // namespace

std::span<const Kind> XorTextKinds() { return kKinds; }

} // namespace ostrand::vectors
