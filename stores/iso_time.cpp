#include "stores/iso_time.h"

#include <cstddef>

namespace ostrand {

namespace {

// A place for each digit.
constexpr std::string_view kForm = "0000-00-00T00:00:00.0000000Z";

constexpr uint64_t kTicksOfSecond = 10'000'000;
constexpr uint64_t kSecondsTo1970 = 11'644'473'600;

struct Field {
    size_t at;
    size_t digits;
    uint16_t VCalendarTime::* part;
};
constexpr Field kFields[] = {
    {0, 4, &VCalendarTime::year},  {5, 2, &VCalendarTime::month},   {8, 2, &VCalendarTime::day},
    {11, 2, &VCalendarTime::hour}, {14, 2, &VCalendarTime::minute}, {17, 2, &VCalendarTime::second},
};
constexpr size_t kFraction = 20;
constexpr size_t kFractionDigits = 7;

void PutDigits(uint64_t number, size_t at, size_t digits, std::string& text)
{
    for (size_t i = digits; i > 0; --i, number /= 10)
        text[at + i - 1] = static_cast<char>('0' + number % 10);
}

uint32_t TakeDigits(std::string_view text, size_t at, size_t digits)
{
    uint32_t number = 0;
    for (const char c : text.substr(at, digits))
        number = number * 10 + static_cast<uint32_t>(c - '0');
    return number;
}

bool HasForm(std::string_view text)
{
    if (text.size() != kForm.size())
        return false;
    for (size_t i = 0; i < kForm.size(); ++i) {
        const bool isDigit = text[i] >= '0' && text[i] <= '9';
        if (kForm[i] == '0' ? !isDigit : text[i] != kForm[i])
            return false;
    }
    return true;
}

} // namespace

std::string IsoTime(VFileTime time)
{
    VCalendarTime calendar;
    if (!ToCalendar(time, calendar) || calendar.year > 9999)
        return {};
    std::string text(kForm);
    for (const Field& field : kFields)
        PutDigits(calendar.*field.part, field.at, field.digits, text);
    PutDigits(time.ticks % kTicksOfSecond, kFraction, kFractionDigits, text);
    return text;
}

bool ParseIsoTime(std::string_view text, VFileTime& time)
{
    if (!HasForm(text))
        return false;
    VCalendarTime calendar;
    for (const Field& field : kFields)
        calendar.*field.part = static_cast<uint16_t>(TakeDigits(text, field.at, field.digits));
    VFileTime second;
    if (!ToFileTime(calendar, second))
        return false;
    time.ticks = second.ticks + TakeDigits(text, kFraction, kFractionDigits);
    return true;
}

VFileTime TimeOfFile(int64_t nanoseconds)
{
    const int64_t ticks = nanoseconds / 100 + static_cast<int64_t>(kSecondsTo1970 * kTicksOfSecond);
    return {ticks > 0 ? static_cast<uint64_t>(ticks) : 0};
}

} // namespace ostrand
