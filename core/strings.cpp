#include "core/strings.h"

#include "core/fold.h"
#include "core/messages.h"
#include "core/zero.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <new>

namespace ostrand {

namespace {

constexpr std::u16string_view kBlanks = u" \t\r\n";

} // namespace

const char* VPlatformException::what() const noexcept
{
    return code == kStringIndexOutOfRange ? "VUnicodeString: index out of range" : "OstrandUI: platform exception";
}

struct VUnicodeString::EmptyBlock {
    Header header{0, 0, text, 0, -1};
    char16_t text[1] = {};
};

char16_t* VUnicodeString::EmptyText() noexcept
{
    static constinit EmptyBlock block;
    return block.text;
}

char16_t* VUnicodeString::Allocate(size_t length, size_t capacity)
{
    if (capacity > std::numeric_limits<uint32_t>::max() / sizeof(char16_t) - 1)
        throw std::bad_alloc();
    void* const block = ::operator new(sizeof(Header) + (capacity + 1) * sizeof(char16_t));
    Header* const header = ::new (block)
        Header{static_cast<uint32_t>(capacity * sizeof(char16_t)), static_cast<uint32_t>(length * sizeof(char16_t)),
               reinterpret_cast<char16_t*>(static_cast<char*>(block) + sizeof(Header)), 0, 1};
    header->data[length] = 0;
    return header->data;
}

void VUnicodeString::ReleaseCounted(char16_t* text) noexcept
{
    Header* const header = HeaderOf(text);
    if (header->references.fetch_sub(1, std::memory_order_acq_rel) != 1)
        return;
    const size_t room = sizeof(Header) + header->capacity + sizeof(char16_t);
    if (header->sensitive)
        ZeroForGood(header, room);
    ::operator delete(static_cast<void*>(header));
}

VUnicodeString::VUnicodeString(std::u16string_view text) : m_text(EmptyText())
{
    if (text.empty())
        return;
    m_text = Allocate(text.size(), text.size());
    std::copy(text.begin(), text.end(), m_text);
}

VUnicodeString::VUnicodeString(const char16_t* text)
    : VUnicodeString(text ? std::u16string_view(text) : std::u16string_view())
{
}

VUnicodeString VUnicodeString::Immortal(std::u16string_view text)
{
    VUnicodeString s(text);
    if (!s.IsEmpty())
        HeaderOf(s.m_text)->references.store(-1, std::memory_order_relaxed);
    return s;
}

VUnicodeString VUnicodeString::WithLength(size_t length, char16_t*& characters)
{
    VUnicodeString s;
    if (length > 0)
        s.m_text = Allocate(length, length);
    characters = s.m_text;
    return s;
}

VUnicodeString& VUnicodeString::operator=(const VUnicodeString& other) noexcept
{
    VUnicodeString copy(other);
    std::swap(m_text, copy.m_text);
    return *this;
}

VUnicodeString& VUnicodeString::operator=(VUnicodeString&& other) noexcept
{
    std::swap(m_text, other.m_text);
    return *this;
}

VUnicodeString& VUnicodeString::operator=(std::u16string_view text)
{
    const bool sensitive = IsSensitive();
    VUnicodeString fresh(text);
    if (sensitive)
        fresh.MarkSensitive();
    std::swap(m_text, fresh.m_text);
    return *this;
}

VUnicodeString& VUnicodeString::operator=(const char16_t* text)
{
    return *this = (text ? std::u16string_view(text) : std::u16string_view());
}

char16_t VUnicodeString::operator[](size_t index) const
{
    if (index >= GetLength())
        throw VPlatformException(kStringIndexOutOfRange);
    return m_text[index];
}

void VUnicodeString::SetAt(size_t index, char16_t c)
{
    if (index >= GetLength())
        throw VPlatformException(kStringIndexOutOfRange);
    MakePrivate(GetLength());
    m_text[index] = c;
}

void VUnicodeString::MakePrivate(size_t length)
{
    Header* const header = HeaderOf(m_text);
    if (header->references.load(std::memory_order_acquire) == 1 && header->capacity >= length * sizeof(char16_t))
        return;
    const size_t used = GetLength();
    const size_t room = length <= used ? used : std::max(length, used + used / 2);
    char16_t* const fresh = Allocate(used, room);
    std::copy_n(m_text, used, fresh);
    HeaderOf(fresh)->sensitive = header->sensitive;
    Drop(m_text);
    m_text = fresh;
}

void VUnicodeString::Append(std::u16string_view text)
{
    if (text.empty())
        return;
    const size_t before = GetLength();
    const bool fromMyself = text.data() >= m_text && text.data() <= m_text + before;
    const VUnicodeString keep = fromMyself ? *this : VUnicodeString();
    MakePrivate(before + text.size());
    std::copy(text.begin(), text.end(), m_text + before);
    HeaderOf(m_text)->length = static_cast<uint32_t>((before + text.size()) * sizeof(char16_t));
    m_text[before + text.size()] = 0;
}

VUnicodeString VUnicodeString::Part(std::u16string_view part) const
{
    VUnicodeString s(part);
    if (IsSensitive())
        s.MarkSensitive();
    return s;
}

VUnicodeString VUnicodeString::Right(size_t count) const
{
    const size_t length = GetLength();
    return Part(View().substr(length - std::min(count, length)));
}

VUnicodeString VUnicodeString::Mid(size_t first, size_t count) const
{
    return Part(View().substr(std::min(first, GetLength()), count));
}

VUnicodeString VUnicodeString::Trimmed() const
{
    const std::u16string_view text = *this;
    const size_t first = text.find_first_not_of(kBlanks);
    if (first == std::u16string_view::npos)
        return {};
    return Part(text.substr(first, text.find_last_not_of(kBlanks) - first + 1));
}

int VUnicodeString::Compare(std::u16string_view other) const
{
    const std::u16string_view mine = *this;
    const size_t common = std::min(mine.size(), other.size());
    for (size_t i = 0; i < common; ++i) {
        if (mine[i] != other[i])
            return mine[i] < other[i] ? -1 : 1;
        if (mine[i] == 0)
            break;
    }
    return mine.size() == other.size() ? 0 : mine.size() < other.size() ? -1 : 1;
}

int VUnicodeString::CompareNoCase(std::u16string_view other) const { return ostrand::CompareNoCase(*this, other); }

void VUnicodeString::MarkSensitive()
{
    if (IsSensitive())
        return;
    const size_t length = GetLength();
    if (HeaderOf(m_text)->references.load(std::memory_order_acquire) != 1) {
        char16_t* const fresh = Allocate(length, length);
        std::copy_n(m_text, length, fresh);
        Drop(m_text);
        m_text = fresh;
    }
    HeaderOf(m_text)->sensitive = 1;
}

} // namespace ostrand
