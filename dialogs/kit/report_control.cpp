#include "dialogs/kit/report_control.h"

#include "dialogs/kit/sorted_place.h"
#include "dialogs/kit/translate.h"

#include <algorithm>

namespace ostrand {

VReportControl::VReportControl(IControlOwner& owner, const VTemplateItem& item, const char16_t* label)
    : VControl(owner, item, label)
{
    const VTemplateItem* const end = &item + 1 + item.descendants;
    for (const VTemplateItem* part = &item + 1; part != end; ++part)
        m_columns.push_back({Translate(part->text), part->width});
}

void VReportControl::AddColumn(const VUnicodeString& heading, int width)
{
    m_columns.push_back({heading, width});
    Changed(VChange::Items);
}

void VReportControl::SetColumnWidth(int column, int width)
{
    if (column < 0 || static_cast<size_t>(column) >= m_columns.size())
        throw OutOfRange();
    Assign(m_columns[static_cast<size_t>(column)].width, width, VChange::Size);
}

int VReportControl::Insert(int index, std::vector<VUnicodeString> cells, std::any data)
{
    cells.resize(std::max(cells.size(), m_columns.size()));
    size_t place = static_cast<size_t>(std::clamp(index, 0, GetCount()));
    if (GetItem().Has(VItemFlag::Sorted) && !cells.empty())
        place = SortedPlace(cells.front(), m_rows.size(),
                            [&](size_t i) -> const VUnicodeString& { return m_rows[i].cells.front(); });
    m_rows.insert(m_rows.begin() + static_cast<std::ptrdiff_t>(place), Row{std::move(cells), std::move(data)});
    Changed(VChange::Items);
    return static_cast<int>(place);
}

void VReportControl::Remove(int row)
{
    const auto at = m_rows.begin() + static_cast<std::ptrdiff_t>(Checked(row));
    const bool wasSelected = at->isSelected;
    m_rows.erase(at);
    Changed(VChange::Items);
    if (wasSelected)
        Raise(VEventKind::SelectionChanged);
}

void VReportControl::Clear()
{
    const bool hadSelection = GetSelected() >= 0;
    m_rows.clear();
    Changed(VChange::Items);
    if (hadSelection)
        Raise(VEventKind::SelectionChanged);
}

void VReportControl::SetCell(int row, int column, const VUnicodeString& text)
{
    std::vector<VUnicodeString>& cells = m_rows[Checked(row)].cells;
    if (column < 0 || static_cast<size_t>(column) >= cells.size())
        throw OutOfRange();
    Assign(cells[static_cast<size_t>(column)], text, VChange::Items);
}

void VReportControl::SetImage(int row, int image) { Assign(m_rows[Checked(row)].image, image, VChange::Items); }

size_t VReportControl::Checked(int row) const
{
    if (row < 0 || row >= GetCount())
        throw OutOfRange();
    return static_cast<size_t>(row);
}

int VReportControl::GetSelected() const
{
    const auto found = std::find_if(m_rows.begin(), m_rows.end(), [](const Row& row) { return row.isSelected; });
    return found == m_rows.end() ? -1 : static_cast<int>(found - m_rows.begin());
}

int VReportControl::CountSelected() const
{
    return static_cast<int>(std::count_if(m_rows.begin(), m_rows.end(), [](const Row& row) { return row.isSelected; }));
}

void VReportControl::Select(int row) { SelectRows(row < 0 ? std::vector<int>() : std::vector<int>{row}); }

void VReportControl::SelectRows(const std::vector<int>& rows)
{
    std::vector<bool> selected(m_rows.size());
    for (const int row : rows) {
        selected[Checked(row)] = true;
        if (!GetItem().Has(VItemFlag::MultiSelect))
            break;
    }
    bool isChange = false;
    for (size_t i = 0; i < m_rows.size(); ++i) {
        isChange = isChange || m_rows[i].isSelected != selected[i];
        m_rows[i].isSelected = selected[i];
    }
    if (!isChange)
        return;
    Changed(VChange::Selection);
    Raise(VEventKind::SelectionChanged);
}

VUnicodeString VReportControl::Dump() const
{
    VUnicodeString text = VControl::Dump();
    for (const Row& row : m_rows) {
        text += row.isSelected ? u"\n  * " : u"\n    ";
        for (const VUnicodeString& cell : row.cells)
            text += cell + u" | ";
    }
    return text;
}

} // namespace ostrand
