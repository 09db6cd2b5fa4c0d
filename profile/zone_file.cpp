#include "profile/zone_file.h"

#include "platform/error_codes.h"
#include "platform/platform.h"

#include <algorithm>

namespace ostrand {

namespace {

constexpr size_t kLargestFile = size_t{1} << 20; // bytes; real ones have a few thousand
constexpr std::string_view kMagic = "TZif";

constexpr int kSecondsOfHour = 3600;
constexpr int kSecondsOfDay = 24 * kSecondsOfHour;
constexpr int kMostOffset = 24; // hours
constexpr int kMostHours = 167; // of a change; a week
constexpr int kUsualChange = 2 * kSecondsOfHour;

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

bool IsLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }

bool IsInQuotedName(char c) { return IsLetter(c) || IsDigit(c) || c == '+' || c == '-'; }

/// Takes a text apart from its front. What fails has taken nothing that matters.
class Cursor {
public:
    explicit Cursor(std::string_view text) : m_rest(text) {}

    bool IsAtEnd() const { return m_rest.empty(); }
    bool IsAt(char c) const { return m_rest.starts_with(c); }
    bool Take(char c)
    {
        const bool isThere = IsAt(c);
        m_rest.remove_prefix(isThere);
        return isThere;
    }
    std::string_view TakeWhile(bool (*belongs)(char))
    {
        const auto end = std::find_if_not(m_rest.begin(), m_rest.end(), belongs);
        const std::string_view taken = m_rest.substr(0, static_cast<size_t>(end - m_rest.begin()));
        m_rest.remove_prefix(taken.size());
        return taken;
    }
    /// Digits, at most three of them.
    bool Number(int low, int high, int& out)
    {
        const std::string_view digits = TakeWhile(IsDigit);
        out = 0;
        for (const char c : digits.substr(0, 4))
            out = out * 10 + (c - '0');
        return !digits.empty() && digits.size() < 4 && out >= low && out <= high;
    }

private:
    std::string_view m_rest;
};

bool TakeName(Cursor& cursor, std::string& name)
{
    constexpr size_t kShortest = 3;
    const bool isQuoted = cursor.Take('<');
    name = cursor.TakeWhile(isQuoted ? IsInQuotedName : IsLetter);
    return name.size() >= kShortest && (!isQuoted || cursor.Take('>'));
}

/// A signed time of day, in seconds.
bool TakeTime(Cursor& cursor, int mostHours, int& seconds)
{
    const bool isNegative = cursor.Take('-');
    if (!isNegative)
        cursor.Take('+');
    int parts[3] = {};
    for (int i = 0; i < 3 && (i == 0 || cursor.Take(':')); ++i)
        if (!cursor.Number(0, i == 0 ? mostHours : 59, parts[i]))
            return false;
    seconds = parts[0] * kSecondsOfHour + parts[1] * 60 + parts[2];
    if (isNegative)
        seconds = -seconds;
    return true;
}

/// A time of day as a date holds it. The end of the day is its last millisecond; what lies on another day moves the
/// weekday, though not the week, so a change in the first or last days of a month may miss by a week.
void SetTime(VCalendarTime& change, int seconds)
{
    if (seconds == kSecondsOfDay) {
        change.hour = 23;
        change.minute = 59;
        change.second = 59;
        change.millisecond = 999;
        return;
    }
    const int days = (seconds < 0 ? seconds - kSecondsOfDay + 1 : seconds) / kSecondsOfDay; // rounded down
    const int ofDay = seconds - days * kSecondsOfDay;
    change.dayOfWeek = static_cast<uint16_t>(((change.dayOfWeek + days) % 7 + 7) % 7);
    change.hour = static_cast<uint16_t>(ofDay / kSecondsOfHour);
    change.minute = static_cast<uint16_t>(ofDay / 60 % 60);
    change.second = static_cast<uint16_t>(ofDay % 60);
}

/// A rule that counts days leaves the month 0.
bool TakeRule(Cursor& cursor, VCalendarTime& change)
{
    int month = 0, week = 0, weekday = 0, day = 0;
    if (cursor.Take('M')) {
        if (!cursor.Number(1, 12, month) || !cursor.Take('.') || !cursor.Number(1, 5, week) || !cursor.Take('.') ||
            !cursor.Number(0, 6, weekday))
            return false;
    } else {
        const int first = cursor.Take('J') ? 1 : 0;
        if (!cursor.Number(first, 365, day))
            return false;
    }
    int seconds = kUsualChange;
    if (cursor.Take('/') && !TakeTime(cursor, kMostHours, seconds))
        return false;
    if (month > 0) {
        change.month = static_cast<uint16_t>(month);
        change.day = static_cast<uint16_t>(week);
        change.dayOfWeek = static_cast<uint16_t>(weekday);
        SetTime(change, seconds);
    }
    return true;
}

bool TakeDaylight(Cursor& cursor, int standard, VZoneRule& out)
{
    int daylight = standard - kSecondsOfHour;
    if (!TakeName(cursor, out.daylightName) ||
        (!cursor.IsAtEnd() && !cursor.IsAt(',') && !TakeTime(cursor, kMostOffset, daylight)))
        return false;
    out.information.daylightBias = (daylight - standard) / 60;
    return cursor.IsAtEnd() || (cursor.Take(',') && TakeRule(cursor, out.information.daylightDate) &&
                                cursor.Take(',') && TakeRule(cursor, out.information.standardDate));
}

} // namespace

bool ParseZoneText(std::string_view text, VZoneRule& out)
{
    Cursor cursor(text);
    VZoneRule rule;
    int standard = 0;
    if (!TakeName(cursor, rule.standardName) || !TakeTime(cursor, kMostOffset, standard))
        return false;
    rule.information.bias = standard / 60;
    if (!cursor.IsAtEnd() && !(TakeDaylight(cursor, standard, rule) && cursor.IsAtEnd()))
        return false;
    out = rule;
    return true;
}

std::string_view LastLineOfZoneFile(std::string_view bytes)
{
    const bool hasLine = bytes.size() > kMagic.size() && bytes.starts_with(kMagic) && bytes[kMagic.size()] >= '2' &&
                         bytes.ends_with('\n');
    if (!hasLine)
        return {};
    bytes.remove_suffix(1);
    return bytes.substr(bytes.rfind('\n') + 1);
}

bool ReadZoneFile(const std::string& path, VZoneRule& out)
{
    std::string bytes;
    VFileInfo info;
    return Platform().files->ReadWhole(path, kLargestFile, bytes, info) == kErrorSuccess &&
           ParseZoneText(LastLineOfZoneFile(bytes), out);
}

} // namespace ostrand
