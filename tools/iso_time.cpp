#include "tools/iso_time.h"

#include <algorithm>
#include <charconv>

namespace ostrand::tool {

namespace {

bool TakeNumber(std::string_view& text, size_t digits, uint16_t& out)
{
    const char* const end = text.data() + std::min(digits, text.size());
    const auto [at, error] = std::from_chars(text.data(), end, out);
    if (error != std::errc() || at != text.data() + digits)
        return false;
    text.remove_prefix(digits);
    return true;
}

bool Take(std::string_view& text, char c)
{
    const bool isThere = text.starts_with(c);
    text.remove_prefix(isThere);
    return isThere;
}

bool TakeTimeOfDay(std::string_view& text, VCalendarTime& time)
{
    if (!TakeNumber(text, 2, time.hour) || !Take(text, ':') || !TakeNumber(text, 2, time.minute))
        return false;
    if (Take(text, ':') && !TakeNumber(text, 2, time.second))
        return false;
    return !Take(text, '.') || TakeNumber(text, 3, time.millisecond);
}

} // namespace

bool ReadIsoTime(std::string_view word, VCalendarTime& out)
{
    VCalendarTime time;
    VFileTime ticks;
    if (!TakeNumber(word, 4, time.year) || !Take(word, '-') || !TakeNumber(word, 2, time.month) || !Take(word, '-') ||
        !TakeNumber(word, 2, time.day))
        return false;
    if ((Take(word, 'T') || Take(word, ' ')) && !TakeTimeOfDay(word, time))
        return false;
    Take(word, 'Z');
    return word.empty() && ToFileTime(time, ticks) && ToCalendar(ticks, out);
}

} // namespace ostrand::tool
