#include "imports/xresources_schemes.h"

#include "imports/color_text.h"
#include "imports/import_text.h"
#include "imports/x_lines.h"

#include <algorithm>

namespace ostrand {

namespace {

// Places of the colours: the ANSI ones first.
constexpr size_t kForeground = 16;
constexpr size_t kBackground = 17;
constexpr size_t kBold = 18;
constexpr size_t kColors = 19;

constexpr std::string_view kTerminals[] = {"xterm", "uxterm", "urxvt", "rxvt",   "aterm",
                                           "eterm", "mrxvt",  "kterm", "mlterm", "st"};

/// The line that counts for one colour.
struct Setting {
    size_t line = 0; // 0 for none
    bool isNamed = false;
    bool isColor = false;
    uint32_t color = 0;
    VUnicodeString text;
};

/// What a key is about; kColors for nothing here.
struct Target {
    size_t place = kColors;
    bool isNamed = false; // for one program, not for all
};

size_t PlaceOf(std::string_view name)
{
    if (EqualAscii(name, "foreground"))
        return kForeground;
    if (EqualAscii(name, "background"))
        return kBackground;
    if (EqualAscii(name, "colorBD"))
        return kBold;
    if ((name.size() != 6 && name.size() != 7) || !EqualAscii(name.substr(0, 5), "color"))
        return kColors;
    size_t number = 0;
    for (const char digit : name.substr(5)) {
        if (digit < '0' || digit > '9')
            return kColors;
        number = number * 10 + static_cast<size_t>(digit - '0');
    }
    const bool isPadded = name.size() == 7 && number < 10;
    return number < kForeground && !isPadded ? number : kColors;
}

Target TargetOf(std::string_view key)
{
    const size_t bar = key.find_last_of("*.");
    const std::string_view name = key.substr(bar + 1); // npos + 1 is 0
    Target target{PlaceOf(name)};
    if (bar == std::string_view::npos || target.place == kColors)
        return target;
    key = key.substr(0, bar);
    const std::string_view program = key.substr(0, key.find_first_of("*."));
    target.isNamed = !program.empty();
    if (target.place != kForeground && target.place != kBackground)
        return target; // nothing but terminals has those
    const auto isProgram = [program](std::string_view terminal) { return EqualAscii(program, terminal); };
    std::string_view widgets = key.substr(program.size());
    widgets.remove_prefix(std::min(widgets.find_first_not_of("*."), widgets.size()));
    const bool isText = widgets.empty() || EqualAscii(widgets, "vt100");
    // "vt100.foreground" and "VT100*foreground" name the text area of any program.
    const bool isTerminal =
        program.empty() || EqualAscii(program, "vt100") || std::ranges::any_of(kTerminals, isProgram);
    if (!isText || !isTerminal)
        target.place = kColors;
    return target;
}

VUnicodeString NameOf(size_t place)
{
    if (place < kForeground)
        return Format(u"color%1!u!", place);
    return place == kForeground ? u"foreground" : place == kBackground ? u"background" : u"colorBD";
}

class ColorReader {
public:
    ColorReader(const SchemeFile& file, ImportFault& error)
        : m_collector(file),
          m_lines(file.bytes.substr(file.bytes.starts_with(kUtf8Mark) ? kUtf8Mark.size() : 0), m_collector, error),
          m_error(error)
    {
    }

    bool Read(SchemeImport& out)
    {
        for (XResource resource; m_lines.Next(resource);)
            if (!Take(resource))
                return false;
        if (m_lines.HasFailed())
            return false;
        if (std::ranges::any_of(m_settings, [](const Setting& setting) { return setting.line != 0; }))
            m_collector.Add({}, Colors(), 0);
        return m_collector.Finish(out, m_error, u"has no colours of a terminal");
    }

private:
    bool Take(const XResource& resource)
    {
        const Target target = TargetOf(resource.key);
        if (target.place == kColors)
            return true;
        Setting& setting = m_settings[target.place];
        if (setting.isNamed && !target.isNamed)
            return true;
        std::string_view value;
        if (!m_lines.Defines().Resolve(resource.value, value, resource.line, m_error))
            return false;
        setting = {};
        setting.line = resource.line;
        setting.isNamed = target.isNamed;
        setting.isColor = ReadXColor(Trim(value), setting.color);
        if (!setting.isColor)
            setting.text = Cited(value);
        return true;
    }

    SchemeColors Colors()
    {
        SchemeColors colors;
        for (size_t place = 0; place < kColors; ++place) {
            const Setting& setting = m_settings[place];
            if (setting.isColor) {
                SchemeColors::Color* const special[] = {&colors.foreground, &colors.background, &colors.boldForeground};
                (place < kForeground ? colors.ansi[place] : *special[place - kForeground]) = setting.color;
            } else if (setting.line != 0) {
                const VUnicodeString text = Format(u"%1 is '%2', which is no colour", NameOf(place), setting.text);
                if (place == kForeground || place == kBackground)
                    m_collector.Reject(setting.line, text);
                else
                    m_collector.Note(setting.line, text);
            }
        }
        return colors;
    }

    SchemeCollector m_collector;
    XLineReader m_lines;
    ImportFault& m_error;
    std::array<Setting, kColors> m_settings;
};

} // namespace

bool ReadXresourcesSchemes(const SchemeFile& file, SchemeImport& out, ImportFault& error)
{
    return FitsImport(file.bytes, error) && ColorReader(file, error).Read(out);
}

} // namespace ostrand
