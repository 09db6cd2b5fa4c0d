#include "core/octal.h"

#include "core/messages.h"

#include <algorithm>

namespace ostrand {

bool ParseOctal(std::u16string_view text, unsigned maximum, unsigned* out, IReportMessageParams& report)
{
    if (!std::all_of(text.begin(), text.end(), [](char16_t c) { return c >= u'0' && c <= u'7'; }))
        return Fail(report, kOctalInvalidDigit);
    uint64_t value = 0;
    for (const char16_t c : text) {
        value = value << 3 | static_cast<uint64_t>(c - u'0');
        if (value > UINT32_MAX)
            return Fail(report, kOctalOverflow);
    }
    if (value > maximum)
        return Fail(report, kOctalAboveMaximum);
    *out = static_cast<unsigned>(value);
    return true;
}

} // namespace ostrand
