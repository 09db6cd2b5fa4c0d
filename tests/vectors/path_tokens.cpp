// Templates of paths.

#include "core/paths/path_tokens.h"

#include "core/calendar.h"
#include "tests/support/fake_platform.h"
#include "tests/vectors/json_text.h"

#include <array>
#include <optional>
#include <stdexcept>

namespace ostrand::vectors {

namespace {

/// The clock and the environment of one case; whether it is a portable run is looked up anew, as in a fresh process.
class Scene {
public:
    explicit Scene(const Json& theCase)
    {
        const Json environment = theCase.value("environment", Json::object());
        for (const auto& [name, value] : environment.items())
            m_platform.environment.variables[name] = value;
        if (theCase.contains("now"))
            m_platform.clock.fileTime = TicksOf(theCase.at("now"));
        ForgetU3Environment();
    }
    ~Scene() { ForgetU3Environment(); }

private:
    static uint64_t TicksOf(const Json& now)
    {
        const VCalendarTime calendar = {now.at("year"),   now.at("month"),      0,
                                        now.at("day"),    now.at("hour"),       now.at("minute"),
                                        now.at("second"), now.at("millisecond")};
        VFileTime time;
        if (!ToFileTime(calendar, time))
            throw std::runtime_error("`now` is no date");
        return time.ticks;
    }

    test::FakePlatform m_platform;
};

/// A text that may be missing, which means null.
class Optional {
public:
    Optional(const Json& theCase, const char* member)
    {
        if (theCase.contains(member) && !theCase.at(member).is_null())
            m_text = ToText(theCase.at(member));
    }
    const char16_t* Get() const { return m_text ? m_text->c_str() : nullptr; }

private:
    std::optional<VUnicodeString> m_text;
};

Json Expand(const Json& theCase)
{
    const Scene scene(theCase);
    VReportMessageParams report;
    const VUnicodeString text = ExpandPathTokens(ToText(theCase.at("path")), report, Optional(theCase, "host").Get(),
                                                 Optional(theCase, "session").Get());
    Json told = {{"text", FromText(text)}, {"code", report.GetCode()}};
    if (report.GetArgumentCount() > 0)
        told["argument"] = FromText(report.GetArguments()[0]);
    return told;
}

Json PortableTokens(const Json& theCase)
{
    const Scene scene(theCase);
    VUnicodeString text = ToText(theCase.at("text"));
    ExpandU3Tokens(text);
    return {{"text", FromText(text)}};
}

Json Equal(const Json& theCase)
{
    const Scene scene(theCase);
    return {{"answer", PathsEqual(ToText(theCase.at("a")), ToText(theCase.at("b")), Optional(theCase, "host").Get(),
                                  Optional(theCase, "session").Get())}};
}

constexpr std::array kKinds = {
    Kind{"expand", Expand},
    Kind{"expand portable", Expand},
    Kind{"portable tokens", PortableTokens},
    Kind{"equal", Equal},
};

} // namespace

std::span<const Kind> PathTokensKinds() { return kKinds; }

} // namespace ostrand::vectors
