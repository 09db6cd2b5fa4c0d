#include "imports/windows_terminal_schemes.h"

#include "imports/color_text.h"
#include "imports/import_text.h"
#include "imports/relaxed_json.h"

#include <nlohmann/json.hpp>

#include <algorithm>

namespace ostrand {

namespace {

using Json = nlohmann::json;

/// Members of a scheme; behind the first three the ANSI colours in their order.
constexpr std::string_view kMembers[] = {
    "name",         "foreground", "background",   "black",      "red",         "green",     "yellow",
    "blue",         "purple",     "cyan",         "white",      "brightBlack", "brightRed", "brightGreen",
    "brightYellow", "brightBlue", "brightPurple", "brightCyan", "brightWhite",
};
constexpr size_t kName = 0;
constexpr size_t kForeground = 1;
constexpr size_t kBackground = 2;
constexpr size_t kFirstAnsi = 3;

/// Texts of the members of one scheme; empty ones are missing or no texts.
using SchemeMembers = std::array<std::string, std::size(kMembers)>;

/// What the parser's message says behind its own name and the place, which is told as a line.
std::string_view Detail(std::string_view message)
{
    message.remove_prefix(std::min(message.find("] ") + 2, message.size()));
    if (message.starts_with("parse error at"))
        message.remove_prefix(std::min(message.find(": ") + 2, message.size()));
    return message;
}

/// Follows the parser and keeps nothing but the scheme at hand, so deep or long documents cost no memory.
class SchemeHandler : public nlohmann::json_sax<Json> {
public:
    SchemeHandler(const SchemeFile& file, std::string_view plain) : m_collector(file), m_plain(plain) {}

    bool null() override { return Scalar(nullptr); }
    bool boolean(bool) override { return Scalar(nullptr); }
    bool number_integer(number_integer_t) override { return Scalar(nullptr); }
    bool number_unsigned(number_unsigned_t) override { return Scalar(nullptr); }
    bool number_float(number_float_t, const string_t&) override { return Scalar(nullptr); }
    bool string(string_t& text) override { return Scalar(&text); }
    bool binary(binary_t&) override { return Scalar(nullptr); }
    bool key(string_t& name) override
    {
        m_key = std::move(name);
        return true;
    }
    bool start_object(size_t) override;
    bool end_object() override;
    bool start_array(size_t) override;
    bool end_array() override;
    bool parse_error(size_t position, const std::string&, const nlohmann::detail::exception& fault) override
    {
        const size_t line = 1 + static_cast<size_t>(std::ranges::count(m_plain.substr(0, position), '\n'));
        m_error = {line, Format(u"is no JSON: %1", Cited(Detail(fault.what()), 200))};
        return false;
    }

    bool Finish(bool isParsed, SchemeImport& out, ImportFault& error)
    {
        if (!isParsed && m_error) {
            error = *m_error;
            return false;
        }
        return m_collector.Finish(out, error, u"has no colour schemes");
    }

private:
    bool IsInScheme() const { return m_depth > 0 && m_depth == m_schemeDepth; }
    bool IsInList() const { return m_depth > 0 && m_depth == m_listDepth; }
    bool Scalar(std::string* text);
    /// A container or scalar begins as an element of the list or as a member of the scheme.
    void SetMember(std::string* text);
    void BeginScheme();
    bool EndScheme();
    /// "schemes[2].red"; without a member the scheme itself.
    VUnicodeString Place(std::string_view member = {}) const;

    SchemeCollector m_collector;
    std::string_view m_plain;
    std::optional<ImportFault> m_error;
    std::string m_key;
    SchemeMembers m_members;
    size_t m_depth = 0;       // containers that are open
    size_t m_schemeDepth = 0; // of the members of the scheme at hand; 0 for none
    size_t m_listDepth = 0;   // of the elements of the list, 1 for the root and 2 for "schemes"; 0 for none
    size_t m_element = 0;     // of the list, from 1
    bool m_isSettings = false;
};

bool SchemeHandler::Scalar(std::string* text)
{
    if (IsInList()) {
        ++m_element;
        m_collector.Reject(0, Format(u"%1 is no object", Place()));
    }
    if (IsInScheme())
        SetMember(text);
    if (m_depth == 0)
        m_collector.Reject(0, u"is neither an object nor a list");
    return true;
}

void SchemeHandler::SetMember(std::string* text)
{
    if (m_depth == 1 && m_key == "schemes")
        m_collector.Reject(0, u"'schemes' is no list");
    const auto* const member = std::ranges::find(kMembers, m_key);
    if (member == std::end(kMembers))
        return;
    std::string& value = m_members[static_cast<size_t>(member - kMembers)];
    if (text)
        value = std::move(*text);
    else
        value = "(no text)";
}

bool SchemeHandler::start_object(size_t)
{
    const bool isElement = IsInList();
    if (isElement)
        ++m_element;
    else if (IsInScheme())
        SetMember(nullptr);
    ++m_depth;
    if (isElement || m_depth == 1)
        BeginScheme();
    return true;
}

bool SchemeHandler::end_object()
{
    const bool isScheme = IsInScheme() && !(m_depth == 1 && m_isSettings);
    --m_depth;
    return !isScheme || EndScheme();
}

bool SchemeHandler::start_array(size_t)
{
    const bool isSchemes = m_depth == 1 && m_schemeDepth == 1 && m_key == "schemes";
    if (isSchemes) {
        m_collector.Restart(); // of two lists the last counts
        m_isSettings = true;
    } else if (m_depth > 0) {
        Scalar(nullptr);
    }
    ++m_depth;
    if (isSchemes || m_depth == 1) {
        m_listDepth = m_depth;
        m_element = 0;
    }
    return true;
}

bool SchemeHandler::end_array()
{
    if (IsInList())
        m_listDepth = 0;
    --m_depth;
    return true;
}

void SchemeHandler::BeginScheme()
{
    m_members = {};
    m_schemeDepth = m_depth;
}

bool SchemeHandler::EndScheme()
{
    SchemeColors colors;
    for (size_t i = kForeground; i < m_members.size(); ++i) {
        uint32_t color = 0;
        if (m_members[i].empty())
            continue;
        if (ReadWebColor(m_members[i], color)) {
            (i == kForeground   ? colors.foreground
             : i == kBackground ? colors.background
                                : colors.ansi[i - kFirstAnsi]) = color;
            continue;
        }
        const VUnicodeString text = Format(u"%1 is '%2', which is no colour", Place(kMembers[i]), Cited(m_members[i]));
        if (i < kFirstAnsi)
            m_collector.Reject(0, text);
        else
            m_collector.Note(0, text);
    }
    m_schemeDepth = m_isSettings ? 1 : 0;
    return m_collector.Add(DecodeNarrow(m_members[kName]), colors, 0);
}

VUnicodeString SchemeHandler::Place(std::string_view member) const
{
    std::string place = m_isSettings ? "schemes" : "";
    if (m_element > 0)
        place += "[" + std::to_string(m_element - 1) + "]";
    if (!place.empty() && !member.empty())
        place += ".";
    return DecodeNarrow(place.append(member));
}

} // namespace

bool ReadWindowsTerminalSchemes(const SchemeFile& file, SchemeImport& out, ImportFault& error)
{
    if (!FitsImport(file.bytes, error))
        return false;
    const std::string_view bytes = file.bytes;
    const std::string plain = PlainJson(bytes.substr(bytes.starts_with(kUtf8Mark) ? kUtf8Mark.size() : 0));
    SchemeHandler handler(file, plain);
    const bool isParsed = Json::sax_parse(plain.begin(), plain.end(), &handler);
    return handler.Finish(isParsed, out, error);
}

} // namespace ostrand
