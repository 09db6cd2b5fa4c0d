#include "stores/name_scan.h"

#include "core/fold.h"
#include "stores/file_format.h"

#include <algorithm>

namespace ostrand {

namespace {

/// The bytes of a name that tell most lines with other names apart.
struct Probe {
    uint8_t first, last; // as small letters, if they are letters
    size_t distance;     // from one to the other

    /// Whether the line behind the feed at `p` may have the name. Blanks and quotes leave that open.
    bool IsCandidate(const char* p) const
    {
        const auto at = [p](size_t i) { return static_cast<uint8_t>(p[i]); };
        return at(1) <= '"' || ((at(1) | 0x20) == first && (at(1 + distance) | 0x20) == last);
    }
};

constexpr size_t kBlock = 64;

/// Whether any of the next lines is a candidate, of those whose feeds are in the block. A loop of a constant count
/// without branches, which compilers turn into vector code.
bool HasCandidate(const char* p, const Probe& probe)
{
    uint8_t any = 0;
    const char* const last = p + 1 + probe.distance;
    for (size_t i = 0; i < kBlock; ++i) {
        const auto begin = static_cast<uint8_t>(p[i + 1]);
        const uint8_t isFeed = p[i] == '\n' ? 0xFF : 0;
        const uint8_t isOpen = begin <= '"' ? 0xFF : 0;
        const uint8_t isFirst = static_cast<uint8_t>(begin | 0x20) == probe.first ? 0xFF : 0;
        const uint8_t isLast = static_cast<uint8_t>(last[i] | 0x20) == probe.last ? 0xFF : 0;
        any = static_cast<uint8_t>(any | (isFeed & (isOpen | (isFirst & isLast))));
    }
    return any != 0;
}

class Scan {
public:
    Scan(std::string_view text, const AskedName& name) : m_text(text), m_name(name) {}

    void LookAt(const char* line)
    {
        const char* const end = m_text.data() + m_text.size();
        const LineName name = NameOfLine({line, static_cast<size_t>(FindFeed(line, end) - line)});
        const bool isIt = name.isComplex ? EqualNoCase(name.decoded, m_name.View()) : m_name.IsPlain(name.spelled);
        if (name.spelled.empty() || !isIt)
            return;
        m_place = static_cast<uint32_t>(name.spelled.data() - m_text.data());
        ++m_count;
    }

    std::string_view m_text;
    const AskedName& m_name;
    uint32_t m_place = 0;
    size_t m_count = 0;
};

} // namespace

ScanResult ScanForName(std::string_view text, const AskedName& name, uint32_t& place)
{
    const auto small = [&](size_t i) { return static_cast<uint8_t>(name.View()[i] | 0x20); };
    const size_t distance = name.View().size() - 1;
    const Probe probe{small(0), small(distance), distance};
    Scan scan(text, name);
    const std::string_view lines = SkipByteOrderMark(text);
    scan.LookAt(lines.data());
    const char* p = lines.data();
    const char* const end = p + lines.size();
    while (p < end && scan.m_count < 2) {
        const auto left = static_cast<size_t>(end - p);
        const bool isInside = left > kBlock + 1 + distance;
        if (isInside && !HasCandidate(p, probe)) {
            p += kBlock;
            continue;
        }
        const char* const blockEnd = p + std::min(left, kBlock);
        for (; p < blockEnd; ++p)
            if (*p == '\n' && (!isInside || probe.IsCandidate(p)))
                scan.LookAt(p + 1);
    }
    if (scan.m_count != 1)
        return scan.m_count == 0 ? ScanResult::None : ScanResult::Several;
    place = scan.m_place;
    return ScanResult::One;
}

} // namespace ostrand
