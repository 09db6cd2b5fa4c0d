// The bytes of one key's file with an index of its values. A document never changes its text: an edit gives the text of
// the next one, and moves no byte but those of the edited values.
#pragma once

#include "stores/file_format.h"
#include "stores/name_index.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace ostrand {

/// One change of a file: a value's new rendered form, or null to take the value away.
struct ValueEdit {
    const char16_t* name;
    const std::string* text;
};

/// Values are numbered in file order; each line with a name and "=" has a number, whether its value parses or not.
/// Names of the parameters are zero-terminated and ignore case.
class FileDocument {
public:
    static constexpr size_t kNone = NameIndex::kNone;
    /// Bytes of the largest file that is read; a number of this size leaves room for the marks of an entry.
    static constexpr size_t kLimit = size_t{1} << 26;

    /// A value's number, and the text from its first byte to the end of the file: the readers of file_format.h stop at
    /// the line's end.
    struct Found {
        size_t entry = kNone;
        std::string_view value;
        explicit operator bool() const { return entry != kNone; }
    };

    FileDocument() = default;
    /// `text` holds at most kLimit bytes.
    explicit FileDocument(std::string text);

    const std::string& Text() const { return m_text; }
    size_t Count() const { return m_entries.size(); }

    /// The last value of that name. `next` is where the caller guesses it, and moves behind it: names are mostly asked
    /// in file order.
    Found Find(const char16_t* name, size_t& next) const
    {
        if (next < m_entries.size() && (m_entries[next] & (kComplex | kSuperseded)) == 0) {
            const ValueParts parts = PartsAt(next);
            if (IsSpelled(parts.name, name))
                return {next++, parts.value};
        }
        return FindAnywhere(name, next);
    }
    /// The one before `entry`, for when its line turns out broken.
    Found FindBefore(size_t entry, const char16_t* name) const;
    /// The last one whose value parses.
    Found FindWhole(const char16_t* name) const;

    std::string_view ValueAt(size_t entry) const { return PartsAt(entry).value; }
    std::u16string NameAt(size_t entry) const;
    /// Line number, from 1.
    size_t LineOf(size_t entry) const;
    /// Whether no later line has this name.
    bool IsLast(size_t entry) const { return (m_entries[entry] & kSuperseded) == 0; }

    /// Notes that the value was read: its text is what the reader knows.
    void MarkRead(size_t entry) { m_entries[entry] |= kRead; }
    /// Calls `take` with the name's hash and the value of each that was read.
    template <class Take>
    void ForEachRead(Take take) const
    {
        for (size_t i = 0; i < m_entries.size(); ++i) {
            if ((m_entries[i] & kRead) == 0)
                continue;
            const ValueParts parts = PartsAt(i);
            take(m_entries[i] & kComplex ? HashName(NameAt(i)) : HashAsciiNoCase(parts.name), parts.value);
        }
    }

    /// The whole text after the edits, each of another name. A changed value keeps its line but for the value's own
    /// bytes; of several lines with its name the last whole one changes. A value that goes takes all its whole lines
    /// along. New values go to the end, in the order of the edits. Broken lines stay.
    std::string WithEdits(std::span<const ValueEdit> edits) const;

private:
    /// Place of the name's first byte, and marks above it: four bytes for each value in memory.
    using Entry = uint32_t;
    static constexpr Entry kPlace = kLimit - 1;
    static constexpr Entry kRead = 1u << 31;
    static constexpr Entry kComplex = 1u << 30;    // the name has quotes, or is no plain ASCII
    static constexpr Entry kSuperseded = 1u << 29; // a later line has the same name

    struct Replacement {
        size_t from, to;
        std::string_view text;
    };

    const char* NameStart(size_t entry) const { return m_text.data() + (m_entries[entry] & kPlace); }
    /// The sides of a line as a save writes it, else by a closer look.
    ValueParts PartsAt(size_t entry) const
    {
        const char* const name = NameStart(entry);
        const size_t size = m_nameSizes[entry];
        const char* const p = name + size;
        // The zero behind the text ends each of these looks.
        if (size == 0 || p[0] != ' ' || p[1] != '=' || p[2] != ' ' || p[3] == ' ' || p[3] == '\t')
            return CutParts(name);
        return {{name, size}, {p + 3, static_cast<size_t>(m_text.data() + m_text.size() - p) - 3}};
    }
    ValueParts CutParts(const char* name) const;
    /// A plain name never holds a zero, so a shorter `name` ends the walk at its terminator.
    static bool IsSpelled(std::string_view plain, const char16_t* name)
    {
        for (const char c : plain)
            if (*name++ != static_cast<unsigned char>(c))
                return false;
        return *name == 0;
    }
    Found FindAnywhere(const char16_t* name, size_t& next) const;
    bool IsNamed(size_t entry, const char16_t* name) const;
    bool AreNamesEqual(size_t a, size_t b) const;
    void AddLine(std::string_view line, std::vector<uint64_t>& hashes);
    void BuildIndex();
    void AddReplacements(const ValueEdit& edit, std::vector<Replacement>& list, std::string& appended) const;
    Replacement LineRange(size_t entry) const;
    std::string_view LineEnd() const;

    std::string m_text;
    std::vector<Entry> m_entries;
    std::vector<uint8_t> m_nameSizes; // bytes of each name as spelled; 0 for a long one
    NameIndex m_index;                // the last line of each name
};

} // namespace ostrand
