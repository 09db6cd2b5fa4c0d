#include "imports/relaxed_json.h"

#include <algorithm>

namespace ostrand {

namespace {

/// Behind the closing quote of the string that begins at `at`.
size_t BehindString(std::string_view text, size_t at)
{
    for (++at; at < text.size() && text[at] != '"'; ++at)
        if (text[at] == '\\')
            ++at;
    return std::min(at + 1, text.size());
}

/// Behind the comment that begins at `at`; `at` itself where none does.
size_t BehindComment(std::string_view text, size_t at)
{
    const std::string_view start = text.substr(at, 2);
    if (start == "//")
        return std::min(text.find('\n', at), text.size());
    if (start != "/*")
        return at;
    const size_t end = text.find("*/", at + 2);
    return end == std::string_view::npos ? text.size() : end + 2;
}

bool EndsAnElement(char c) { return c != '[' && c != '{' && c != ',' && c != ':'; }

} // namespace

std::string PlainJson(std::string_view text)
{
    std::string plain(text);
    size_t comma = 0; // a comma with an element in front and nothing behind it yet, if `isOpen`
    bool isOpen = false;
    char before = ','; // the last character that counts
    for (size_t at = 0; at < text.size();) {
        if (const size_t behind = BehindComment(text, at); behind != at) {
            for (; at < behind; ++at)
                if (plain[at] != '\n')
                    plain[at] = ' ';
            continue;
        }
        const char c = text[at];
        const bool isBlank = c == ' ' || c == '\t' || c == '\n' || c == '\r';
        if (isOpen && (c == ']' || c == '}'))
            plain[comma] = ' ';
        if (!isBlank) {
            isOpen = c == ',' && EndsAnElement(before);
            comma = at;
            before = c;
        }
        at = c == '"' ? BehindString(text, at) : at + 1;
    }
    return plain;
}

} // namespace ostrand
