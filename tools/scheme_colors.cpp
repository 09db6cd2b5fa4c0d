#include "tools/scheme_colors.h"

#include "tools/text.h"

#include <algorithm>
#include <cstdio>
#include <optional>

namespace ostrand::tool {

namespace {

constexpr uint32_t Swapped(uint32_t color) { return (color & 0xFF) << 16 | (color & 0xFF00) | (color >> 16 & 0xFF); }

std::optional<uint32_t> ReadColor(const std::string& word)
{
    const bool isHex =
        word.size() == 7 && word[0] == '#' && word.find_first_not_of("0123456789abcdefABCDEF", 1) == std::string::npos;
    if (!isHex)
        return std::nullopt;
    return Swapped(static_cast<uint32_t>(std::stoul(word.substr(1), nullptr, 16)));
}

/// "bold-underline" for "Bold Underline".
std::string AttributeWord(size_t index)
{
    std::string word = Lossless(AttributeName(index));
    for (char& c : word)
        c = c == ' ' ? '-' : static_cast<char>(c | 0x20);
    return word;
}

} // namespace

std::string ColorText(uint32_t color)
{
    char text[8];
    std::snprintf(text, sizeof text, "#%06x", Swapped(color) & 0xFFFFFFu);
    return text;
}

Json ColorsToJson(const ColorScheme::Colors& colors)
{
    if (std::equal(colors.begin() + 1, colors.end(), colors.begin()))
        return ColorText(colors[0]);
    Json object = Json::object();
    for (size_t i = 0; i < colors.size(); ++i)
        object[AttributeWord(i)] = ColorText(colors[i]);
    return object;
}

bool SetColors(ColorScheme::Colors& colors, const std::string& field, const std::string& word, std::string& problem)
{
    const std::optional<uint32_t> color = ReadColor(word);
    if (!color) {
        problem = Cited(field) + " takes a colour such as #ff8000, not " + Cited(word);
        return false;
    }
    const size_t dot = field.find('.');
    if (dot == std::string::npos) {
        colors.fill(*color);
        return true;
    }
    std::string words;
    for (size_t i = 0; i < colors.size(); ++i) {
        if (field.substr(dot + 1) == AttributeWord(i)) {
            colors[i] = *color;
            return true;
        }
        words += (words.empty() ? "" : ", ") + AttributeWord(i);
    }
    problem = "no attribute is named " + Cited(field.substr(dot + 1)) + "; there are " + words;
    return false;
}

} // namespace ostrand::tool
