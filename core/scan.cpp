#include "core/scan.h"

#include "core/fold.h"

#include <algorithm>

namespace ostrand {

namespace {

// What the C library calls white space in every locale.
constexpr std::u16string_view kWhite = u" \t\n\v\f\r";

/// 16 for what is no hexadecimal digit.
uint32_t DigitOf(char16_t c)
{
    if (c >= u'0' && c <= u'9')
        return static_cast<uint32_t>(c - u'0');
    if ((c >= u'a' && c <= u'f') || (c >= u'A' && c <= u'F'))
        return static_cast<uint32_t>((c & 0x0F) + 9);
    return 16;
}

} // namespace

void VScanner::SkipBlanks() { m_rest.remove_prefix(std::min(m_rest.find_first_not_of(kWhite), m_rest.size())); }

bool VScanner::Number(uint32_t base, uint32_t& out)
{
    SkipBlanks();
    const bool negative = m_rest.starts_with(u'-');
    size_t at = negative || m_rest.starts_with(u'+') ? 1 : 0;
    if (base == 16 && m_rest.size() - at > 2 && m_rest[at] == u'0' && FoldCase(m_rest[at + 1]) == u'x' &&
        DigitOf(m_rest[at + 2]) < base)
        at += 2;
    if (at == m_rest.size() || DigitOf(m_rest[at]) >= base)
        return false;
    uint32_t value = 0;
    for (; at < m_rest.size() && DigitOf(m_rest[at]) < base; ++at)
        value = value * base + DigitOf(m_rest[at]);
    out = negative ? 0u - value : value;
    m_rest.remove_prefix(at);
    return true;
}

bool VScanner::UnsignedLong(uint32_t& out) { return Number(10, out); }

bool VScanner::Hex(uint32_t& out) { return Number(16, out); }

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
