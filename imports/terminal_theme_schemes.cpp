#include "imports/terminal_theme_schemes.h"

#include "core/fold.h"
#include "core/utf8.h"
#include "imports/color_text.h"
#include "imports/import_text.h"
#include "imports/registry_export.h"

#include <algorithm>
#include <utility>

namespace ostrand {

namespace {

constexpr std::u16string_view kSessions = u"\\PuTTY\\Sessions\\";
constexpr std::u16string_view kColour = u"Colour";
constexpr size_t kColours = 22;
constexpr size_t kFirstAnsi = 6;

/// The colours of one session, empty where it has none.
struct Session {
    VUnicodeString name;
    size_t line = 0;
    std::array<const RegistryValue*, kColours> colours{};
};

int HexValue(char16_t c)
{
    if (c >= u'0' && c <= u'9')
        return c - u'0';
    c |= 0x20;
    return c >= u'a' && c <= u'f' ? c - u'a' + 10 : -1;
}

/// The bytes of a name with its "%XX" decoded. Where bytes were written that way, they are UTF-8 or the code page.
VUnicodeString DecodeName(std::u16string_view encoded)
{
    std::string bytes;
    for (size_t at = 0; at < encoded.size();) {
        const int high = encoded[at] == u'%' && at + 2 < encoded.size() ? HexValue(encoded[at + 1]) : -1;
        const int low = high >= 0 ? HexValue(encoded[at + 2]) : -1;
        if (low >= 0) {
            bytes.push_back(static_cast<char>(high << 4 | low));
            at += 3;
        } else {
            PutUtf8(TakeUtf16(encoded, at), bytes);
        }
    }
    return DecodeNarrow(bytes);
}

/// The encoded name of the session that a key is; empty for any other key.
std::u16string_view SessionOf(std::u16string_view path)
{
    const size_t bar = path.rfind(u'\\');
    if (bar == std::u16string_view::npos || bar + 1 < kSessions.size())
        return {};
    const bool isSession = EqualNoCase(path.substr(bar + 1 - kSessions.size(), kSessions.size()), kSessions);
    return isSession ? path.substr(bar + 1) : std::u16string_view();
}

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

class SessionColors {
public:
    explicit SessionColors(const SchemeFile& file) : m_collector(file) {}

    void Take(const RegistryKey& key);
    bool Finish(SchemeImport& out, ImportFault& error);

private:
    Session& Place(std::u16string_view encodedName, size_t line);
    SchemeColors Colors(const Session& session);

    SchemeCollector m_collector;
    std::vector<Session> m_sessions;                     // in the order of their keys
    std::unordered_map<std::u16string, size_t> m_places; // by the folded name of the key
};

Session& SessionColors::Place(std::u16string_view encodedName, size_t line)
{
    std::u16string folded(encodedName);
    std::ranges::transform(folded, folded.begin(), FoldCase);
    const auto [place, isNew] = m_places.try_emplace(std::move(folded), m_sessions.size());
    if (isNew)
        m_sessions.push_back({DecodeName(encodedName), line, {}});
    return m_sessions[place->second];
}

void SessionColors::Take(const RegistryKey& key)
{
    const std::u16string_view encodedName = SessionOf(key.path);
    if (encodedName.empty())
        return;
    Session& session = Place(encodedName, key.line);
    if (key.isDeleted)
        session.colours = {};
    for (const RegistryValue& value : key.values)
        if (const size_t number = NumberOf(value.name); number < kColours)
            session.colours[number] = std::holds_alternative<RegistryDeletion>(value.data) ? nullptr : &value;
}

SchemeColors SessionColors::Colors(const Session& session)
{
    SchemeColors colors;
    SchemeColors::Color ignored;
    for (size_t i = 0; i < kColours; ++i) {
        const RegistryValue* const value = session.colours[i];
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
            m_collector.Reject(value->line, fault);
        else
            m_collector.Note(value->line, fault);
    }
    return colors;
}

bool SessionColors::Finish(SchemeImport& out, ImportFault& error)
{
    const auto isSet = [](const RegistryValue* value) { return value != nullptr; };
    for (const Session& session : m_sessions)
        if (std::ranges::any_of(session.colours, isSet) &&
            !m_collector.Add(session.name, Colors(session), session.line))
            break;
    return m_collector.Finish(out, error, u"has no session with colours");
}

} // namespace

bool ReadTerminalThemeSchemes(const SchemeFile& file, SchemeImport& out, ImportFault& error)
{
    std::vector<RegistryKey> keys;
    if (!ReadRegistryExport(file.bytes, keys, error))
        return false;
    SessionColors sessions(file);
    for (const RegistryKey& key : keys)
        sessions.Take(key);
    return sessions.Finish(out, error);
}

} // namespace ostrand
