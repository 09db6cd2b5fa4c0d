#include "dialogs/kit/user_input.h"

#include "dialogs/kit/property_tree.h"
#include "keymap/virtual_keys.h"

#include <algorithm>

namespace ostrand {

template <class C>
C* VUserInput::Reach(VControlId id)
{
    auto* const control = dynamic_cast<C*>(m_form.Find(id));
    if (!control || !m_form.SetFocus(id))
        return nullptr;
    return control->CanFocus() ? control : nullptr; // who lost the focus may have taken the control away
}

bool VUserInput::Click(VControlId id)
{
    if (auto* const button = Reach<VButtonControl>(id)) {
        m_form.Press(*button);
        return true;
    }
    auto* const box = Reach<VCheckControl>(id);
    if (!box)
        return false;
    box->SetState(box->NextState());
    m_form.ControlEvent(*box, VEventKind::Clicked);
    return true;
}

bool VUserInput::ChooseOption(VControlId group, int index)
{
    const auto* const wanted = dynamic_cast<const VRadioControl*>(m_form.Find(group));
    if (!wanted || index < 0 || index >= wanted->GetCount() ||
        !wanted->GetOptions()[static_cast<size_t>(index)].isEnabled)
        return false;
    auto* const radio = Reach<VRadioControl>(group);
    if (!radio)
        return false;
    radio->SetIndex(index);
    m_form.ControlEvent(*radio, VEventKind::Clicked);
    return true;
}

bool VUserInput::Type(VControlId id, std::u16string_view text)
{
    auto* const edit = Reach<VEditControl>(id);
    if (!edit || edit->IsReadOnly() || !edit->Accepts(text))
        return false;
    VUnicodeString typed(text);
    if (edit->IsMasked())
        typed.MarkSensitive(); // so that no copy on the way outlives it in clear
    edit->SetText(typed);
    return true;
}

bool VUserInput::SelectText(VControlId id, VEditControl::Range range)
{
    auto* const edit = Reach<VEditControl>(id);
    if (!edit)
        return false;
    edit->Select(range);
    return true;
}

bool VUserInput::ChooseEntry(VControlId id, int index)
{
    auto* const list = Reach<VListControl>(id);
    if (!list || index < 0 || index >= list->GetCount())
        return false;
    list->Select(index);
    m_form.ControlEvent(*list, VEventKind::SelectionChanged);
    return true;
}

bool VUserInput::SelectRows(VControlId id, const std::vector<int>& rows)
{
    auto* const report = Reach<VReportControl>(id);
    const auto isRow = [&](int row) { return row >= 0 && row < report->GetCount(); };
    if (!report || !std::all_of(rows.begin(), rows.end(), isRow) ||
        (rows.size() > 1 && !report->GetItem().Has(VItemFlag::MultiSelect)))
        return false;
    report->SelectRows(rows);
    return true;
}

bool VUserInput::DoubleClick(VControlId id, int row)
{
    if (!SelectRows(id, {row}))
        return false;
    auto* const report = Reach<VReportControl>(id); // its new selection may have disabled it
    if (!report)
        return false;
    m_form.ControlEvent(*report, VEventKind::DoubleClicked);
    return true;
}

bool VUserInput::ChoosePage(VPropertyTreePage& page)
{
    VPropertyTreeDialog* const dialog = page.IsInVisibleTree() ? ReachTree() : nullptr;
    return dialog && dialog->SelectPage(page);
}

VPropertyTreeDialog* VUserInput::ReachTree()
{
    auto* const dialog = dynamic_cast<VPropertyTreeDialog*>(&m_form.Top());
    return dialog && dialog->SetFocus(VPropertyTreeDialog::PageTree) ? dialog : nullptr;
}

bool VUserInput::ChooseTreeRow(int row)
{
    VPropertyTreeDialog* const dialog = ReachTree();
    return dialog && row >= 0 && dialog->SelectRow(static_cast<size_t>(row));
}

bool VUserInput::OpenTreeRow(int row)
{
    VPropertyTreeDialog* const dialog = ReachTree();
    return dialog && row >= 0 && dialog->OpenRow(static_cast<size_t>(row));
}

bool VUserInput::PressKey(const VKeyEvent& key)
{
    auto* const dialog = dynamic_cast<VDialog*>(&m_form.Top());
    if (!dialog || VirtualKeyName(key.virtualKey).View().starts_with(u"0x"))
        return false;
    dialog->HandleKey(key);
    return true;
}

} // namespace ostrand
