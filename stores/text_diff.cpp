#include "stores/text_diff.h"

#include "stores/name_index.h"

#include <algorithm>
#include <utility>

namespace ostrand {

namespace {

/// Bytes between the first and the last change that are looked into.
constexpr size_t kMostBytes = 1u << 20;
/// Bytes of both sides together, from which on a place is narrowed to the changed parts of its lines if that halves it.
constexpr size_t kLongHunk = 200;

size_t CommonPrefix(std::string_view a, std::string_view b)
{
    const size_t size = std::min(a.size(), b.size());
    size_t i = 0;
    while (i + 8 <= size && LoadWord(a.data() + i) == LoadWord(b.data() + i))
        i += 8;
    while (i < size && a[i] == b[i])
        ++i;
    return i;
}

size_t CommonSuffix(std::string_view a, std::string_view b)
{
    const size_t size = std::min(a.size(), b.size());
    const char* const endA = a.data() + a.size();
    const char* const endB = b.data() + b.size();
    size_t i = 0;
    while (i + 8 <= size && LoadWord(endA - i - 8) == LoadWord(endB - i - 8))
        i += 8;
    while (i < size && endA[-1 - static_cast<ptrdiff_t>(i)] == endB[-1 - static_cast<ptrdiff_t>(i)])
        ++i;
    return i;
}

bool IsLineStart(std::string_view text, size_t at) { return at == 0 || text[at - 1] == '\n'; }

/// Both sides without the lines that they have in common at their ends. `hunk` covers whole lines.
TextHunk WithoutCommonLines(TextHunk hunk)
{
    size_t front = CommonPrefix(hunk.before, hunk.after);
    front = hunk.before.substr(0, front).rfind('\n') + 1; // none gives 0
    hunk.at += front;
    hunk.before.remove_prefix(front);
    hunk.after.remove_prefix(front);
    size_t back = CommonSuffix(hunk.before, hunk.after);
    if (!IsLineStart(hunk.before, hunk.before.size() - back) || !IsLineStart(hunk.after, hunk.after.size() - back)) {
        const size_t feed = hunk.before.find('\n', hunk.before.size() - back);
        back = feed == std::string_view::npos ? 0 : hunk.before.size() - feed - 1;
    }
    hunk.before.remove_suffix(back);
    hunk.after.remove_suffix(back);
    return hunk;
}

bool IsInsideCharacter(std::string_view text, size_t at)
{
    return at < text.size() && (static_cast<unsigned char>(text[at]) & 0xC0) == 0x80;
}

/// Both sides without the bytes that they have in common at their ends; no character is cut.
TextHunk Narrowed(TextHunk hunk)
{
    size_t front = CommonPrefix(hunk.before, hunk.after);
    while (front > 0 && (IsInsideCharacter(hunk.before, front) || IsInsideCharacter(hunk.after, front)))
        --front;
    hunk.at += front;
    hunk.before.remove_prefix(front);
    hunk.after.remove_prefix(front);
    size_t back = CommonSuffix(hunk.before, hunk.after);
    while (back > 0 && IsInsideCharacter(hunk.before, hunk.before.size() - back))
        --back;
    hunk.before.remove_suffix(back);
    hunk.after.remove_suffix(back);
    return hunk;
}

/// The lines of one side.
struct Lines {
    explicit Lines(std::string_view t) : text(t)
    {
        for (size_t from = 0; from < text.size(); from = starts.back()) {
            const size_t end = std::min(text.find('\n', from), text.size() - 1) + 1;
            hashes.emplace_back(HashBytes(text.substr(from, end - from)), hashes.size());
            starts.push_back(end);
        }
        std::sort(hashes.begin(), hashes.end());
    }
    size_t Count() const { return hashes.size(); }
    std::string_view Line(size_t number) const
    {
        return text.substr(starts[number], starts[number + 1] - starts[number]);
    }
    /// Whether no other line has the hash of the one at this place of the sorted list.
    bool IsSole(size_t i) const
    {
        return (i == 0 || hashes[i - 1].first != hashes[i].first) &&
               (i + 1 == hashes.size() || hashes[i + 1].first != hashes[i].first);
    }

    std::string_view text;
    std::vector<size_t> starts{0};                   // of each line, and the end of the text
    std::vector<std::pair<uint64_t, size_t>> hashes; // with the line's number, sorted
};

/// Numbers of a line on the new and the old side.
using LinePair = std::pair<size_t, size_t>;

/// Lines that stand once on either side, in the order of the new one.
std::vector<LinePair> SoleLines(const Lines& before, const Lines& after)
{
    std::vector<LinePair> pairs;
    size_t i = 0;
    for (size_t j = 0; j < after.Count(); ++j) {
        while (i < before.Count() && before.hashes[i].first < after.hashes[j].first)
            ++i;
        if (i == before.Count() || !before.IsSole(i) || !after.IsSole(j))
            continue;
        const LinePair pair(after.hashes[j].second, before.hashes[i].second);
        if (after.Line(pair.first) == before.Line(pair.second))
            pairs.push_back(pair);
    }
    std::sort(pairs.begin(), pairs.end());
    return pairs;
}

/// The longest part of the pairs that grows on the old side, too: what was moved across others is left out.
std::vector<LinePair> LongestGrowing(const std::vector<LinePair>& pairs)
{
    constexpr size_t kNone = static_cast<size_t>(-1);
    std::vector<size_t> piles;                         // the pair on top of each
    std::vector<size_t> previous(pairs.size(), kNone); // that on top of the pile to the left, when a pair was put
    for (size_t i = 0; i < pairs.size(); ++i) {
        const auto pile = std::lower_bound(piles.begin(), piles.end(), i, [&pairs](size_t top, size_t next) {
            return pairs[top].second < pairs[next].second;
        });
        if (pile != piles.begin())
            previous[i] = *(pile - 1);
        if (pile == piles.end())
            piles.push_back(i);
        else
            *pile = i;
    }
    std::vector<LinePair> growing;
    for (size_t i = piles.empty() ? kNone : piles.back(); i != kNone; i = previous[i])
        growing.push_back(pairs[i]);
    std::reverse(growing.begin(), growing.end());
    return growing;
}

size_t SizeOf(const TextHunk& hunk) { return hunk.before.size() + hunk.after.size(); }

void AddHunk(const TextHunk& place, std::vector<TextHunk>& hunks)
{
    const TextHunk hunk = WithoutCommonLines(place);
    if (SizeOf(hunk) == 0)
        return;
    const TextHunk narrowed = SizeOf(hunk) < kLongHunk ? hunk : Narrowed(hunk);
    hunks.push_back(SizeOf(narrowed) <= SizeOf(hunk) / 2 ? narrowed : hunk);
}

/// Cuts the place at the lines that its sides share.
void AddParts(const TextHunk& place, std::vector<TextHunk>& hunks)
{
    const Lines before(place.before);
    const Lines after(place.after);
    std::vector<LinePair> shared = LongestGrowing(SoleLines(before, after));
    shared.emplace_back(after.Count(), before.Count());
    LinePair next{0, 0}; // behind the last shared line
    for (const LinePair& line : shared) {
        const size_t from = before.starts[next.second];
        const size_t fromAfter = after.starts[next.first];
        AddHunk({place.at + from, place.before.substr(from, before.starts[line.second] - from),
                 place.after.substr(fromAfter, after.starts[line.first] - fromAfter)},
                hunks);
        next = {line.first + 1, line.second + 1};
    }
}

bool HasManyLines(std::string_view text)
{
    const size_t feed = text.find('\n');
    return feed != std::string_view::npos && feed + 1 < text.size();
}

} // namespace

std::vector<TextHunk> DiffTexts(std::string_view before, std::string_view after)
{
    std::vector<TextHunk> hunks;
    const TextHunk whole = WithoutCommonLines({0, before, after});
    if (SizeOf(whole) <= kMostBytes && HasManyLines(whole.before) && HasManyLines(whole.after))
        AddParts(whole, hunks);
    else
        AddHunk(whole, hunks);
    return hunks;
}

} // namespace ostrand
