// The bytes of one key's file and the values in it. A document never changes its text: an edit gives the text of the
// next one, and moves no byte but those of the edited values.
#pragma once

#include "stores/asked_name.h"
#include "stores/entry_list.h"
#include "stores/file_format.h"
#include "stores/name_layout.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace ostrand {

/// One change of a file: a value's new rendered form, or null to take the value away.
struct ValueEdit {
    const char16_t* name;
    const std::string* text;
};

/// Values are numbered in file order; each line with a name and "=" has a number, whether its value parses or not.
/// Names of the parameters are zero-terminated and ignore case.
///
/// The text is cut into lines when a question needs that, so that a file which is only written, or asked for one value,
/// costs less. Questions to a document that was cut change nothing but marks of values that were read, and those may
/// come from several threads.
class FileDocument {
public:
    static constexpr size_t kNone = NameIndex::kNone;
    /// Bytes of the largest file that is read; a number of this size leaves room for the mark of an entry.
    static constexpr size_t kLimit = size_t{1} << 26;

    /// A value's number, and the text from its first byte to the end of the file: the readers of file_format.h stop at
    /// the line's end.
    struct Found {
        size_t entry = kNone;
        std::string_view value;
        explicit operator bool() const { return entry != kNone; }
    };

    FileDocument() = default;
    /// `text` holds at most kLimit bytes. The pool, if any, must live as long as the document.
    explicit FileDocument(std::string text, LayoutPool* pool = nullptr) : m_text(std::move(text)), m_pool(pool) {}

    const std::string& Text() const { return m_text; }
    size_t Count() const
    {
        Cut();
        return m_entries.Count();
    }

    void Cut() const
    {
        if (!m_layout)
            CutNow();
    }
    bool IsCut() const { return m_layout != nullptr; }

    /// The last value of that name. `next` is where the caller guesses it, and moves behind it: names are mostly asked
    /// in file order.
    Found Find(const char16_t* name, size_t& next) const
    {
        const std::string_view value = FindNext(name, next);
        return value.data() ? Found{next++, value} : FindAnywhere(name, next);
    }
    /// The same where the guess is right; a null view elsewhere. `next` stays.
    std::string_view FindNext(const char16_t* name, size_t next) const
    {
        if (next >= m_entries.Count() || !m_layout->IsSimple(next))
            return {};
        const ValueParts parts = PartsAt(next);
        return IsSpelled(parts.name, name) ? parts.value : std::string_view();
    }
    /// The same where it isn't; `next` moves if there is such a value.
    Found FindAnywhere(const char16_t* name, size_t& next) const;
    /// The one before `entry`, for when its line turns out broken.
    Found FindBefore(size_t entry, const char16_t* name) const;
    /// The last one whose value parses.
    Found FindWhole(const char16_t* name) const;

    std::string_view ValueAt(size_t entry) const
    {
        return entry == kScanned ? CutParts(NameStart(entry)).value : PartsAt(entry).value;
    }
    std::u16string NameAt(size_t entry) const;
    /// Line number, from 1.
    size_t LineOf(size_t entry) const;
    /// Whether no later line has this name.
    bool IsLast(size_t entry) const { return m_layout->IsLast(entry); }
    /// HashName of the value's name.
    uint64_t HashOf(size_t entry) const;
    /// Null until the text was cut.
    const std::shared_ptr<const NameLayout>& Layout() const { return m_layout; }

    /// Notes that the value was read: its text is what the reader knows.
    void MarkRead(size_t entry) const
    {
        if (entry == kScanned)
            m_wasScannedRead = true;
        else
            m_entries.SetRead(entry, true);
    }
    /// Whether that many values are marked.
    bool HasRead(size_t count) const;
    /// Calls `take` with the number of each marked value, and takes the mark away.
    template <class Take>
    void TakeRead(Take take) const
    {
        for (size_t i = 0; i < m_entries.Count(); ++i)
            if (m_entries.WasRead(i)) {
                m_entries.SetRead(i, false);
                take(i);
            }
        if (std::exchange(m_wasScannedRead, false))
            take(kScanned);
    }

    /// The whole text after the edits, each of another name. A changed value keeps its line but for the value's own
    /// bytes; of several lines with its name the last whole one changes. A value that goes takes all its whole lines
    /// along. New values go to the end, in the order of the edits. Broken lines stay.
    std::string WithEdits(std::span<const ValueEdit> edits) const;

private:
    struct Replacement {
        size_t from, to;
        std::string_view text;
    };

    /// Stands for the number of a value that was found without cutting the text.
    static constexpr size_t kScanned = kNone - 1;
    static constexpr uint32_t kNoPlace = static_cast<uint32_t>(-1);

    const char* NameStart(size_t entry) const
    {
        return m_text.data() + (entry == kScanned ? m_scannedPlace : m_entries.PlaceOf(entry));
    }
    /// The sides of a line as a save writes it, else by a closer look.
    ValueParts PartsAt(size_t entry) const
    {
        const char* const name = m_text.data() + m_entries.PlaceOf(entry);
        const size_t size = m_layout->SizeOf(entry);
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
        const auto isSame = [&](size_t i) { return name[i] == static_cast<unsigned char>(plain[i]); };
        size_t i = 0;
        for (; i + 4 <= plain.size(); i += 4)
            if (!isSame(i) || !isSame(i + 1) || !isSame(i + 2) || !isSame(i + 3))
                return false;
        for (; i < plain.size(); ++i)
            if (!isSame(i))
                return false;
        return name[i] == 0;
    }
    void CutNow() const;
    /// False where the text has to be cut to know.
    bool FindUncut(const AskedName& name, Found& found) const;
    bool IsNamed(size_t entry, const AskedName& name) const;
    void AddReplacements(const ValueEdit& edit, std::vector<Replacement>& list, std::string& appended) const;
    Replacement LineRange(size_t entry) const;
    std::string_view LineEnd() const;

    std::string m_text;
    LayoutPool* m_pool = nullptr;
    // Null and empty until the text is cut.
    mutable std::shared_ptr<const NameLayout> m_layout;
    mutable EntryList m_entries;
    // Of the name that was looked for before that, once it was found.
    mutable unsigned m_uncutFinds = 0;
    mutable uint32_t m_scannedPlace = kNoPlace;
    mutable bool m_wasScannedRead = false;
};

} // namespace ostrand
