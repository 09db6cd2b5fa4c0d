#include "profile/time_value.h"

#include "core/messages.h"

namespace ostrand {

namespace {

/// A field of a time text, in the order of the text. Which days a month has is the calendar's business.
struct Field {
    uint16_t VCalendarTime::* member;
    uint16_t low;
    uint16_t high;
};

constexpr Field kFields[] = {
    {&VCalendarTime::year, kFirstYear, kLastYear},
    {&VCalendarTime::month, 1, 12},
    {&VCalendarTime::day, 1, 31},
    {&VCalendarTime::hour, 0, 23},
    {&VCalendarTime::minute, 0, 59},
    {&VCalendarTime::second, 0, 59},
    {&VCalendarTime::millisecond, 0, 999},
};

bool ParseField(std::u16string_view text, const Field& field, VCalendarTime& out)
{
    uint32_t number = 0;
    for (const char16_t c : text) {
        if (c < u'0' || c > u'9')
            return false;
        number = number * 10 + (c - u'0');
        if (number > field.high)
            return false;
    }
    if (text.empty() || number < field.low)
        return false;
    out.*field.member = static_cast<uint16_t>(number);
    return true;
}

} // namespace

bool ParseTimeText(std::u16string_view text, VFileTime& out)
{
    VCalendarTime calendar;
    for (const Field& field : kFields) {
        const bool isLast = field.member == &VCalendarTime::millisecond;
        const size_t end = isLast ? text.size() : text.find(u':');
        if (end == text.npos || !ParseField(text.substr(0, end), field, calendar))
            return false;
        text.remove_prefix(isLast ? end : end + 1);
    }
    return ToFileTime(calendar, out);
}

bool FormatTimeText(VFileTime time, VUnicodeString& out)
{
    VCalendarTime c;
    if (!ToCalendar(time, c))
        return false;
    out = Format(u"%1!04d!:%2!02d!:%3!02d!:%4!02d!:%5!02d!:%6!02d!:%7!03d!", c.year, c.month, c.day, c.hour, c.minute,
                 c.second, c.millisecond);
    return true;
}

bool VProfileTimeSz::ParseTime(VFileTime* out, const VUnicodeString& text, IProfileValueParser*, IReportMessageParams&)
{
    return ParseTimeText(text, *out);
}

bool VProfileTimeSz::ReadTime(const VProfileKey* key, const char16_t* valueName, VFileTime* out, unsigned)
{
    VUnicodeString text;
    VReportMessageParams ignored;
    return key->ReadString(valueName, text) && ParseTime(out, text, nullptr, ignored);
}

void VProfileTimeSz::WriteTime(VProfileKey* key, const char16_t* valueName, const VFileTime* value, unsigned)
{
    VUnicodeString text;
    if (FormatTimeText(*value, text))
        key->WriteString(valueName, text.c_str());
    dirty = false;
}

bool VProfileTimeSz::GetVariantData(VVariant* out, const void* data, unsigned, IReportMessageParams& report)
{
    VUnicodeString text;
    if (!FormatTimeText(*static_cast<const VFileTime*>(data), text))
        return Fail(report, kNoVariantConversion, name);
    out->data = text;
    return true;
}

bool VProfileTimeSz::SetVariantData(const VVariant* in, void* data, unsigned, IReportMessageParams& report)
{
    VUnicodeString text;
    if (!ConvertVariant(*in, text) || !ParseTime(static_cast<VFileTime*>(data), text, nullptr, report))
        return Fail(report, kVariantNotConvertible, name);
    return true;
}

template class VProfile2<VFileTime, VProfileTimeSz>;

} // namespace ostrand
