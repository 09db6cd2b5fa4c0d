// Texts of messages by code.

#include "core/report.h"
#include "tests/vectors/json_text.h"

#include <array>

namespace ostrand::vectors {

namespace {

VReportMessageParams MakeReport(const Json& theCase)
{
    VReportMessageParams report(ToNumber(theCase.at("code")), LibraryModule());
    for (const Json& argument : theCase.at("arguments"))
        report.AddArgument(ToText(argument).c_str());
    return report;
}

Json LookUp(const Json& theCase)
{
    // One object for each form: the first call decides what an object answers from then on.
    VReportMessageParams lines = MakeReport(theCase);
    VReportMessageParams oneLine = MakeReport(theCase);
    return {{"text", FromText(lines.GetText())}, {"one_line", FromText(oneLine.GetTextOneLine())}};
}

constexpr std::array kKinds = {Kind{"lookup", LookUp}};

} // namespace

std::span<const Kind> MessageTextsKinds() { return kKinds; }

} // namespace ostrand::vectors
