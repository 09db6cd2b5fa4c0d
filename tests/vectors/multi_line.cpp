// Texts of several lines.

#include "profile/multi_line.h"
#include "tests/vectors/json_text.h"

#include <array>

namespace ostrand::vectors {

namespace {

Json Told(const VProfileMultiLineString& value)
{
    return {{"lines", FromList(value)}, {"text", FromText(value.GetText())}};
}

Json Set(const Json& theCase)
{
    VProfileMultiLineString value;
    value.SetText(ToText(theCase.at("text")).c_str());
    return Told(value);
}

Json Get(const Json& theCase)
{
    VProfileMultiLineString value;
    value = ToList(theCase.at("lines"));
    return Told(value);
}

constexpr std::array kKinds = {Kind{"set", Set}, Kind{"get", Get}};

} // namespace

std::span<const Kind> MultiLineKinds() { return kKinds; }

} // namespace ostrand::vectors
