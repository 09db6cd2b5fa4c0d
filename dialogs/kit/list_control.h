// VListControl: a drop list, entries with a number each, of which one or none is selected.
#pragma once

#include "core/array.h"
#include "dialogs/kit/control.h"

#include <vector>

namespace ostrand {

class OSTRAND_API VListControl final : public VControl {
public:
    VListControl(IControlOwner& owner, const VTemplateItem& item, const char16_t* label);

    struct Entry {
        VUnicodeString text; ///< as it is shown
        int data;
        VUnicodeString value; ///< what records keep for it: in a template's entries the text before its translation
    };
    const std::vector<Entry>& GetEntries() const { return m_entries; }
    int GetCount() const { return static_cast<int>(m_entries.size()); }
    /// At the end, or in its place of a sorted list. The answer is its index. The selection stays with its entry.
    int Add(const VUnicodeString& text, int data) { return Add(text, data, text); }
    /// The same for an entry that records keep as another text than the one that is shown.
    int Add(const VUnicodeString& text, int data, const VUnicodeString& value);
    /// At the index, also in a sorted list; one beyond the end is the end.
    void InsertAt(int index, const VUnicodeString& text, int data);
    /// OutOfRange for an index without an entry. A selected entry leaves none selected.
    void RemoveAt(int index);
    void Clear();

    /// OutOfRange outside the list.
    const Entry& operator[](int index) const { return m_entries[Checked(index)]; }
    /// The first entry with exactly this text, number or value; -1 for none.
    int Find(std::u16string_view text) const;
    int FindNoCase(std::u16string_view text) const;
    int FindData(int data) const;
    int FindValue(std::u16string_view value) const;

    /// -1 for none.
    int GetSelection() const { return m_selection; }
    /// Raises no event. An index outside the list selects none.
    void Select(int index);
    /// Text, number and value of the selected entry; empty and -1 for none.
    VUnicodeString GetSelectedText() const;
    int GetSelectedData() const;
    VUnicodeString GetSelectedValue() const;

    VUnicodeString Dump() const override;

private:
    size_t Checked(int index) const;
    void Insert(size_t index, const Entry& entry);

    std::vector<Entry> m_entries;
    int m_selection = -1;
};

/// Fills a list with texts, each with its place as its number, and selects one of them by its exact text, or none.
OSTRAND_API void VPopulateComboBox(VListControl& list, const VStringArray& texts, std::u16string_view selected);

} // namespace ostrand
