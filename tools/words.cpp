#include "tools/words.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <string>

namespace ostrand::tool {

namespace {

/// The whole word as one number in the form that `format` stands for: a base, or a format of reals.
template <class N, class Format>
std::optional<N> ReadWhole(std::string_view word, Format format)
{
    N number{};
    const char* const end = word.data() + word.size();
    const auto [at, error] = std::from_chars(word.data(), end, number, format);
    if (error != std::errc() || at != end)
        return std::nullopt;
    return number;
}

char Lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; }

} // namespace

std::optional<int64_t> ReadNumber(std::string_view word)
{
    const bool isNegative = word.starts_with('-');
    if (isNegative || word.starts_with('+'))
        word.remove_prefix(1);
    if (word.starts_with('-')) // from_chars would take a second sign
        return std::nullopt;
    const bool isHex = word.starts_with("0x") || word.starts_with("0X");
    if (isHex)
        word.remove_prefix(2);
    const auto number = ReadWhole<int64_t>(word, isHex ? 16 : 10);
    if (!number || *number < 0)
        return std::nullopt;
    return isNegative ? -*number : *number;
}

std::optional<double> ReadReal(std::string_view word)
{
    const auto number = ReadWhole<double>(word, std::chars_format::general);
    return number && std::isfinite(*number) ? number : std::nullopt;
}

std::optional<bool> ReadTruth(std::string_view word)
{
    std::string lower(word);
    std::transform(lower.begin(), lower.end(), lower.begin(), Lower);
    if (lower == "true" || lower == "1")
        return true;
    if (lower == "false" || lower == "0")
        return false;
    return std::nullopt;
}

std::optional<std::vector<uint8_t>> ReadBlock(std::string_view word)
{
    if (!word.starts_with(kBlockMark) || word.size() % 2 != kBlockMark.size() % 2)
        return std::nullopt;
    std::vector<uint8_t> bytes;
    for (size_t i = kBlockMark.size(); i < word.size(); i += 2) {
        const std::string_view pair = word.substr(i, 2);
        const auto byte = ReadWhole<unsigned>(pair, 16);
        if (!byte)
            return std::nullopt;
        bytes.push_back(static_cast<uint8_t>(*byte));
    }
    return bytes;
}

} // namespace ostrand::tool
