#include "core/scan.h"

#include <algorithm>

namespace ostrand {

namespace {

// What the C library calls white space in every locale.
constexpr std::u16string_view kWhite = u" \t\n\v\f\r";

bool IsDigit(char16_t c) { return c >= u'0' && c <= u'9'; }

} // namespace

void VScanner::SkipBlanks() { m_rest.remove_prefix(std::min(m_rest.find_first_not_of(kWhite), m_rest.size())); }

bool VScanner::UnsignedLong(uint32_t& out)
{
    SkipBlanks();
    const bool negative = m_rest.starts_with(u'-');
    size_t at = negative || m_rest.starts_with(u'+') ? 1 : 0;
    if (at == m_rest.size() || !IsDigit(m_rest[at]))
        return false;
    uint32_t value = 0;
    for (; at < m_rest.size() && IsDigit(m_rest[at]); ++at)
        value = value * 10 + static_cast<uint32_t>(m_rest[at] - u'0');
    out = negative ? 0u - value : value;
    m_rest.remove_prefix(at);
    return true;
}

bool VScanner::Int(int& out)
{
    uint32_t value = 0;
    if (!UnsignedLong(value))
        return false;
    out = static_cast<int>(value);
    return true;
}

bool VScanner::Literal(char16_t c)
{
    if (!m_rest.starts_with(c))
        return false;
    m_rest.remove_prefix(1);
    return true;
}

bool VScanner::Word(std::u16string_view& out)
{
    SkipBlanks();
    if (m_rest.empty())
        return false;
    out = m_rest.substr(0, m_rest.find_first_of(kWhite));
    m_rest.remove_prefix(out.size());
    return true;
}

} // namespace ostrand
