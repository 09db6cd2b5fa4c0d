#include "stores/name_layout.h"

#include "core/fold.h"
#include "stores/file_format.h"

#include <algorithm>
#include <limits>

namespace ostrand {

namespace {

constexpr std::string_view kEquals = " =";
constexpr std::string_view kBetween = " = ";

/// The plain name of a line as a save writes it, with one blank before the "="; empty for any other line.
std::string_view WrittenName(const char* p, const char* end)
{
    if (*p == ' ' || *p == ';' || *p == '#' || *p == '[')
        return {};
    for (const char* q = p; end - q >= 8; q += 8) {
        const uint64_t word = LoadWord(q);
        const uint64_t stops = TestEqual(word, '=') | TestNonAscii(word) | TestBelow(word, 0x20) | TestEqual(word, '"');
        if (stops == 0)
            continue;
        const char* const equals = q + FirstOf(stops);
        const bool isWritten = *equals == '=' && equals - p > 1 && equals[-1] == ' ' && equals[-2] != ' ';
        return {p, isWritten ? static_cast<size_t>(equals - p) - 1 : 0};
    }
    return {};
}

const char* Behind(const char* feed, const char* end) { return feed == end ? end : feed + 1; }

/// The name of the first line that has one.
std::string_view NextName(const char* p, const char* end)
{
    while (p < end) {
        const char* const lineEnd = FindFeed(p, end);
        if (const LineName name = NameOfLine({p, static_cast<size_t>(lineEnd - p)}); !name.spelled.empty())
            return name.spelled;
        p = Behind(lineEnd, end);
    }
    return {};
}

std::string_view NameAt(std::string_view text, size_t place)
{
    ValueParts parts;
    CutLine(text.substr(place), parts);
    return parts.name;
}

bool AreNamesEqual(std::string_view a, std::string_view b)
{
    std::u16string first;
    std::u16string second;
    return DecodeName(a, first) && DecodeName(b, second) && EqualNoCase(first, second);
}

/// Names of up to this size with what stands behind them are compared without a branch for each word.
constexpr size_t kHeadRoom = 32;

/// The word's bytes that belong to a head of that size, where `first` is the place of the word in it.
constexpr uint64_t MaskOf(size_t size, size_t first)
{
    return size >= first + 8 ? ~uint64_t{0} : size <= first ? 0 : (uint64_t{1} << 8 * (size - first)) - 1;
}

/// Whether the text at `p` begins with the head, behind which kHeadRoom bytes can be read.
bool StartsWith(const char* p, const char* end, const char* head, size_t size)
{
    const auto left = static_cast<size_t>(end - p);
    if (left < kHeadRoom || size > kHeadRoom)
        return std::string_view(p, left).starts_with({head, size});
    uint64_t differences = 0;
    for (size_t i = 0; i < kHeadRoom; i += 8)
        differences |= (LoadWord(p + i) ^ LoadWord(head + i)) & MaskOf(size, i);
    return differences == 0;
}

} // namespace

NameLayout::NameLayout(std::string_view text, Places& places, std::vector<uint64_t>& hashes)
{
    constexpr size_t kTypicalLine = 36;
    const size_t guess = text.size() / kTypicalLine + 8;
    hashes.reserve(guess);
    places.reserve(guess);
    m_names.reserve(guess);
    const char* const end = text.data() + text.size();
    const char* lineEnd = nullptr;
    for (const char* p = SkipByteOrderMark(text).data(); p < end; p = Behind(lineEnd, end)) {
        std::string_view name = WrittenName(p, end);
        lineEnd = FindFeed(name.empty() ? p : p + name.size() + kEquals.size(), end);
        LineName other;
        if (name.empty())
            other = NameOfLine({p, static_cast<size_t>(lineEnd - p)});
        if (name.empty() && other.spelled.empty())
            continue;
        if (name.empty())
            name = other.spelled;
        places.push_back(static_cast<uint32_t>(name.data() - text.data()));
        hashes.push_back(other.isComplex ? HashName(other.decoded) : HashAsciiNoCase(name));
        const bool isLong = name.size() > std::numeric_limits<uint8_t>::max();
        m_names.push_back({static_cast<uint8_t>(isLong ? 0 : name.size()),
                           static_cast<uint8_t>((other.isComplex ? kComplex : 0) | (isLong ? kLong : 0))});
    }
    BuildIndex(text, places, hashes);
}

void NameLayout::BuildIndex(std::string_view text, const Places& places, const std::vector<uint64_t>& hashes)
{
    m_index.Reset(m_names.size());
    for (size_t i = 0; i < m_names.size(); ++i) {
        const auto same = [&](size_t j) {
            return hashes[j] == hashes[i] && AreNamesEqual(NameAt(text, places[j]), NameAt(text, places[i]));
        };
        if (const size_t earlier = m_index.Put(hashes[i], i, same); earlier != NameIndex::kNone)
            m_names[earlier].marks |= kSuperseded;
    }
}

bool NameLayout::Share(std::string_view text, const Places& places, std::vector<uint64_t> hashes)
{
    const auto isUnfit = [](const Name& name) { return (name.marks & (kSuperseded | kLong)) != 0; };
    if (m_names.empty() || std::any_of(m_names.begin(), m_names.end(), isUnfit))
        return false;
    for (size_t i = 0; i < m_names.size(); ++i) {
        m_heads += text.substr(places[i], m_names[i].size);
        m_heads += kBetween;
    }
    m_heads.append(kHeadRoom, '\0');
    m_hashes = std::move(hashes);
    return true;
}

bool NameLayout::Fit(std::string_view text, Places& places) const
{
    places.clear();
    places.reserve(m_names.size());
    const char* const end = text.data() + text.size();
    const char* p = SkipByteOrderMark(text).data();
    const char* head = m_heads.data();
    for (const Name& name : m_names) {
        const size_t size = name.size + kBetween.size();
        const char* place = p;
        const char* value = p + size;
        if (!StartsWith(p, end, head, size)) {
            const std::string_view next = NextName(p, end);
            if (next != std::string_view(head, name.size))
                return false;
            place = next.data();
            value = place + name.size;
        }
        places.push_back(static_cast<uint32_t>(place - text.data()));
        p = Behind(FindFeed(value, end), end);
        head += size;
    }
    return NextName(p, end).empty();
}

std::shared_ptr<const NameLayout> LayoutPool::Cut(std::string_view text, NameLayout::Places& places)
{
    if (auto fitting = FindFitting(text, places))
        return fitting;
    places.clear();
    std::vector<uint64_t> hashes;
    auto layout = std::make_shared<NameLayout>(text, places, hashes);
    uint64_t all = hashes.size();
    for (const uint64_t hash : hashes)
        all = MixHash(all, hash);
    // A layout is worth its memory from the second file on.
    if (WasSeen(all) && layout->Share(text, places, std::move(hashes))) {
        if (m_layouts.size() == kMost)
            m_layouts.pop_back();
        m_layouts.insert(m_layouts.begin(), layout);
    }
    return layout;
}

std::shared_ptr<const NameLayout> LayoutPool::FindFitting(std::string_view text, NameLayout::Places& places)
{
    // Lines that a layout shares with the text before it turns out not to fit. Kinds of records differ in their first
    // names; where many of them begin alike, trying all would take longer than cutting anew.
    constexpr size_t kMostWasted = 100;
    size_t wasted = 0;
    for (size_t i = 0; i < m_layouts.size() && wasted <= kMostWasted; ++i) {
        if (m_layouts[i]->Fit(text, places)) {
            std::rotate(m_layouts.begin(), m_layouts.begin() + static_cast<ptrdiff_t>(i),
                        m_layouts.begin() + static_cast<ptrdiff_t>(i) + 1);
            return m_layouts.front();
        }
        wasted += places.size();
    }
    return nullptr;
}

bool LayoutPool::WasSeen(uint64_t names)
{
    if (std::find(m_seen.begin(), m_seen.end(), names) != m_seen.end())
        return true;
    m_seen[m_nextSeen++ % m_seen.size()] = names;
    return false;
}

} // namespace ostrand
