#include "imports/x_lines.h"

#include "imports/import_text.h"

namespace ostrand {

bool XLineReader::Fail(std::u16string_view format, std::string_view cited)
{
    m_hasFailed = true;
    return FailImport(m_error, m_line, format, Cited(cited));
}

bool XLineReader::TakeLine(std::string_view& line)
{
    if (m_rest.empty())
        return false;
    m_line = m_nextLine;
    m_joined.clear();
    bool goesOn = true;
    while (goesOn && !m_rest.empty()) {
        line = m_rest.substr(0, m_rest.find('\n'));
        m_rest.remove_prefix(std::min(line.size() + 1, m_rest.size()));
        ++m_nextLine;
        line.remove_suffix(line.ends_with('\r'));
        goesOn = line.ends_with('\\');
        line.remove_suffix(goesOn);
        if (goesOn || !m_joined.empty())
            m_joined += line;
    }
    if (!m_joined.empty())
        line = m_joined;
    return true;
}

bool XLineReader::CutComments(std::string_view& line)
{
    // Elsewhere "/*" is more often a part of a path than a comment.
    for (line = Trim(line); line.starts_with("/*"); line = Trim(line))
        if (!TakeComment(line))
            return false;
    size_t start = line.find("/*");
    if (start == std::string_view::npos || line.find("*/", start + 2) == std::string_view::npos)
        return true;
    m_cut.clear();
    for (; start != std::string_view::npos; start = line.find("/*")) {
        const size_t end = line.find("*/", start + 2);
        if (end == std::string_view::npos)
            break;
        m_cut.append(line, 0, start);
        line.remove_prefix(end + 2);
    }
    m_cut += line;
    line = Trim(m_cut);
    return true;
}

bool XLineReader::TakeComment(std::string_view& line)
{
    const size_t start = m_line;
    size_t from = 2;
    for (;;) {
        const size_t end = line.find("*/", from);
        if (end != std::string_view::npos) {
            line.remove_prefix(end + 2);
            return true;
        }
        from = 0;
        if (!TakeLine(line)) {
            m_line = start;
            return Fail(u"has a comment that isn't closed");
        }
    }
}

bool XLineReader::Next(XResource& resource)
{
    for (std::string_view line; TakeLine(line);) {
        if (!CutComments(line))
            return false;
        if (line.empty() || line[0] == '!')
            continue;
        if (line[0] == '#') {
            if (!Directive(Trim(line.substr(1))))
                return false;
            continue;
        }
        if (!IsActive())
            continue;
        const size_t colon = line.find(':');
        if (colon == std::string_view::npos) {
            m_notes.Note(m_line, Format(u"'%1' is no resource", Cited(line)));
            continue;
        }
        resource = {m_line, Trim(line.substr(0, colon)), Trim(line.substr(colon + 1))};
        return true;
    }
    if (m_groups.empty())
        return false;
    m_line = m_groups.back().line;
    return Fail(u"has an '#if' that isn't closed");
}

bool XLineReader::Directive(std::string_view line)
{
    std::string_view rest = line;
    const std::string_view word = TakeXName(rest);
    rest = Trim(rest);
    if (word == "if" || word == "ifdef" || word == "ifndef")
        return Open(word, rest);
    if (word == "elif" || word == "else" || word == "endif")
        return Branch(word, rest);
    if (!IsActive())
        return true;
    if (word == "define")
        return DefineName(rest);
    if (word == "undef")
        m_defines.Undefine(TakeXName(rest));
    else if (word == "include")
        m_notes.Note(m_line, Format(u"includes %1, which isn't read", Cited(rest)));
    else
        m_notes.Note(m_line, Format(u"'#%1' is no directive that is known here", Cited(line)));
    return true;
}

bool XLineReader::DefineName(std::string_view rest)
{
    const std::string_view name = TakeXName(rest);
    if (name.empty())
        return Fail(u"has a '#define' without a name");
    if (rest.starts_with('('))
        m_notes.Note(m_line, Format(u"'%1' is defined with arguments, and passed over", Cited(name)));
    else
        m_defines.Define(name, Trim(rest));
    return true;
}

bool XLineReader::Condition(std::string_view directive, std::string_view rest, bool& result)
{
    if (directive == "if" || directive == "elif") {
        m_hasFailed = !m_defines.Evaluate(rest, result, m_line, m_error);
        return !m_hasFailed;
    }
    const std::string_view name = TakeXName(rest);
    if (name.empty())
        return Fail(u"has an '#%1' without a name", directive);
    result = m_defines.IsDefined(name) == (directive == "ifdef");
    return true;
}

bool XLineReader::Open(std::string_view directive, std::string_view rest)
{
    Group group{m_line, IsActive(), false, false, false};
    // What doesn't count isn't looked at, as it may rest on names that aren't defined then.
    if (group.isOuter && !Condition(directive, rest, group.isActive))
        return false;
    group.hadActive = group.isActive;
    m_groups.push_back(group);
    return true;
}

bool XLineReader::Branch(std::string_view directive, std::string_view rest)
{
    if (m_groups.empty())
        return Fail(u"has an '#%1' without an '#if'", directive);
    if (directive == "endif") {
        m_groups.pop_back();
        return true;
    }
    Group& group = m_groups.back();
    if (group.hadElse)
        return Fail(u"has an '#%1' behind an '#else'", directive);
    group.hadElse = directive == "else";
    group.isActive = group.isOuter && !group.hadActive;
    if (group.isActive && !group.hadElse && !Condition(directive, rest, group.isActive))
        return false;
    group.hadActive = group.hadActive || group.isActive;
    return true;
}

} // namespace ostrand
