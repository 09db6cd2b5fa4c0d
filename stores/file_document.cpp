#include "stores/file_document.h"

#include "core/fold.h"
#include "stores/file_render.h"

#include <algorithm>

namespace ostrand {

namespace {

constexpr size_t kLargestByte = 255;
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

/// ASCII that stands for itself: no quote, no control.
bool IsPlainName(std::string_view name)
{
    return HasNone(name.data(), name.size(),
                   [](uint64_t word) { return TestNonAscii(word) | TestBelow(word, 0x20) | TestEqual(word, '"'); });
}

char16_t FoldAscii(char16_t c) { return c >= u'A' && c <= u'Z' ? static_cast<char16_t>(c | 0x20) : c; }

bool EqualPlain(std::string_view plain, const char16_t* name)
{
    for (const char c : plain)
        if (FoldAscii(*name++) != FoldAscii(static_cast<unsigned char>(c)))
            return false;
    return *name == 0;
}

} // namespace

FileDocument::FileDocument(std::string text) : m_text(std::move(text)) { BuildIndex(); }

void FileDocument::BuildIndex()
{
    constexpr size_t kTypicalLine = 36;
    const char* p = m_text.data();
    const char* const end = p + m_text.size();
    if (m_text.starts_with(kByteOrderMark))
        p += kByteOrderMark.size();
    std::vector<uint64_t> hashes;
    hashes.reserve(m_text.size() / kTypicalLine + 8);
    m_entries.reserve(hashes.capacity());
    m_nameSizes.reserve(hashes.capacity());
    while (p < end) {
        const auto* const feed = static_cast<const char*>(std::memchr(p, '\n', static_cast<size_t>(end - p)));
        const char* const lineEnd = feed ? feed : end;
        AddLine({p, static_cast<size_t>(lineEnd - p)}, hashes);
        p = feed ? feed + 1 : end;
    }
    m_index.Reset(m_entries.size());
    for (size_t i = 0; i < m_entries.size(); ++i) {
        const auto same = [&](size_t j) { return hashes[j] == hashes[i] && AreNamesEqual(j, i); };
        if (const size_t earlier = m_index.Put(hashes[i], i, same); earlier != kNone)
            m_entries[earlier] |= kSuperseded;
    }
}

void FileDocument::AddLine(std::string_view line, std::vector<uint64_t>& hashes)
{
    ValueParts parts;
    if (!CutLine(line, parts))
        return;
    auto entry = static_cast<Entry>(parts.name.data() - m_text.data());
    if (IsPlainName(parts.name)) {
        hashes.push_back(HashAsciiNoCase(parts.name));
    } else {
        std::u16string name;
        if (!DecodeName(parts.name, name))
            return;
        entry |= kComplex;
        hashes.push_back(HashName(name));
    }
    m_entries.push_back(entry);
    m_nameSizes.push_back(static_cast<uint8_t>(parts.name.size() <= kLargestByte ? parts.name.size() : 0));
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
    DecodeName(PartsAt(entry).name, name);
    return name;
}

bool FileDocument::IsNamed(size_t entry, const char16_t* name) const
{
    return m_entries[entry] & kComplex ? EqualNoCase(NameAt(entry), name) : EqualPlain(PartsAt(entry).name, name);
}

bool FileDocument::AreNamesEqual(size_t a, size_t b) const { return EqualNoCase(NameAt(a), NameAt(b)); }

FileDocument::Found FileDocument::FindAnywhere(const char16_t* name, size_t& next) const
{
    const size_t entry = m_index.Find(HashName(name), [&](size_t i) { return IsNamed(i, name); });
    if (entry == kNone)
        return {};
    next = entry + 1;
    return {entry, ValueAt(entry)};
}

FileDocument::Found FileDocument::FindBefore(size_t entry, const char16_t* name) const
{
    while (entry-- > 0)
        if (!IsLast(entry) && IsNamed(entry, name))
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
    const size_t place = m_entries[entry] & kPlace;
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
    if (!appended.empty() && !text.empty() && text != kByteOrderMark && text.back() != '\n')
        text += text.back() == '\r' ? "\n" : LineEnd();
    return text += appended;
}

} // namespace ostrand
