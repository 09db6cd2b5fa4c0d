#include "stores/asked_name.h"

#include "core/fold.h"

#include <algorithm>
#include <string>

namespace ostrand {

namespace {

bool EqualAsciiNoCase(const char* a, const char* b, size_t size)
{
    for (; size >= 8; a += 8, b += 8, size -= 8)
        if (FoldAscii(LoadWord(a)) != FoldAscii(LoadWord(b)))
            return false;
    return size == 0 || FoldAscii(LoadTail(a, size)) == FoldAscii(LoadTail(b, size));
}

} // namespace

AskedName::AskedName(std::u16string_view name) : m_name(name)
{
    std::string large;
    char* ascii = m_ascii;
    if (name.size() > kShort) {
        large.resize(name.size());
        ascii = large.data();
    }
    char16_t all = 0;
    for (size_t i = 0; i < name.size(); ++i) {
        all = static_cast<char16_t>(all | name[i]);
        ascii[i] = static_cast<char>(name[i]);
    }
    m_isAscii = all < 0x80;
    m_hash = m_isAscii ? HashAsciiNoCase({ascii, name.size()}) : FinishHash(HashNoCase(name));
}

bool AskedName::IsPlain(std::string_view plain) const
{
    if (plain.size() != m_name.size())
        return false;
    if (m_isAscii && plain.size() <= kShort)
        return EqualAsciiNoCase(plain.data(), m_ascii, plain.size());
    return std::equal(plain.begin(), plain.end(), m_name.begin(),
                      [](char a, char16_t b) { return FoldCase(static_cast<unsigned char>(a)) == FoldCase(b); });
}

} // namespace ostrand
