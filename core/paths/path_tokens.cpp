#include "core/paths/path_tokens.h"

#include "core/calendar.h"
#include "core/fold.h"
#include "core/messages.h"
#include "core/native_path.h"
#include "core/paths/environment.h"
#include "core/utf8.h"
#include "platform/platform.h"

#include <algorithm>
#include <atomic>
#include <iterator>

namespace ostrand {

namespace {

struct TimeToken {
    char16_t letter;
    uint16_t VCalendarTime::* field;
    size_t digits;
};

constexpr TimeToken kTimeTokens[] = {
    {u'Y', &VCalendarTime::year, 4},        {u'M', &VCalendarTime::month, 2},  {u'D', &VCalendarTime::day, 2},
    {u'h', &VCalendarTime::hour, 2},        {u'm', &VCalendarTime::minute, 2}, {u's', &VCalendarTime::second, 2},
    {u't', &VCalendarTime::millisecond, 3},
};

struct DeviceToken {
    std::u16string_view token;
    const char* variable;
};

constexpr const char* kDeviceVariable = "U3_APP_DATA_PATH";
constexpr DeviceToken kDeviceTokens[] = {
    {u"%u3data%", kDeviceVariable},
    {u"%u3doc%", "U3_DEVICE_DOCUMENT_PATH"},
};

enum class Answer { Unknown, No, Yes };
std::atomic<Answer> g_isOnDevice{Answer::Unknown};

VCalendarTime Now()
{
    VCalendarTime now;
    // A clock behind the calendar's end tells zeros.
    static_cast<void>(ToCalendar({Platform().clock->FileTime()}, now));
    return now;
}

void AppendNumber(std::u16string& out, unsigned number, size_t digits)
{
    const size_t begin = out.size();
    for (; out.size() - begin < digits || number > 0; number /= 10)
        out += static_cast<char16_t>(u'0' + number % 10);
    std::reverse(out.begin() + static_cast<std::ptrdiff_t>(begin), out.end());
}

/// What a token stands for, behind what is there; false for one that means nothing here.
bool AppendToken(std::u16string& out, char16_t letter, const VCalendarTime& now, const char16_t* host,
                 const char16_t* session)
{
    if (letter == u'%') {
        out += letter;
        return true;
    }
    if (const char16_t* const name = letter == u'S' ? session : letter == u'H' ? host : nullptr) {
        const size_t begin = out.size();
        out += name;
        if (letter == u'H')
            std::replace(out.begin() + static_cast<std::ptrdiff_t>(begin), out.end(), u':', u'_');
        return true;
    }
    const auto* const token = std::find_if(std::begin(kTimeTokens), std::end(kTimeTokens),
                                           [letter](const TimeToken& t) { return t.letter == letter; });
    if (token == std::end(kTimeTokens))
        return false;
    AppendNumber(out, now.*token->field, token->digits);
    return true;
}

/// How a message names a token: up to the next "%", else it and one character.
std::u16string_view NameOfToken(std::u16string_view fromToken)
{
    const size_t next = fromToken.find(u'%', 1);
    size_t end = 1;
    TakeUtf16(fromToken, end);
    return fromToken.substr(0, next == fromToken.npos ? end : next + 1);
}

} // namespace

VUnicodeString ExpandPathTokens(std::u16string_view path, IReportMessageParams& report, const char16_t* host,
                                const char16_t* session)
{
    report.SetMessage(0);
    VUnicodeString expanded = ExpandEnvironment(path);
    if (IsU3Environment())
        ExpandU3Tokens(expanded);
    const std::u16string_view text = expanded;
    const VCalendarTime now = Now();
    std::u16string out;
    size_t copied = 0;
    for (size_t at = text.find(u'%'); at != text.npos; at = text.find(u'%', copied)) {
        out.append(text.substr(copied, at - copied));
        copied = at + 2;
        if (at + 1 == text.size())
            report.SetMessage(kPathTokenIncomplete);
        else if (!AppendToken(out, text[at + 1], now, host, session))
            Fail(report, kPathTokenUnknown, NameOfToken(text.substr(at)));
        if (report.GetCode() != 0)
            return {};
    }
    out.append(text.substr(copied));
    return VUnicodeString(out);
}

bool PathsEqual(std::u16string_view a, std::u16string_view b, const char16_t* host, const char16_t* session)
{
    VReportMessageParams ignored;
    return EqualNoCase(InNativeSpelling(ExpandPathTokens(a, ignored, host, session)), InNativeSpelling(b));
}

void ExpandU3Tokens(VUnicodeString& text)
{
    for (const auto& [token, variable] : kDeviceTokens) {
        VUnicodeString folder;
        if (!GetEnvironmentText(variable, folder) || folder.IsEmpty())
            continue;
        std::u16string out(text.View());
        for (size_t at = out.find(token); at != out.npos; at = out.find(token, at + folder.GetLength()))
            out.replace(at, token.size(), folder.View());
        text = out;
    }
}

bool IsU3Environment()
{
    Answer answer = g_isOnDevice.load(std::memory_order_relaxed);
    if (answer == Answer::Unknown) {
        std::string value;
        answer = Platform().environment->Get(kDeviceVariable, value) ? Answer::Yes : Answer::No;
        g_isOnDevice.store(answer, std::memory_order_relaxed);
    }
    return answer == Answer::Yes;
}

void ForgetU3Environment() { g_isOnDevice = Answer::Unknown; }

} // namespace ostrand
