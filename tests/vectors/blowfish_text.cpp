// The twofold encryption of texts.

#include "profile/blowfish_string.h"
#include "tests/support/fixed_random.h"
#include "tests/vectors/json_text.h"

#include <array>

namespace ostrand::vectors {

namespace {

Json Encode(const Json& theCase)
{
    std::vector<uint8_t> drawn;
    for (const char* const part : {"padding", "front", "back"})
        for (const uint8_t byte : ToBytes(theCase.at(part)))
            drawn.push_back(byte);
    test::FixedRandom random(drawn);
    VBlowfishString text;
    text.SetRandomSource(&random);
    text.SetCipherMode(theCase.at("mode"));
    text = ToText(theCase.at("text")).c_str();
    const Json stored = FromText(text.Encode());
    return {{"stored", random.left.empty() ? stored : Json("random bytes left")}};
}

Json Decode(const Json& theCase)
{
    VBlowfishString text;
    text.SetCipherMode(theCase.at("mode"));
    text.Decode(ToText(theCase.at("stored")));
    return {{"text", FromText(text)}};
}

constexpr std::array kKinds = {Kind{"encode", Encode}, Kind{"decode", Decode}};

} // namespace

std::span<const Kind> BlowfishTextKinds() { return kKinds; }

} // namespace ostrand::vectors
