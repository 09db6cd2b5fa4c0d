#include "stores/file_document.h"

#include "core/fold.h"
#include "stores/file_render.h"
#include "stores/name_scan.h"

#include <algorithm>

namespace ostrand {

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

} // namespace

void FileDocument::CutNow() const
{
    NameLayout::Places places;
    std::vector<uint64_t> hashes;
    m_layout = m_pool ? m_pool->Cut(m_text, places) : std::make_shared<NameLayout>(m_text, places, hashes);
    m_entries = EntryList(places);
    if (std::exchange(m_wasScannedRead, false)) {
        const auto entry = std::lower_bound(places.begin(), places.end(), m_scannedPlace) - places.begin();
        MarkRead(static_cast<size_t>(entry));
    }
}

ValueParts FileDocument::CutParts(const char* name) const
{
    ValueParts parts;
    CutLine({name, static_cast<size_t>(m_text.data() + m_text.size() - name)}, parts);
    return parts;
}

std::u16string FileDocument::NameAt(size_t entry) const
{
    std::u16string name;
    DecodeName(CutParts(NameStart(entry)).name, name);
    return name;
}

uint64_t FileDocument::HashOf(size_t entry) const
{
    if (entry != kScanned && m_layout->IsShared())
        return m_layout->HashOf(entry);
    const char* const start = NameStart(entry);
    const char* const lineEnd = FindFeed(start, m_text.data() + m_text.size());
    const LineName name = NameOfLine({start, static_cast<size_t>(lineEnd - start)});
    return name.isComplex ? HashName(name.decoded) : HashAsciiNoCase(name.spelled);
}

bool FileDocument::HasRead(size_t count) const
{
    for (size_t i = 0; i < m_entries.Count() && count > 0; ++i)
        count -= m_entries.WasRead(i);
    return count == 0;
}

bool FileDocument::IsNamed(size_t entry, const AskedName& name) const
{
    return m_layout->IsComplex(entry) ? EqualNoCase(NameAt(entry), name.View()) : name.IsPlain(PartsAt(entry).name);
}

bool FileDocument::FindUncut(const AskedName& name, Found& found) const
{
    constexpr size_t kFew = 512; // bytes that are cut at once
    constexpr unsigned kMostUncutFinds = 5;
    if (IsCut() || !name.IsAscii() || name.View().empty() || m_text.size() < kFew)
        return false;
    if (m_uncutFinds++ > 0) {
        const bool isKnown = m_scannedPlace != kNoPlace && name.IsPlain(CutParts(NameStart(kScanned)).name);
        if (!isKnown || m_uncutFinds > kMostUncutFinds)
            return false;
    } else {
        const ScanResult result = ScanForName(m_text, name, m_scannedPlace);
        if (result != ScanResult::One)
            return result == ScanResult::None;
    }
    found = {kScanned, ValueAt(kScanned)};
    return true;
}

FileDocument::Found FileDocument::FindAnywhere(const char16_t* name, size_t& next) const
{
    const AskedName asked(name);
    Found found;
    if (FindUncut(asked, found))
        return found;
    Cut();
    const auto same = [&](size_t i) {
        return (!m_layout->IsShared() || m_layout->HashOf(i) == asked.Hash()) && IsNamed(i, asked);
    };
    const size_t entry = m_layout->Find(asked.Hash(), same);
    if (entry == kNone)
        return {};
    next = entry + 1;
    return {entry, ValueAt(entry)};
}

FileDocument::Found FileDocument::FindBefore(size_t entry, const char16_t* name) const
{
    if (entry == kScanned) // there is but one
        return {};
    const AskedName asked(name);
    while (entry-- > 0)
        if (!IsLast(entry) && IsNamed(entry, asked))
            return {entry, ValueAt(entry)};
    return {};
}

FileDocument::Found FileDocument::FindWhole(const char16_t* name) const
{
    size_t next = kNone;
    Found found = Find(name, next);
    while (found && !KindOfValue(found.value))
        found = FindBefore(found.entry, name);
    return found;
}

size_t FileDocument::LineOf(size_t entry) const
{
    return static_cast<size_t>(std::count(m_text.data(), NameStart(entry), '\n')) + 1;
}

FileDocument::Replacement FileDocument::LineRange(size_t entry) const
{
    const auto place = static_cast<size_t>(NameStart(entry) - m_text.data());
    const size_t feedBefore = place == 0 ? std::string::npos : m_text.rfind('\n', place - 1);
    size_t from = feedBefore + 1;
    if (from == 0 && m_text.starts_with(kByteOrderMark))
        from = kByteOrderMark.size();
    const size_t feed = m_text.find('\n', place);
    return {from, feed == std::string::npos ? m_text.size() : feed + 1, {}};
}

std::string_view FileDocument::LineEnd() const
{
    const size_t feed = m_text.find('\n');
    return feed != std::string::npos && feed > 0 && m_text[feed - 1] == '\r' ? "\r\n" : "\n";
}

void FileDocument::AddReplacements(const ValueEdit& edit, std::vector<Replacement>& list, std::string& appended) const
{
    Found found = FindWhole(edit.name);
    if (edit.text && !found) {
        appended += RenderName(edit.name);
        appended += " = ";
        appended += *edit.text;
        appended += LineEnd();
    } else if (edit.text) {
        const std::string_view value = ValueText(found.value);
        const auto from = static_cast<size_t>(value.data() - m_text.data());
        list.push_back({from, from + value.size(), *edit.text});
    } else {
        for (; found; found = FindBefore(found.entry, edit.name))
            if (KindOfValue(found.value))
                list.push_back(LineRange(found.entry));
    }
}

std::string FileDocument::WithEdits(std::span<const ValueEdit> edits) const
{
    std::vector<Replacement> list;
    std::string appended;
    for (const ValueEdit& edit : edits)
        AddReplacements(edit, list, appended);
    std::sort(list.begin(), list.end(), [](const Replacement& a, const Replacement& b) { return a.from < b.from; });

    std::string text;
    text.reserve(m_text.size() + appended.size() + edits.size() * 16);
    size_t done = 0;
    for (const Replacement& r : list) {
        text.append(m_text, done, r.from - done);
        text += r.text;
        done = r.to;
    }
    text.append(m_text, done);
    // A line that came first now must not become the file's mark.
    if (text.starts_with(kByteOrderMark) && !m_text.starts_with(kByteOrderMark))
        text.insert(0, LineEnd());
    if (!appended.empty() && !text.empty() && text != kByteOrderMark && text.back() != '\n')
        text += text.back() == '\r' ? "\n" : LineEnd();
    return text += appended;
}

} // namespace ostrand
