#include "tests/vectors/json_text.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <optional>
#include <stdexcept>
#include <string_view>

namespace ostrand::vectors {

namespace {

// A lone surrogate travels through the JSON library as the character this far above it, at the end of the last plane,
// where no text has any.
constexpr uint32_t kSurrogatesAbove = 0x100000;

bool IsHigh(uint32_t unit) { return unit >= 0xD800 && unit <= 0xDBFF; }
bool IsLow(uint32_t unit) { return unit >= 0xDC00 && unit <= 0xDFFF; }

std::u16string PairFor(uint32_t loneSurrogate)
{
    const uint32_t offset = kSurrogatesAbove + loneSurrogate - 0x10000;
    return {static_cast<char16_t>(0xD800 + (offset >> 10)), static_cast<char16_t>(0xDC00 + (offset & 0x3FF))};
}

/// The unit of a "\uXXXX" at this place.
std::optional<uint32_t> EscapeAt(std::string_view json, size_t at)
{
    if (at + 6 > json.size() || json[at] != '\\' || json[at + 1] != 'u')
        return std::nullopt;
    return static_cast<uint32_t>(std::stoul(std::string(json.substr(at + 2, 4)), nullptr, 16));
}

void AppendUtf8(std::string& out, std::u16string_view text)
{
    std::string bytes;
    ToUtf8(text, bytes);
    out += bytes;
}

/// The document with each escaped lone surrogate as its stand-in.
std::string WithoutLoneSurrogates(std::string_view json)
{
    std::string out;
    for (size_t i = 0; i < json.size();) {
        const size_t length = json[i] != '\\' ? 1 : i + 1 < json.size() && json[i + 1] == 'u' ? 6 : 2;
        const auto unit = EscapeAt(json, i);
        const bool isPair = unit && IsHigh(*unit) && IsLow(EscapeAt(json, i + 6).value_or(0));
        if (unit && (IsHigh(*unit) || IsLow(*unit)) && !isPair)
            AppendUtf8(out, PairFor(*unit));
        else
            out += json.substr(i, isPair ? 2 * length : length);
        i += isPair ? 2 * length : length;
    }
    return out;
}

bool IsPiece(const Json& value)
{
    return value.is_object() && value.size() == 2 && value.contains("times") &&
           (value.contains("text") || value.contains("hex"));
}

std::string JoinPieces(const Json& pieces)
{
    std::string joined;
    for (const Json& piece : pieces) {
        const std::string text = piece.value("text", piece.value("hex", ""));
        for (unsigned times = piece.at("times"); times > 0; --times)
            joined += text;
    }
    return joined;
}

void ExpandPieces(Json& value)
{
    if (value.is_array() && !value.empty() && std::all_of(value.begin(), value.end(), IsPiece)) {
        value = JoinPieces(value);
        return;
    }
    if (value.is_structured())
        for (Json& element : value)
            ExpandPieces(element);
}

int HexDigit(char c)
{
    const size_t at = std::string_view("0123456789abcdef").find(c);
    if (at == std::string_view::npos)
        throw std::runtime_error("not a hexadecimal digit");
    return static_cast<int>(at);
}

} // namespace

Json ReadDocument(const std::string& path)
{
    std::ifstream in(path, std::ios::binary);
    const std::string bytes{std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
    if (!in)
        throw std::runtime_error("can't be read");
    Json document = Json::parse(WithoutLoneSurrogates(bytes));
    ExpandPieces(document);
    return document;
}

VUnicodeString ToText(const Json& text)
{
    VUnicodeString decoded;
    if (!FromUtf8(text.get_ref<const std::string&>(), decoded))
        throw std::runtime_error("not UTF-8");
    std::u16string out;
    const std::u16string_view units = decoded;
    for (size_t i = 0; i < units.size(); ++i) {
        const bool isPair = IsHigh(units[i]) && i + 1 < units.size();
        const uint32_t point = isPair ? 0x10000u + ((units[i] - 0xD800u) << 10) + (units[i + 1] - 0xDC00u) : 0;
        if (point >= kSurrogatesAbove + 0xD800 && point <= kSurrogatesAbove + 0xDFFF) {
            out += static_cast<char16_t>(point - kSurrogatesAbove);
            ++i;
        } else {
            out += units[i];
        }
    }
    return VUnicodeString(out);
}

Json FromText(std::u16string_view text)
{
    std::u16string whole;
    for (size_t i = 0; i < text.size(); ++i) {
        const bool isPair = IsHigh(text[i]) && i + 1 < text.size() && IsLow(text[i + 1]);
        if (isPair)
            whole += text[i++];
        else if (IsHigh(text[i]) || IsLow(text[i])) {
            whole += PairFor(text[i]);
            continue;
        }
        whole += text[i];
    }
    std::string bytes;
    ToUtf8(whole, bytes);
    return bytes;
}

VStringArray ToList(const Json& list)
{
    VStringArray out;
    for (const Json& element : list)
        out.Append(ToText(element));
    return out;
}

Json FromList(const VStringArray& list)
{
    Json out = Json::array();
    for (const VUnicodeString& element : list)
        out.push_back(FromText(element));
    return out;
}

std::vector<uint8_t> ToBytes(const Json& hex)
{
    const auto& digits = hex.get_ref<const std::string&>();
    if (digits.size() % 2 != 0)
        throw std::runtime_error("an odd number of hexadecimal digits");
    std::vector<uint8_t> bytes;
    for (size_t i = 0; i < digits.size(); i += 2)
        bytes.push_back(static_cast<uint8_t>(16 * HexDigit(digits[i]) + HexDigit(digits[i + 1])));
    return bytes;
}

Json FromBytes(std::span<const uint8_t> bytes)
{
    std::string digits;
    for (const uint8_t byte : bytes) {
        digits += "0123456789abcdef"[byte >> 4];
        digits += "0123456789abcdef"[byte & 15];
    }
    return digits;
}

uint32_t ToNumber(const Json& number)
{
    return static_cast<uint32_t>(number.is_number_unsigned() ? number.get<uint64_t>()
                                                             : static_cast<uint64_t>(number.get<int64_t>()));
}

bool Meets(const Json& expected, const Json& got)
{
    if (expected.is_object() && got.is_object())
        return std::all_of(expected.items().begin(), expected.items().end(), [&got](const auto& fact) {
            const auto told = got.find(fact.key());
            return told != got.end() && (fact.key() == "store" ? fact.value() == *told : Meets(fact.value(), *told));
        });
    if (expected.is_array() && got.is_array())
        return std::equal(expected.begin(), expected.end(), got.begin(), got.end(), Meets);
    return expected == got;
}

void Unknown(const char* what, const std::string& name)
{
    throw std::runtime_error(std::string("unknown ") + what + " '" + name + "'");
}

} // namespace ostrand::vectors
