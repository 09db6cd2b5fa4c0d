#include "imports/x_defines.h"

#include "imports/import_text.h"

#include <algorithm>
#include <charconv>
#include <vector>

namespace ostrand {

namespace {

bool IsNameCharacter(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_';
}

/// "a, b, a": the names from the one that comes again.
VUnicodeString CycleText(const std::vector<std::string_view>& names, std::string_view again)
{
    VUnicodeString text;
    for (auto name = std::ranges::find(names, again); name != names.end(); ++name) {
        text += Cited(*name);
        text += u", ";
    }
    text += Cited(again);
    return text;
}

/// Reads one condition from its start to its end.
class Condition {
public:
    Condition(std::string_view text, const XDefines& defines, size_t line, ImportFault& error)
        : m_rest(text),
          m_defines(defines),
          m_line(line),
          m_error(error)
    {
    }

    bool Evaluate(long& value) { return Any(value) && Trim(m_rest).empty(); }

private:
    static constexpr int kMaxDepth = 50;

    bool Take(std::string_view sign)
    {
        m_rest = Trim(m_rest);
        if (!m_rest.starts_with(sign))
            return false;
        m_rest.remove_prefix(sign.size());
        return true;
    }
    bool Any(long& value);
    bool All(long& value);
    bool Test(long& value);
    bool Operand(long& value);
    bool Defined(long& value);
    bool Named(std::string_view name, long& value);

    std::string_view m_rest;
    const XDefines& m_defines;
    size_t m_line;
    ImportFault& m_error;
    int m_depth = 0;
};

bool ReadNumber(std::string_view text, long& value)
{
    const bool isHex = text.starts_with("0x") || text.starts_with("0X");
    const char* const end = text.data() + text.size();
    const auto [behind, code] = std::from_chars(text.data() + (isHex ? 2 : 0), end, value, isHex ? 16 : 10);
    return code == std::errc() && behind == end;
}

bool Condition::Any(long& value)
{
    if (!All(value))
        return false;
    while (Take("||")) {
        long other = 0;
        if (!All(other))
            return false;
        value = value != 0 || other != 0;
    }
    return true;
}

bool Condition::All(long& value)
{
    if (!Test(value))
        return false;
    while (Take("&&")) {
        long other = 0;
        if (!Test(other))
            return false;
        value = value != 0 && other != 0;
    }
    return true;
}

bool Condition::Test(long& value)
{
    if (!Operand(value))
        return false;
    constexpr std::string_view kSigns[] = {"==", "!=", "<=", ">=", "<", ">"};
    const auto* const sign = std::ranges::find_if(kSigns, [this](std::string_view each) { return Take(each); });
    if (sign == std::end(kSigns))
        return true;
    long other = 0;
    if (!Operand(other))
        return false;
    const bool results[] = {value == other, value != other, value <= other, value >= other, value<other, value> other};
    value = results[sign - kSigns];
    return true;
}

bool Condition::Operand(long& value)
{
    if (++m_depth > kMaxDepth)
        return false;
    bool isGood = false;
    if (Take("!")) {
        isGood = Operand(value);
        value = value == 0;
    } else if (Take("(")) {
        isGood = Any(value) && Take(")");
    } else {
        m_rest = Trim(m_rest);
        const std::string_view name = TakeXName(m_rest);
        if (name == "defined")
            isGood = Defined(value);
        else
            isGood = !name.empty() && (ReadNumber(name, value) || Named(name, value));
    }
    --m_depth;
    return isGood;
}

bool Condition::Defined(long& value)
{
    const bool isBracketed = Take("(");
    m_rest = Trim(m_rest);
    const std::string_view name = TakeXName(m_rest);
    value = m_defines.IsDefined(name);
    return !name.empty() && (!isBracketed || Take(")"));
}

bool Condition::Named(std::string_view name, long& value)
{
    std::string_view meaning;
    if (name[0] <= '9' || !m_defines.Resolve(name, meaning, m_line, m_error))
        return false;
    if (meaning.empty())
        value = 1;
    else if (!ReadNumber(meaning, value))
        value = 0;
    return true;
}

} // namespace

void XDefines::Undefine(std::string_view name)
{
    if (const auto found = m_values.find(name); found != m_values.end())
        m_values.erase(found);
}

bool XDefines::Resolve(std::string_view text, std::string_view& value, size_t line, ImportFault& error) const
{
    std::vector<std::string_view> names;
    for (auto found = m_values.find(text); found != m_values.end(); found = m_values.find(text)) {
        if (std::ranges::find(names, text) != names.end())
            return FailImport(error, line, u"names are defined by each other: %1", CycleText(names, text));
        if (names.size() == kMaxChain)
            return FailImport(error, line, u"'%1' is defined through more than %2!u! other names", Cited(names.front()),
                              kMaxChain);
        names.push_back(found->first);
        text = found->second;
    }
    value = text;
    return true;
}

bool XDefines::Evaluate(std::string_view condition, bool& result, size_t line, ImportFault& error) const
{
    error = {};
    long value = 0;
    if (!Condition(condition, *this, line, error).Evaluate(value)) {
        if (error.line == 0) // a name's own fault is told already
            FailImport(error, line, u"'%1' is no condition that is known here", Cited(condition));
        return false;
    }
    result = value != 0;
    return true;
}

std::string_view TakeXName(std::string_view& text)
{
    const auto* const end = std::ranges::find_if_not(text, IsNameCharacter);
    const std::string_view name = text.substr(0, static_cast<size_t>(end - text.begin()));
    text.remove_prefix(name.size());
    return name;
}

} // namespace ostrand
