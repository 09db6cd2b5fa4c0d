#include "profile/variant.h"

#include "core/fold.h"

#include <charconv>
#include <limits>
#include <optional>
#include <string>

namespace ostrand {

namespace {

constexpr std::u16string_view kBlanks = u" \t\r\n";

std::u16string_view WithoutBlanks(std::u16string_view text)
{
    const size_t first = text.find_first_not_of(kBlanks);
    if (first == text.npos)
        return {};
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

std::optional<int64_t> NumberIn(std::u16string_view text)
{
    text = WithoutBlanks(text);
    const bool negative = text.starts_with(u'-');
    if (negative || text.starts_with(u'+'))
        text.remove_prefix(1);
    int base = 10;
    if (text.starts_with(u"&H") || text.starts_with(u"&h")) {
        base = 16;
        text.remove_prefix(2);
    }
    std::string digits;
    for (const char16_t c : text)
        digits.push_back(c < 0x80 ? static_cast<char>(c) : '?');
    uint32_t magnitude = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), magnitude, base);
    if (error != std::errc() || end != digits.data() + digits.size())
        return std::nullopt;
    return negative ? -int64_t{magnitude} : int64_t{magnitude};
}

std::optional<bool> WordIn(std::u16string_view text)
{
    if (EqualNoCase(text, u"true") || EqualNoCase(text, u"#TRUE#"))
        return true;
    if (EqualNoCase(text, u"false") || EqualNoCase(text, u"#FALSE#"))
        return false;
    return std::nullopt;
}

/// Numbers of every kind as one that holds them all. `allBits` is what true is in the target: -1, or 2^32 - 1.
struct ToNumber {
    int64_t allBits;

    std::optional<int64_t> operator()(std::monostate) const { return 0; }
    std::optional<int64_t> operator()(int32_t value) const { return value; }
    std::optional<int64_t> operator()(VVariant::UnsignedInt number) const { return number.value; }
    std::optional<int64_t> operator()(VVariant::UnsignedLong number) const { return number.value; }
    std::optional<int64_t> operator()(bool value) const { return value ? allBits : 0; }
    std::optional<int64_t> operator()(const VUnicodeString& text) const { return NumberIn(text); }
    std::optional<int64_t> operator()(const VVariantArray&) const { return std::nullopt; }
    std::optional<int64_t> operator()(VVariantReference) const { return std::nullopt; }
};

/// The value itself, or what it refers to; an empty reference has no value.
const VVariant* Target(const VVariant& in)
{
    const auto* reference = std::get_if<VVariantReference>(&in.data);
    return reference ? reference->target : &in;
}

template <class N>
bool ConvertNumber(const VVariant& in, N& out)
{
    using Limits = std::numeric_limits<N>;
    const VVariant* const from = Target(in);
    const auto number =
        from ? std::visit(ToNumber{Limits::is_signed ? -1 : int64_t{Limits::max()}}, from->data) : std::nullopt;
    if (!number || *number < Limits::min() || *number > Limits::max())
        return false;
    out = static_cast<N>(*number);
    return true;
}

} // namespace

bool ConvertVariant(const VVariant& in, uint32_t& out) { return ConvertNumber(in, out); }

bool ConvertVariant(const VVariant& in, int32_t& out) { return ConvertNumber(in, out); }

bool ConvertVariant(const VVariant& in, bool& out)
{
    const VVariant* const from = Target(in);
    if (!from)
        return false;
    if (const auto* text = std::get_if<VUnicodeString>(&from->data)) {
        if (const auto word = WordIn(*text)) {
            out = *word;
            return true;
        }
    }
    const auto number = std::visit(ToNumber{-1}, from->data);
    if (!number)
        return false;
    out = *number != 0;
    return true;
}

bool ConvertVariant(const VVariant& in, VUnicodeString& out)
{
    const VVariant* const from = Target(in);
    if (!from)
        return false;
    if (const auto* text = std::get_if<VUnicodeString>(&from->data)) {
        out = *text;
        return true;
    }
    if (std::holds_alternative<std::monostate>(from->data)) {
        out.Clear();
        return true;
    }
    const auto number = std::visit(ToNumber{-1}, from->data);
    if (!number)
        return false;
    const std::string digits = std::to_string(*number);
    out = std::u16string_view(std::u16string(digits.begin(), digits.end()));
    return true;
}

} // namespace ostrand
