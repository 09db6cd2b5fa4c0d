#include "stores/file_render.h"

#include "core/utf8.h"

#include <algorithm>
#include <charconv>

namespace ostrand {

namespace {

constexpr char kHexDigits[] = "0123456789abcdef";

bool IsControl(char32_t c) { return c < 0x20 || c == 0x7F; }

bool IsSurrogate(char32_t c) { return IsHighSurrogate(c) || IsLowSurrogate(c); }

void PutCharacter(char32_t c, std::string& out)
{
    constexpr std::u32string_view kMeanings = U"\"\\\n\r\t";
    constexpr std::string_view kLetters = "\"\\nrt";
    if (const size_t i = kMeanings.find(c); i != std::u32string_view::npos) {
        out.push_back('\\');
        out.push_back(kLetters[i]);
    } else if (IsControl(c) || IsSurrogate(c)) {
        out += "\\u";
        for (int shift = 12; shift >= 0; shift -= 4)
            out.push_back(kHexDigits[c >> shift & 15]);
    } else {
        PutUtf8(c, out);
    }
}

void PutText(std::u16string_view value, std::string& out)
{
    out.push_back('"');
    for (size_t i = 0; i < value.size();)
        PutCharacter(TakeUtf16(value, i), out);
    out.push_back('"');
}

bool CanStandBare(std::u16string_view name)
{
    if (name.empty() || name.front() == u' ' || name.back() == u' ' ||
        std::u16string_view(u";#[\uFEFF").find(name.front()) != std::u16string_view::npos)
        return false;
    for (size_t i = 0; i < name.size();) {
        const char32_t c = TakeUtf16(name, i);
        if (c == U'=' || c == U'"' || IsControl(c) || IsSurrogate(c))
            return false;
    }
    return true;
}

constexpr uint64_t kListSeed = 2;

/// Whether a text in quotes is as RenderText writes it, told without decoding: nothing in it that would be escaped, and
/// no escape but the short ones. A text that only a long escape can spell is told apart by decoding.
bool IsCanonical(std::string_view quoted)
{
    const auto isSpecial = [](uint64_t word) {
        return TestEqual(word, '\\') | TestEqual(word, '\t') | TestEqual(word, 0x7F);
    };
    if (HasNone(quoted.data(), quoted.size(), isSpecial))
        return true;
    for (size_t i = 0; i < quoted.size(); ++i) {
        if (quoted[i] == '\t' || quoted[i] == 0x7F)
            return false;
        if (quoted[i] == '\\' && quoted[++i] == 'u')
            return false;
    }
    return true;
}

/// Hash of a rendered text at the front; answers its bytes.
size_t HashQuoted(std::string_view from, uint64_t& hash)
{
    if (const size_t plain = SizeOfPlain(from); plain > 0) {
        hash = HashBytes(from.substr(0, plain));
        return plain;
    }
    const size_t size = SizeOfQuoted(from);
    const std::string_view quoted = from.substr(0, size);
    if (IsCanonical(quoted)) {
        hash = HashBytes(quoted);
        return size;
    }
    VUnicodeString text;
    TakeQuoted(from, text);
    hash = HashBytes(RenderText(text));
    return size;
}

/// From its items alone: blanks between them don't count.
uint64_t HashList(std::string_view from)
{
    uint64_t hash = kListSeed;
    for (size_t i = 1; from[i] != ']';) {
        if (from[i] != '"') {
            ++i;
            continue;
        }
        uint64_t item = 0;
        i += HashQuoted(from.substr(i), item);
        hash = MixHash(hash, item);
    }
    return FinishHash(hash);
}

/// Of a block, in either case of its digits, or of a value of another kind.
uint64_t HashBlock(std::string_view value)
{
    return value.starts_with("hex:") ? HashAsciiNoCase(value) : HashBytes(value);
}

} // namespace

std::string RenderName(std::u16string_view name)
{
    std::string out;
    if (CanStandBare(name))
        ToUtf8(name, out);
    else
        PutText(name, out);
    return out;
}

std::string RenderDword(unsigned value)
{
    char digits[10];
    return {digits, std::to_chars(digits, std::end(digits), value).ptr};
}

std::string RenderText(std::u16string_view value)
{
    std::string out;
    out.reserve(value.size() + 2);
    PutText(value, out);
    return out;
}

std::string RenderList(const VStringArray& value)
{
    std::string out = "[";
    for (const VUnicodeString& text : value) {
        if (out.size() > 1)
            out += ", ";
        PutText(text, out);
    }
    return out += ']';
}

std::string RenderBlock(const void* data, size_t size)
{
    std::string out = "hex:";
    out.reserve(out.size() + size * 2);
    const auto* const bytes = static_cast<const unsigned char*>(data);
    for (size_t i = 0; i < size; ++i) {
        out.push_back(kHexDigits[bytes[i] >> 4]);
        out.push_back(kHexDigits[bytes[i] & 15]);
    }
    return out;
}

std::string Rerender(std::string_view from)
{
    unsigned number = 0;
    VUnicodeString text;
    VStringArray list;
    std::string_view digits;
    if (ParseDword(from, number) == ReadOutcome::Good)
        return RenderDword(number);
    if (ParseText(from, text) == ReadOutcome::Good)
        return RenderText(text);
    if (ParseList(from, list) == ReadOutcome::Good)
        return RenderList(list);
    if (ParseBlock(from, digits) == ReadOutcome::Good) {
        std::string bytes(digits.size() / 2, '\0');
        DecodeBlock(digits, bytes.data());
        return RenderBlock(bytes.data(), bytes.size());
    }
    return {};
}

bool SameValue(std::string_view from, std::string_view rendered)
{
    const std::string_view there = ValueText(from);
    // Equal bytes are the rule, and need no parsing.
    return there == rendered || (!there.empty() && Rerender(there) == rendered);
}

uint64_t HashAnyValue(std::string_view from)
{
    uint64_t hash = 0;
    if (unsigned number = 0; from[0] >= '0' && from[0] <= '9' && ParseDword(from, number) == ReadOutcome::Good)
        return HashDword(number);
    if (from[0] == '"')
        HashQuoted(from, hash);
    else if (from[0] == '[')
        hash = HashList(from);
    else
        hash = HashBlock(ValueText(from));
    return hash | 2;
}

} // namespace ostrand
