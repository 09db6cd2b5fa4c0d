#include "dialogs/kit/list_control.h"

#include "dialogs/kit/sorted_place.h"
#include "dialogs/kit/translate.h"

#include <algorithm>

namespace ostrand {

namespace {

template <class Fits>
int IndexOf(const std::vector<VListControl::Entry>& entries, const Fits& fits)
{
    const auto found = std::find_if(entries.begin(), entries.end(), fits);
    return found == entries.end() ? -1 : static_cast<int>(found - entries.begin());
}

} // namespace

VListControl::VListControl(IControlOwner& owner, const VTemplateItem& item, const char16_t* label)
    : VControl(owner, item, label)
{
    const VTemplateItem* const end = &item + 1 + item.descendants;
    for (const VTemplateItem* part = &item + 1; part != end; ++part)
        m_entries.push_back({Translate(part->text), part->hasData ? part->data : GetCount(), part->text});
}

int VListControl::Add(const VUnicodeString& text, int data, const VUnicodeString& value)
{
    const bool isSorted = GetItem().Has(VItemFlag::Sorted);
    const size_t place = isSorted ? SortedPlace(text, m_entries.size(),
                                                [&](size_t i) -> const VUnicodeString& { return m_entries[i].text; })
                                  : m_entries.size();
    Insert(place, {text, data, value});
    return static_cast<int>(place);
}

void VListControl::InsertAt(int index, const VUnicodeString& text, int data)
{
    Insert(static_cast<size_t>(std::clamp(index, 0, GetCount())), {text, data, text});
}

void VListControl::Insert(size_t index, const Entry& entry)
{
    m_entries.insert(m_entries.begin() + static_cast<std::ptrdiff_t>(index), entry);
    if (m_selection >= static_cast<int>(index))
        ++m_selection;
    Changed(VChange::Items);
}

void VListControl::RemoveAt(int index)
{
    m_entries.erase(m_entries.begin() + static_cast<std::ptrdiff_t>(Checked(index)));
    if (m_selection == index)
        m_selection = -1;
    else if (m_selection > index)
        --m_selection;
    Changed(VChange::Items);
}

void VListControl::Clear()
{
    m_entries.clear();
    m_selection = -1;
    Changed(VChange::Items);
}

size_t VListControl::Checked(int index) const
{
    if (index < 0 || index >= GetCount())
        throw VStringArray::OutOfRange();
    return static_cast<size_t>(index);
}

int VListControl::Find(std::u16string_view text) const
{
    return IndexOf(m_entries, [&](const Entry& entry) { return entry.text == text; });
}

int VListControl::FindNoCase(std::u16string_view text) const
{
    return IndexOf(m_entries, [&](const Entry& entry) { return EqualNoCase(entry.text, text); });
}

int VListControl::FindData(int data) const
{
    return IndexOf(m_entries, [&](const Entry& entry) { return entry.data == data; });
}

int VListControl::FindValue(std::u16string_view value) const
{
    return IndexOf(m_entries, [&](const Entry& entry) { return entry.value == value; });
}

void VListControl::Select(int index)
{
    Assign(m_selection, index >= 0 && index < GetCount() ? index : -1, VChange::Selection);
}

VUnicodeString VListControl::GetSelectedText() const
{
    return m_selection < 0 ? VUnicodeString() : m_entries[static_cast<size_t>(m_selection)].text;
}

int VListControl::GetSelectedData() const
{
    return m_selection < 0 ? -1 : m_entries[static_cast<size_t>(m_selection)].data;
}

VUnicodeString VListControl::GetSelectedValue() const
{
    return m_selection < 0 ? VUnicodeString() : m_entries[static_cast<size_t>(m_selection)].value;
}

VUnicodeString VListControl::Dump() const { return VControl::Dump() + u": \"" + GetSelectedText() + u"\""; }

void VPopulateComboBox(VListControl& list, const VStringArray& texts, std::u16string_view selected)
{
    list.Clear();
    for (const VUnicodeString& text : texts)
        list.Add(text, list.GetCount());
    list.Select(list.Find(selected));
}

} // namespace ostrand
