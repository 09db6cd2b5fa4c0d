#include "core/tokenize.h"

#include <algorithm>

namespace ostrand {

namespace {

/// Length of the separator at the front of the text, 0 for none.
size_t SeparatorAt(std::u16string_view text, std::span<const std::u16string_view> separators)
{
    const auto found = std::find_if(separators.begin(), separators.end(),
                                    [text](std::u16string_view s) { return !s.empty() && text.starts_with(s); });
    return found == separators.end() ? 0 : found->size();
}

/// The character that closes what `c` opens, 0 if it opens nothing.
char16_t ClosingOf(char16_t c, std::span<const std::u16string_view> quotes)
{
    const auto found =
        std::find_if(quotes.begin(), quotes.end(), [c](std::u16string_view q) { return q.size() == 2 && q[0] == c; });
    return found == quotes.end() ? u'\0' : (*found)[1];
}

} // namespace

void Tokenize(std::u16string_view text, VStringArray& out, char16_t separator)
{
    const std::u16string_view separators[] = {{&separator, 1}};
    Tokenize(text, out, VTokenizeRules{.separators = separators, .quotes = {}});
}

bool Tokenize(std::u16string_view text, VStringArray& out, const VTokenizeRules& rules)
{
    out.RemoveAll();
    std::u16string piece;
    char16_t closing = 0;
    const auto finish = [&] {
        if (!piece.empty() || !rules.dropEmpty)
            out.Append(std::u16string_view(piece));
        piece.clear();
    };
    while (!text.empty()) {
        const size_t separator = closing ? 0 : SeparatorAt(text, rules.separators);
        if (separator > 0) {
            finish();
            text.remove_prefix(separator);
            continue;
        }
        const char16_t c = text.front();
        const char16_t opened = closing ? u'\0' : ClosingOf(c, rules.quotes);
        const bool isQuote = opened != 0 || (closing != 0 && c == closing);
        if (isQuote)
            closing = opened;
        if (!isQuote || !rules.stripQuotes)
            piece.push_back(c);
        text.remove_prefix(1);
    }
    finish();
    return closing == 0;
}

} // namespace ostrand
