// Templates with numbered inserts.

#include "core/format.h"
#include "tests/vectors/json_text.h"

#include <array>
#include <deque>

namespace ostrand::vectors {

namespace {

Json FormatCase(const Json& theCase)
{
    std::deque<VUnicodeString> texts; // stay in place: arguments borrow them
    std::vector<VFormatArgument> arguments;
    for (const Json& argument : theCase.at("arguments")) {
        const std::string type = argument.at("type");
        const Json& value = argument.at("value");
        if (type == "string")
            arguments.emplace_back(texts.emplace_back(ToText(value)));
        else if (type == "int")
            arguments.emplace_back(static_cast<int32_t>(ToNumber(value)));
        else if (type == "uint" || type == "unsigned")
            arguments.emplace_back(ToNumber(value));
        else
            Unknown("type of argument", type);
    }
    return {{"text", FromText(FormatList(ToText(theCase.at("template")), arguments))}};
}

constexpr std::array kKinds = {Kind{"format", FormatCase}};

} // namespace

std::span<const Kind> MessageFormatKinds() { return kKinds; }

} // namespace ostrand::vectors
