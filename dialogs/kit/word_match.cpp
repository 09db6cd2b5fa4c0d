#include "dialogs/kit/word_match.h"

#include "core/fold.h"

#include <algorithm>
#include <array>
#include <vector>

namespace ostrand {

namespace {

constexpr int kWhole = 10;
constexpr int kBeginning = 8;
constexpr int kPart = 5;
constexpr int kOneSlip = 3;
constexpr int kTwoSlips = 2;

bool IsWordCharacter(char16_t c) { return (c >= u'0' && c <= u'9') || (c >= u'a' && c <= u'z') || c >= 0x80; }

std::u16string Folded(std::u16string_view text)
{
    std::u16string folded(text);
    std::transform(folded.begin(), folded.end(), folded.begin(), FoldCase);
    return folded;
}

/// Letters left out, added, replaced, or neighbours exchanged (optimal string alignment), that lead from `word` to the
/// beginning of `text` that is nearest to it.
int Slips(std::u16string_view word, std::u16string_view text)
{
    std::array<std::vector<int>, 3> rows; // before last, last, present
    rows.fill(std::vector<int>(text.size() + 1));
    for (size_t k = 0; k <= text.size(); ++k)
        rows[2][k] = static_cast<int>(k);
    for (size_t i = 1; i <= word.size(); ++i) {
        std::rotate(rows.begin(), rows.begin() + 1, rows.end());
        rows[2][0] = static_cast<int>(i);
        for (size_t k = 1; k <= text.size(); ++k) {
            const int same = word[i - 1] == text[k - 1] ? 0 : 1;
            int best = std::min({rows[1][k] + 1, rows[2][k - 1] + 1, rows[1][k - 1] + same});
            if (i > 1 && k > 1 && word[i - 1] == text[k - 2] && word[i - 2] == text[k - 1])
                best = std::min(best, rows[0][k - 2] + 1);
            rows[2][k] = best;
        }
    }
    return *std::min_element(rows[2].begin(), rows[2].end());
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
    if (SlipsAllowed(word.size()) == 0)
        return 0;
    const int slips = Slips(word, candidate);
    return slips > SlipsAllowed(word.size()) ? 0 : slips == 1 ? kOneSlip : kTwoSlips;
}

} // namespace

int MatchWord(std::u16string_view typed, std::u16string_view text)
{
    const std::u16string word = Folded(typed);
    const std::u16string folded = Folded(text);
    int best = folded.find(word) != std::u16string::npos && word.size() > 1 ? kPart : 0;
    for (size_t begin = 0; begin < folded.size();) {
        size_t end = begin;
        while (end < folded.size() && IsWordCharacter(folded[end]))
            ++end;
        if (end > begin)
            best = std::max(best, MatchOne(word, std::u16string_view(folded).substr(begin, end - begin)));
        begin = end + 1;
    }
    return best;
}

} // namespace ostrand
