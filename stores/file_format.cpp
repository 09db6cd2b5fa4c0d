#include "stores/file_format.h"

#include "core/utf8.h"
#include "stores/name_index.h"

#include <algorithm>
#include <array>
#include <bit>
#include <limits>

namespace ostrand {

namespace {

constexpr std::string_view kBlock = "hex:";
constexpr uint8_t kNoDigit = 0xFF;

constexpr auto kHexDigits = [] {
    std::array<uint8_t, 256> table{};
    table.fill(kNoDigit);
    for (unsigned i = 0; i < 10; ++i)
        table['0' + i] = static_cast<uint8_t>(i);
    for (unsigned i = 0; i < 6; ++i)
        table['a' + i] = table['A' + i] = static_cast<uint8_t>(10 + i);
    return table;
}();

uint8_t HexDigit(char c) { return kHexDigits[static_cast<unsigned char>(c)]; }

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

bool IsBlank(char c) { return c == ' ' || c == '\t'; }

bool IsControl(char c) { return static_cast<unsigned char>(c) < 0x20 && c != '\t'; }

const char* SkipBlanks(const char* p, const char* end)
{
    while (p < end && IsBlank(*p))
        ++p;
    return p;
}

bool AtLineEnd(const char* p, const char* end)
{
    return p == end || *p == '\n' || (*p == '\r' && (end - p == 1 || p[1] == '\n'));
}

bool EndsLine(const char* p, const char* end) { return AtLineEnd(p, end) || AtLineEnd(SkipBlanks(p, end), end); }

template <unsigned Base>
bool TakeDigits(const char* p, const char* end, unsigned& out)
{
    uint64_t number = 0;
    const char* const first = p;
    for (; p < end; ++p) {
        const unsigned digit = Base == 10 ? static_cast<unsigned>(*p) - '0' : HexDigit(*p);
        if (digit >= Base)
            break;
        number = number * Base + digit;
        if (number > std::numeric_limits<uint32_t>::max())
            return false;
    }
    if (p == first || !EndsLine(p, end))
        return false;
    out = static_cast<unsigned>(number);
    return true;
}

bool TakeDword(std::string_view from, unsigned& out)
{
    if (TakeShortDword(from, out))
        return true;
    const char* const p = from.data();
    const char* const end = p + from.size();
    const bool isHex = from.size() > 2 && p[0] == '0' && (p[1] == 'x' || p[1] == 'X');
    return isHex ? TakeDigits<16>(p + 2, end, out) : TakeDigits<10>(p, end, out);
}

/// Eight units at a time, the last eight perhaps twice.
void Widen(const char* p, size_t size, char16_t* to)
{
    const auto widenEight = [](const char* from, char16_t* units) {
        for (size_t i = 0; i < 8; ++i)
            units[i] = static_cast<unsigned char>(from[i]);
    };
    if (size < 8) {
        for (size_t i = 0; i < size; ++i)
            to[i] = static_cast<unsigned char>(p[i]);
        return;
    }
    for (size_t i = 0; i + 8 < size; i += 8)
        widenEight(p + i, to + i);
    widenEight(p + size - 8, to + size - 8);
}

/// One escape behind its backslash; answers the place behind it, null for none that the grammar knows.
const char* TakeEscape(const char* p, const char* end, char16_t& unit)
{
    if (p == end)
        return nullptr;
    constexpr std::string_view kLetters = "\"\\nrt";
    constexpr std::u16string_view kMeanings = u"\"\\\n\r\t";
    if (const size_t i = kLetters.find(*p); i != std::string_view::npos) {
        unit = kMeanings[i];
        return p + 1;
    }
    if (*p != 'u' || end - p < 5)
        return nullptr;
    unsigned number = 0;
    for (int i = 1; i <= 4; ++i) {
        if (HexDigit(p[i]) == kNoDigit)
            return nullptr;
        number = number << 4 | HexDigit(p[i]);
    }
    unit = static_cast<char16_t>(number);
    return p + 5;
}

/// Units of the inside of a text. `to` has room for one unit each byte. Null where it is broken.
char16_t* DecodeInside(const char* p, const char* end, char16_t* to)
{
    while (p < end) {
        if (end - p >= 8) {
            const uint64_t specials = TestSpecial(LoadWord(p));
            const size_t plain = specials == 0 ? 8 : FirstOf(specials);
            Widen(p, 8, to);
            p += plain;
            to += plain;
            if (plain == 8)
                continue;
        }
        const auto c = static_cast<unsigned char>(*p);
        if (c == '\\') {
            p = TakeEscape(p + 1, end, *to++);
            if (!p)
                return nullptr;
        } else if (c < 0x80) {
            if (IsControl(*p++))
                return nullptr;
            *to++ = c;
        } else {
            char32_t character = 0;
            const unsigned taken = TakeUtf8({p, static_cast<size_t>(end - p)}, character);
            if (taken == 0)
                return nullptr;
            p += taken;
            to = PutUtf16(character, to);
        }
    }
    return to;
}

/// Calls `take` with the units; false where the inside is broken.
template <class Take>
bool WithDecoded(std::string_view inside, Take take)
{
    constexpr size_t kOrdinary = 256;
    char16_t ordinary[kOrdinary];
    std::u16string large;
    char16_t* first = ordinary;
    if (inside.size() > kOrdinary) {
        large.resize(inside.size());
        first = large.data();
    }
    const char16_t* const behind = DecodeInside(inside.data(), inside.data() + inside.size(), first);
    if (behind)
        take(std::u16string_view(first, static_cast<size_t>(behind - first)));
    return behind != nullptr;
}

VUnicodeString Widened(std::string_view plain)
{
    char16_t* characters = nullptr;
    VUnicodeString text = VUnicodeString::WithLength(plain.size(), characters);
    Widen(plain.data(), plain.size(), characters);
    return text;
}

std::string_view Inside(std::string_view quoted) { return quoted.substr(1, quoted.size() - 2); }

bool DecodeQuoted(std::string_view quoted, VUnicodeString& out)
{
    return WithDecoded(Inside(quoted), [&out](std::u16string_view text) { out = VUnicodeString(text); });
}

bool TakeText(std::string_view from, VUnicodeString& out)
{
    const char* const end = from.data() + from.size();
    if (const size_t size = SizeOfPlain(from); size > 0 && EndsLine(from.data() + size, end)) {
        out = Widened(Inside(from.substr(0, size)));
        return true;
    }
    const size_t size = SizeOfQuoted(from);
    return size > 0 && EndsLine(from.data() + size, end) && DecodeQuoted(from.substr(0, size), out);
}

/// Whether the quotes hold a text that can be decoded. Answers its bytes, 0 where they don't.
size_t CheckQuoted(std::string_view from)
{
    if (const size_t size = SizeOfPlain(from); size > 0)
        return size;
    const size_t size = SizeOfQuoted(from);
    return size > 0 && WithDecoded(Inside(from.substr(0, size)), [](std::u16string_view) {}) ? size : 0;
}

/// Walks over a list; `take` answers the bytes of the text at the front of what it is given, 0 for none.
template <class Take>
bool WalkList(std::string_view from, Take take)
{
    const char* const end = from.data() + from.size();
    if (from.empty() || from[0] != '[')
        return false;
    const char* p = SkipBlanks(from.data() + 1, end);
    const bool isEmpty = p < end && *p == ']';
    while (!isEmpty) {
        const size_t taken = take(std::string_view(p, static_cast<size_t>(end - p)));
        if (taken == 0)
            return false;
        p = SkipBlanks(p + taken, end);
        if (p == end || *p != ',')
            break;
        p = SkipBlanks(p + 1, end);
    }
    return p < end && *p == ']' && EndsLine(p + 1, end);
}

bool TakeList(std::string_view from, VStringArray& out)
{
    VStringArray list(8);
    const auto take = [&list](std::string_view item) {
        VUnicodeString text;
        const size_t taken = TakeQuoted(item, text);
        if (taken > 0)
            list.Append(std::move(text));
        return taken;
    };
    if (!WalkList(from, take))
        return false;
    out = std::move(list);
    return true;
}

constexpr size_t kDigitStride = 16;

/// Whether all of kDigitStride bytes are hexadecimal digits. A loop of a constant count without branches, which
/// compilers turn into vector code.
bool AreHexDigits(const char* p)
{
    uint8_t others = 0;
    for (size_t i = 0; i < kDigitStride; ++i) {
        const auto c = static_cast<uint8_t>(p[i]);
        const uint8_t isDigit = static_cast<uint8_t>(c - '0') < 10 ? 0xFF : 0;
        const uint8_t isLetter = static_cast<uint8_t>((c | 0x20) - 'a') < 6 ? 0xFF : 0;
        others = static_cast<uint8_t>(others | ~(isDigit | isLetter));
    }
    return others == 0;
}

bool TakeBlock(std::string_view from, std::string_view& digits)
{
    if (!from.starts_with(kBlock))
        return false;
    const char* const end = from.data() + from.size();
    const char* const first = from.data() + kBlock.size();
    const char* p = first;
    while (static_cast<size_t>(end - p) >= kDigitStride && AreHexDigits(p))
        p += kDigitStride;
    while (p < end && HexDigit(*p) != kNoDigit)
        ++p;
    const auto size = static_cast<size_t>(p - first);
    if (size % 2 != 0 || !EndsLine(p, end))
        return false;
    digits = {first, size};
    return true;
}

/// ASCII that stands for itself: no quote, no control.
bool IsPlainName(std::string_view name)
{
    return HasNone(name.data(), name.size(),
                   [](uint64_t word) { return TestNonAscii(word) | TestBelow(word, 0x20) | TestEqual(word, '"'); });
}

/// A value of a kind that only a later version knows.
bool IsOther(std::string_view from)
{
    const std::string_view value = ValueText(from);
    size_t tag = 0;
    while (tag < value.size() && (IsDigit(value[tag]) || ((value[tag] | 0x20) >= 'a' && (value[tag] | 0x20) <= 'z')))
        ++tag;
    if (tag == 0 || IsDigit(value[0]) || tag == value.size() || value[tag] != ':' || value.starts_with(kBlock))
        return false;
    VUnicodeString text;
    return std::none_of(value.begin(), value.end(), IsControl) && FromUtf8(value, text);
}

/// The outcome where a value isn't of the kind that was asked for.
ReadOutcome OtherOutcome(std::string_view from)
{
    return KindOfValue(from) ? ReadOutcome::OtherKind : ReadOutcome::Broken;
}

} // namespace

size_t TakeQuoted(std::string_view from, VUnicodeString& out)
{
    if (const size_t size = SizeOfPlain(from); size > 0) {
        out = Widened(Inside(from.substr(0, size)));
        return size;
    }
    const size_t size = SizeOfQuoted(from);
    return size > 0 && DecodeQuoted(from.substr(0, size), out) ? size : 0;
}

size_t SizeOfQuoted(std::string_view from)
{
    if (!from.starts_with('"'))
        return 0;
    const char* const end = from.data() + from.size();
    const char* p = from.data() + 1;
    while (p < end) {
        const auto* const quote = static_cast<const char*>(std::memchr(p, '"', static_cast<size_t>(end - p)));
        if (!quote)
            return 0;
        // An odd number of backslashes before it makes the quote a part of the text.
        const char* slash = quote;
        while (slash > p && slash[-1] == '\\')
            --slash;
        p = quote + 1;
        if ((quote - slash) % 2 == 0)
            return static_cast<size_t>(p - from.data());
    }
    return 0;
}

ReadOutcome ParseAnyDword(std::string_view from, unsigned& out)
{
    return TakeDword(from, out) ? ReadOutcome::Good : OtherOutcome(from);
}

ReadOutcome ParseText(std::string_view from, VUnicodeString& out)
{
    return TakeText(from, out) ? ReadOutcome::Good : OtherOutcome(from);
}

ReadOutcome ParseList(std::string_view from, VStringArray& out)
{
    return TakeList(from, out) ? ReadOutcome::Good : OtherOutcome(from);
}

ReadOutcome ParseBlock(std::string_view from, std::string_view& digits)
{
    return TakeBlock(from, digits) ? ReadOutcome::Good : OtherOutcome(from);
}

void DecodeBlock(std::string_view digits, void* bytes)
{
    auto* to = static_cast<unsigned char*>(bytes);
    if constexpr (std::endian::native == std::endian::little) {
        for (; digits.size() >= 8; digits.remove_prefix(8), to += 4) {
            // The low half of a letter is its value less 9. Halves become bytes, then the bytes move together.
            const uint64_t word = LoadWord(digits.data());
            const uint64_t halves = (word & 0x0F * kEachByte) + 9 * (word >> 6 & kEachByte);
            const uint64_t apart = (halves << 4 | halves >> 8) & 0x00FF00FF00FF00FF;
            const uint64_t pairs = (apart | apart >> 8) & 0x0000FFFF0000FFFF;
            const auto four = static_cast<uint32_t>(pairs | pairs >> 16);
            std::memcpy(to, &four, sizeof four);
        }
    }
    for (; !digits.empty(); digits.remove_prefix(2))
        *to++ = static_cast<unsigned char>(HexDigit(digits[0]) << 4 | HexDigit(digits[1]));
}

std::optional<VProfileValueType> KindOfValue(std::string_view from)
{
    unsigned number = 0;
    std::string_view digits;
    if (TakeDword(from, number))
        return VProfileValueType::Dword;
    if (const size_t size = CheckQuoted(from); size > 0 && EndsLine(from.data() + size, from.data() + from.size()))
        return VProfileValueType::String;
    if (TakeBlock(from, digits))
        return VProfileValueType::Binary;
    if (WalkList(from, CheckQuoted))
        return VProfileValueType::MultiSz;
    if (IsOther(from))
        return VProfileValueType::Other;
    return std::nullopt;
}

std::string_view ValueText(std::string_view from)
{
    std::string_view value = from.substr(0, from.find('\n'));
    if (value.ends_with('\r'))
        value.remove_suffix(1);
    while (!value.empty() && IsBlank(value.back()))
        value.remove_suffix(1);
    return value;
}

bool CutLine(std::string_view from, ValueParts& parts)
{
    const char* const end = from.data() + from.size();
    const char* const p = SkipBlanks(from.data(), end);
    if (p == end || *p == ';' || *p == '#' || *p == '[')
        return false;
    const char* equals = nullptr;
    const char* nameEnd = nullptr;
    if (*p == '"') {
        const size_t size = SizeOfQuoted({p, static_cast<size_t>(end - p)});
        if (size == 0)
            return false;
        nameEnd = p + size;
        equals = SkipBlanks(nameEnd, end);
        if (equals == end || *equals != '=')
            return false;
    } else {
        equals = static_cast<const char*>(std::memchr(p, '=', static_cast<size_t>(end - p)));
        if (!equals || equals == p)
            return false;
        for (nameEnd = equals; IsBlank(nameEnd[-1]);)
            --nameEnd;
    }
    const char* const value = SkipBlanks(equals + 1, end);
    parts.name = {p, static_cast<size_t>(nameEnd - p)};
    parts.value = {value, static_cast<size_t>(end - value)};
    return true;
}

LineName NameOfLine(std::string_view line)
{
    LineName name;
    ValueParts parts;
    if (!CutLine(line, parts))
        return name;
    name.isComplex = !IsPlainName(parts.name);
    if (!name.isComplex || DecodeName(parts.name, name.decoded))
        name.spelled = parts.name;
    return name;
}

bool DecodeName(std::string_view spelled, std::u16string& name)
{
    if (spelled.starts_with('"')) {
        return WithDecoded(Inside(spelled), [&name](std::u16string_view text) { name = text; });
    }
    VUnicodeString text;
    if (std::any_of(spelled.begin(), spelled.end(), IsControl) || spelled.find('"') != std::string_view::npos ||
        !FromUtf8(spelled, text))
        return false;
    name = text.View();
    return true;
}

} // namespace ostrand
