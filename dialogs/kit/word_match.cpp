#include "dialogs/kit/word_match.h"

#include "core/fold.h"

#include <algorithm>
#include <array>

namespace ostrand {

namespace {

constexpr int kWhole = 10;
constexpr int kBeginning = 8;
constexpr int kPart = 5;
constexpr int kOneSlip = 3;
constexpr int kTwoSlips = 2;

bool IsWordCharacter(char16_t c) { return (c >= u'0' && c <= u'9') || (c >= u'a' && c <= u'z') || c >= 0x80; }

/// Beyond it a word is no longer compared letter by letter.
constexpr size_t kLongestWithSlips = 40;

/// Letters left out, added, replaced, or neighbours exchanged (optimal string alignment), that lead from `word` to the
/// beginning of `text` that is nearest to it. Gives up beyond `allowed`, with a larger number.
int Slips(std::u16string_view word, std::u16string_view text, int allowed)
{
    const size_t width = std::min(text.size(), word.size() + static_cast<size_t>(allowed));
    std::array<std::array<int, kLongestWithSlips + 3>, 3> rows; // before last, last, present, by turns
    for (size_t k = 0; k <= width; ++k)
        rows[0][k] = static_cast<int>(k);
    int least = 0;
    for (size_t i = 1; i <= word.size() && least <= allowed; ++i) {
        const auto& beforeLast = rows[(i + 1) % 3];
        const auto& last = rows[(i - 1) % 3];
        auto& present = rows[i % 3];
        least = present[0] = static_cast<int>(i);
        for (size_t k = 1; k <= width; ++k) {
            const int same = word[i - 1] == text[k - 1] ? 0 : 1;
            int best = std::min({last[k] + 1, present[k - 1] + 1, last[k - 1] + same});
            if (i > 1 && k > 1 && word[i - 1] == text[k - 2] && word[i - 2] == text[k - 1])
                best = std::min(best, beforeLast[k - 2] + 1);
            present[k] = best;
            least = std::min(least, best);
        }
    }
    return least;
}

int SlipsAllowed(size_t length) { return length < 4 ? 0 : length < 8 ? 1 : 2; }

int MatchOne(std::u16string_view word, std::u16string_view candidate)
{
    if (candidate == word)
        return kWhole;
    if (candidate.starts_with(word))
        return kBeginning;
    if (word.size() > 1 && candidate.find(word) != std::u16string_view::npos)
        return kPart;
    const int allowed = SlipsAllowed(word.size());
    if (allowed == 0 || word.size() > kLongestWithSlips ||
        candidate.size() + static_cast<size_t>(allowed) < word.size())
        return 0;
    const int slips = Slips(word, candidate, allowed);
    return slips > allowed ? 0 : slips == 1 ? kOneSlip : kTwoSlips;
}

} // namespace

VFoldedText::VFoldedText(std::u16string_view text) : m_text(FoldedCase(text))
{
    for (size_t begin = 0; begin < m_text.size();) {
        size_t end = begin;
        while (end < m_text.size() && IsWordCharacter(m_text[end]))
            ++end;
        if (end > begin)
            m_words.push_back({begin, end - begin});
        begin = end + 1;
    }
}

int MatchWord(std::u16string_view word, const VFoldedText& text)
{
    int best = text.Text().find(word) != std::u16string_view::npos && word.size() > 1 ? kPart : 0;
    for (size_t i = 0; i < text.CountWords() && best < kWhole; ++i)
        best = std::max(best, MatchOne(word, text.Word(i)));
    return best;
}

} // namespace ostrand
