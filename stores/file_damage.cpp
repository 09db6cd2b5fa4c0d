#include "stores/file_damage.h"

#include "platform/error_codes.h"
#include "stores/file_check.h"
#include "stores/file_document.h"
#include "stores/file_names.h"
#include "stores/iso_time.h"
#include "stores/store_lock.h"

#include <algorithm>
#include <map>
#include <utility>

namespace ostrand {

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

std::string_view WithoutMark(std::string_view text)
{
    text.remove_prefix(text.starts_with(kByteOrderMark) ? kByteOrderMark.size() : 0);
    return text;
}

/// The line that a part of the document stands in, with its line end.
std::string_view LineAround(const FileDocument& document, std::string_view part)
{
    const std::string_view text = WithoutMark(document.Text());
    const auto at = static_cast<size_t>(part.data() - text.data());
    const size_t start = text.substr(0, at).rfind('\n') + 1; // none gives 0
    return text.substr(start, std::min(text.find('\n', at), text.size() - 1) + 1 - start);
}

bool HasValues(const FileDocument& document)
{
    for (size_t i = 0; i < document.Count(); ++i)
        if (KindOfValue(document.ValueAt(i)))
            return true;
    return false;
}

/// Tells good lines from damaged ones.
class LineJudge {
public:
    explicit LineJudge(const std::string* lastGood) : m_lastGood(lastGood) {}

    bool IsDamaged(std::string_view line) const
    {
        std::u16string name;
        if (const auto kind = CheckLine(line, name))
            return IsDamage(*kind);
        return !line.ends_with('\n') && !name.empty() && m_lastGood && IsStartOfGood(line, name);
    }

private:
    bool IsStartOfGood(std::string_view line, const std::u16string& name) const
    {
        const FileDocument good(*m_lastGood);
        const FileDocument::Found found = good.FindWhole(name.c_str());
        if (!found)
            return false;
        std::string_view goodLine = LineAround(good, found.value);
        goodLine = goodLine.substr(0, goodLine.find_last_not_of("\r\n") + 1);
        return goodLine.size() > line.size() && goodLine.starts_with(line);
    }

    const std::string* m_lastGood;
};

/// Calls `visit` with each line, its line end included, until that answers false.
template <class Visit>
void WalkLines(std::string_view text, Visit visit)
{
    while (!text.empty()) {
        const std::string_view line = text.substr(0, std::min(text.find('\n'), text.size() - 1) + 1);
        if (!visit(line))
            return;
        text.remove_prefix(line.size());
    }
}

std::string LinesOnce(std::string_view damaged, const LineJudge& judge)
{
    std::string text;
    if (damaged.starts_with(kByteOrderMark))
        text = kByteOrderMark;
    WalkLines(WithoutMark(damaged), [&](std::string_view line) {
        if (!judge.IsDamaged(line))
            text += line;
        return true;
    });
    return text;
}

std::string GoodLines(std::string_view damaged, const LineJudge& judge)
{
    std::string text = LinesOnce(damaged, judge);
    // A line that comes to stand first may have a byte-order mark, behind which it looks different.
    for (std::string next; (next = LinesOnce(text, judge)) != text;)
        text = std::move(next);
    return text;
}

/// What the last good version is good for, if it had damage itself.
FileDocument Undamaged(const std::string& lastGood) { return FileDocument(GoodLines(lastGood, LineJudge(nullptr))); }

/// The line end that a text uses.
std::string_view LineEndOf(std::string_view text)
{
    const size_t feed = text.find('\n');
    return feed != std::string_view::npos && feed > 0 && text[feed - 1] == '\r' ? "\r\n" : "\n";
}

/// Puts the values of the last good version that a text lacks into it.
class Restoration {
public:
    Restoration(const FileDocument& text, const FileDocument& good) : m_text(text), m_good(good) {}

    std::string Run()
    {
        m_place = PlaceOfFirst();
        for (size_t i = 0; i < m_good.Count(); ++i) {
            const std::u16string name = m_good.NameAt(i);
            const bool canBeAsked = name.find(u'\0') == std::u16string::npos;
            if (canBeAsked && m_good.FindWhole(name.c_str()).entry == i)
                Add(name, LineAround(m_good, m_good.ValueAt(i)));
        }
        return Joined();
    }

private:
    /// What stood in front of all others goes there again.
    size_t PlaceOfFirst() const
    {
        size_t i = 0;
        while (!KindOfValue(m_text.ValueAt(i)))
            ++i;
        return static_cast<size_t>(LineAround(m_text, m_text.ValueAt(i)).data() - m_text.Text().data());
    }

    void Add(const std::u16string& name, std::string_view line)
    {
        if (const FileDocument::Found found = m_text.FindWhole(name.c_str())) {
            const std::string_view there = LineAround(m_text, found.value);
            m_place = static_cast<size_t>(there.data() + there.size() - m_text.Text().data());
        } else if (!line.starts_with(kByteOrderMark)) { // in front of all it would be no part of the name
            m_insertions.emplace(m_place, line);
        }
    }

    std::string Joined()
    {
        const std::string& text = m_text.Text();
        std::string out;
        size_t done = 0;
        for (const auto& [place, line] : m_insertions) {
            out.append(text, done, place - done);
            done = place;
            if (place == text.size() && !out.ends_with('\n'))
                out += LineEndOf(text);
            out += line;
            if (!line.ends_with('\n'))
                out += LineEndOf(text);
        }
        return out.append(text, done);
    }

    const FileDocument& m_text;
    const FileDocument& m_good;
    size_t m_place = 0;
    std::multimap<size_t, std::string_view> m_insertions; // lines, by the byte where they go in
};

/// At most `size` bytes of a file name, no character cut.
std::string_view Shortened(std::string_view name, size_t size)
{
    if (name.size() <= size)
        return name;
    while (size > 0 && (static_cast<unsigned char>(name[size]) & 0xC0) == 0x80)
        --size;
    return name.substr(0, size);
}

} // namespace

bool IsDamaged(std::string_view text, const std::string* lastGood)
{
    if (text.empty())
        return lastGood && HasValues(Undamaged(*lastGood));
    const LineJudge judge(lastGood);
    bool isDamaged = false;
    WalkLines(WithoutMark(text), [&](std::string_view line) {
        isDamaged = judge.IsDamaged(line);
        return !isDamaged;
    });
    return isDamaged;
}

std::string Repaired(std::string_view damaged, const std::string* lastGood)
{
    if (!IsDamaged(damaged, lastGood))
        return std::string(damaged);
    std::string lines = GoodLines(damaged, LineJudge(lastGood));
    if (!lastGood)
        return lines;
    const FileDocument rest(std::move(lines));
    const FileDocument good = Undamaged(*lastGood);
    return HasValues(rest) ? Restoration(rest, good).Run() : good.Text();
}

std::string AsideName(const std::string& file, uint64_t time)
{
    // Without what a file name shouldn't have: 2026-11-24T17:52:02...
    const std::string iso = IsoTime({time});
    std::string suffix = ".damaged";
    if (!iso.empty())
        suffix += '-' + iso.substr(0, 4) + iso.substr(5, 2) + iso.substr(8, 2) + '-' + iso.substr(11, 2) +
                  iso.substr(14, 2) + iso.substr(17, 2);
    const std::string folder = FolderOf(file);
    const std::string_view name = std::string_view(file).substr(file.rfind('/') + 1);
    VFileInfo info;
    for (unsigned count = 1;; ++count) {
        const std::string end = count == 1 ? suffix : suffix + '-' + std::to_string(count);
        std::string path = folder + '/';
        path += Shortened(name, kLongestFileName - end.size());
        path += end;
        if (Files().GetInfo(path, info) != kErrorSuccess)
            return path;
    }
}

bool IsAsideName(std::string_view name)
{
    constexpr std::string_view kMark = ".ini.damaged";
    const size_t mark = name.rfind(kMark);
    return mark != std::string_view::npos &&
           name.find_first_not_of("-0123456789", mark + kMark.size()) == std::string_view::npos;
}

} // namespace ostrand
