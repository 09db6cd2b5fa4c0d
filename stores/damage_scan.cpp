#include "stores/damage_scan.h"

#include "core/utf8.h"
#include "stores/byte_words.h"
#include "stores/file_format.h"

#include <algorithm>

namespace ostrand {

namespace {

/// What one pass of a few operations for each four bytes tells, as one word for each lane.
constexpr size_t kLanes = 4;
constexpr size_t kStride = kLanes * sizeof(uint32_t);

struct Suspicion {
    uint32_t zeros[kLanes] = {};    // top bits: bytes that are zero
    uint32_t nonAscii[kLanes] = {}; // top bits: bytes above ASCII
    uint32_t marks[kLanes] = {};    // any bit: perhaps a merge mark

    /// Lanes, and neither a branch nor a loop of unknown length: compilers turn this into vector code.
    void LookAt(const char* p)
    {
        constexpr uint32_t kEach = 0x01010101;
        uint32_t words[kLanes];
        std::memcpy(words, p, kStride);
        for (size_t i = 0; i < kLanes; ++i) {
            zeros[i] |= (words[i] - kEach) & ~words[i];
            nonAscii[i] |= words[i];
            // Without the bits in which the characters of marks differ. Seven in a row fill one word.
            marks[i] |= (words[i] & 0xBC * kEach) == 0x3C * kEach ? ~uint32_t{0} : 0;
        }
    }
    static bool HasAny(const uint32_t (&lanes)[kLanes], uint32_t bits)
    {
        uint32_t all = 0;
        for (const uint32_t lane : lanes)
            all |= lane;
        return (all & bits) != 0;
    }
    bool HasZeros() const { return HasAny(zeros, static_cast<uint32_t>(kEachTop)); }
    bool HasNonAscii() const { return HasAny(nonAscii, static_cast<uint32_t>(kEachTop)); }
    bool HasMarks() const { return HasAny(marks, ~uint32_t{0}); }
};

Suspicion Suspect(std::string_view text)
{
    Suspicion suspicion;
    for (; text.size() >= kStride; text.remove_prefix(kStride))
        suspicion.LookAt(text.data());
    char rest[kStride];
    std::memset(rest, ' ', kStride);
    if (!text.empty())
        std::memcpy(rest, text.data(), text.size());
    suspicion.LookAt(rest);
    return suspicion;
}

bool HasMarkLine(std::string_view text)
{
    text = SkipByteOrderMark(text);
    while (!text.empty()) {
        const size_t feed = std::min(text.find('\n'), text.size() - 1);
        std::string_view line = text.substr(0, feed);
        if (line.ends_with('\r'))
            line.remove_suffix(1);
        if (IsMergeMark(line))
            return true;
        text.remove_prefix(feed + 1);
    }
    return false;
}

bool IsWholeUtf8(std::string_view text)
{
    while (!text.empty()) {
        if (text.size() >= 8 && TestNonAscii(LoadWord(text.data())) == 0) {
            text.remove_prefix(8);
            continue;
        }
        if (static_cast<signed char>(text[0]) >= 0) {
            text.remove_prefix(1);
            continue;
        }
        char32_t c = 0;
        const unsigned taken = TakeUtf8(text, c);
        if (taken == 0)
            return false;
        text.remove_prefix(taken);
    }
    return true;
}

} // namespace

bool IsMergeMark(std::string_view line)
{
    return line == "=======" || line.starts_with("<<<<<<< ") || line.starts_with("||||||| ") ||
           line.starts_with(">>>>>>> ");
}

bool LooksDamaged(std::string_view text)
{
    if (text.empty() || text.back() != '\n')
        return true;
    const Suspicion suspicion = Suspect(text);
    if (suspicion.HasZeros() || (suspicion.HasNonAscii() && !IsWholeUtf8(text)))
        return true;
    return suspicion.HasMarks() && HasMarkLine(text);
}

} // namespace ostrand
