#include "imports/terminal_theme_schemes.h"

#include "core/fold.h"
#include "imports/color_text.h"
#include "imports/import_text.h"
#include "imports/putty_keys.h"

#include <algorithm>
#include <utility>

namespace ostrand {

namespace {

constexpr std::u16string_view kColour = u"Colour";
constexpr size_t kColours = 22;
constexpr size_t kFirstAnsi = 6;

/// The values of one session's colours, null where it has none.
using SessionColors = std::array<const RegistryValue*, kColours>;

/// The number of a colour's value; kColours for any other value.
size_t NumberOf(std::u16string_view name)
{
    if (name.size() <= kColour.size() || name.size() > kColour.size() + 2 ||
        !EqualNoCase(name.substr(0, kColour.size()), kColour))
        return kColours;
    size_t number = 0;
    for (const char16_t digit : name.substr(kColour.size())) {
        if (digit < u'0' || digit > u'9')
            return kColours;
        number = number * 10 + (digit - size_t{u'0'});
    }
    return std::min(number, kColours);
}

SessionColors ColorsOf(const PuttySession& session)
{
    SessionColors colours{};
    for (const RegistryValue* const value : session.values)
        if (const size_t number = NumberOf(value->name); number < kColours)
            colours[number] = value;
    return colours;
}

SchemeColors ReadColors(const SessionColors& colours, SchemeCollector& collector)
{
    SchemeColors colors;
    SchemeColors::Color ignored;
    for (size_t i = 0; i < kColours; ++i) {
        const RegistryValue* const value = colours[i];
        if (!value)
            continue;
        SchemeColors::Color* const special[kFirstAnsi] = {
            &colors.foreground, &colors.boldForeground, &colors.background, &colors.boldBackground, &ignored, &ignored};
        const size_t ansi = i - kFirstAnsi; // only where there are
        SchemeColors::Color& color = i < kFirstAnsi ? *special[i] : colors.ansi[ansi / 2 + ansi % 2 * 8];
        const auto* const text = std::get_if<VUnicodeString>(&value->data);
        uint32_t read = 0;
        if (text && ReadDecimalColor(*text, read)) {
            color = read;
            continue;
        }
        const VUnicodeString fault = Format(u"%1 is '%2', which is no colour", Cited(value->name),
                                            text ? Cited(*text) : VUnicodeString(u"(no text)"));
        if (&color == &colors.foreground || &color == &colors.background)
            collector.Reject(value->line, fault);
        else
            collector.Note(value->line, fault);
    }
    return colors;
}

} // namespace

bool ReadTerminalThemeSchemes(const SchemeFile& file, SchemeImport& out, ImportFault& error)
{
    std::vector<RegistryKey> keys;
    if (!ReadRegistryExport(file.bytes, keys, error))
        return false;
    SchemeCollector collector(file);
    const auto isSet = [](const RegistryValue* value) { return value != nullptr; };
    for (const PuttySession& session : FindPuttySessions(keys)) {
        const SessionColors colours = ColorsOf(session);
        if (std::ranges::any_of(colours, isSet) &&
            !collector.Add(session.name, ReadColors(colours, collector), session.line))
            break;
    }
    return collector.Finish(out, error, u"has no session with colours");
}

} // namespace ostrand
