#include "imports/ssh_config_lines.h"

#include "imports/import_text.h"

#include <algorithm>

namespace ostrand {

namespace {

constexpr std::string_view kBlanks = " \t\f\v\r";

bool IsBlank(char c) { return kBlanks.find(c) != std::string_view::npos; }

void SkipBlanks(std::string_view& text) { text.remove_prefix(std::min(text.find_first_not_of(kBlanks), text.size())); }

/// One value from the front of `text`, which isn't empty. False where a quote stays open.
bool TakeValue(std::string_view& text, std::string& value)
{
    char quote = 0;
    size_t at = 0;
    for (; at < text.size() && (quote != 0 || !IsBlank(text[at])); ++at) {
        const char c = text[at];
        const char next = at + 1 < text.size() ? text[at + 1] : '\0';
        if (c == '\\' && (next == '\\' || next == '"' || next == '\'' || (next == ' ' && quote == 0)))
            value += text[++at];
        else if (quote == 0 && (c == '"' || c == '\''))
            quote = c;
        else if (c == quote)
            quote = 0;
        else
            value += c;
    }
    text.remove_prefix(at);
    return quote == 0;
}

} // namespace

bool SshConfigReader::Next(SshConfigLine& line)
{
    while (!m_rest.empty()) {
        const std::string_view text = TakeLine();
        ++m_line;
        if (!text.empty() && text[0] != '#' && Parse(text, line))
            return true;
    }
    return false;
}

std::string_view SshConfigReader::TakeLine()
{
    const std::string_view line = m_rest.substr(0, m_rest.find('\n'));
    m_rest.remove_prefix(std::min(line.size() + 1, m_rest.size()));
    return Trim(line);
}

bool SshConfigReader::Fail(const char16_t* why)
{
    m_notes.Note(m_line, why);
    return false;
}

bool SshConfigReader::Parse(std::string_view text, SshConfigLine& line)
{
    if (text.find('\0') != std::string_view::npos)
        return Fail(u"holds a zero byte");
    line.number = m_line;
    line.keyword = text.substr(0, text.find_first_of(" \t\f\v\r=\""));
    line.values.clear();
    text.remove_prefix(line.keyword.size());
    SkipBlanks(text);
    if (text.starts_with('='))
        text.remove_prefix(1);
    for (SkipBlanks(text); !text.empty() && text[0] != '#'; SkipBlanks(text))
        if (!TakeValue(text, line.values.emplace_back()))
            return Fail(u"has a quote without its end");
        else if (line.values.back().size() > kLongestValue)
            return Fail(u"has a value that is longer than any name");
    if (line.keyword.empty())
        return Fail(u"has no keyword");
    return !line.values.empty() || Fail(u"has no value behind its keyword");
}

} // namespace ostrand
