// Octal numbers.

#include "core/octal.h"
#include "tests/vectors/json_text.h"

#include <array>

namespace ostrand::vectors {

namespace {

Json Parse(const Json& theCase)
{
    VReportMessageParams report;
    unsigned value = 0;
    if (ParseOctal(ToText(theCase.at("text")), ToNumber(theCase.at("maximum")), &value, report))
        return {{"code", report.GetCode()}, {"value", value}};
    return {{"code", report.GetCode()}};
}

constexpr std::array kKinds = {Kind{"parse", Parse}};

} // namespace

std::span<const Kind> OctalKinds() { return kKinds; }

} // namespace ostrand::vectors
