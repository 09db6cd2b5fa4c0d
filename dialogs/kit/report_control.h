// VReportControl: rows of cells below column headings, as lists of objects are shown.
#pragma once

#include "core/array.h"
#include "dialogs/kit/control.h"

#include <any>
#include <vector>

namespace ostrand {

/// Rows are selected whole. SelectionChanged is raised by every change of the selection, also by those that code makes.
/// Indices outside the rows raise OutOfRange.
class OSTRAND_API VReportControl final : public VControl {
public:
    using OutOfRange = VArray<VUnicodeString>::OutOfRange;

    VReportControl(IControlOwner& owner, const VTemplateItem& item, const char16_t* label);

    struct Column {
        VUnicodeString heading;
        int width; ///< pixels
    };
    struct Row {
        std::vector<VUnicodeString> cells;
        std::any data; ///< the page's own; freed with the row
        int image = -1;
        bool isSelected = false;
    };
    const std::vector<Column>& GetColumns() const { return m_columns; }
    void AddColumn(const VUnicodeString& heading, int width);
    void SetColumnWidth(int column, int width);

    const std::vector<Row>& GetRows() const { return m_rows; }
    int GetCount() const { return static_cast<int>(m_rows.size()); }
    /// At the index, or in the place of its first cell in a sorted report; the answer is where it went. One beyond the
    /// end is the end.
    int Insert(int index, std::vector<VUnicodeString> cells, std::any data = {});
    void Remove(int row);
    void Clear();
    void SetCell(int row, int column, const VUnicodeString& text);
    void SetImage(int row, int image);

    const Row& operator[](int row) const { return m_rows[Checked(row)]; }
    /// The row's data as what it was given as; null for another class.
    template <class T>
    T* DataOf(int row)
    {
        return std::any_cast<T>(&m_rows[Checked(row)].data);
    }

    /// The first selected row; -1 for none.
    int GetSelected() const;
    int CountSelected() const;
    /// Selects this row alone; -1 selects none. The view brings it into sight.
    void Select(int row);
    /// Selects these rows and no others; of a report for one row the first.
    void SelectRows(const std::vector<int>& rows);

    VUnicodeString Dump() const override;

private:
    size_t Checked(int row) const;

    std::vector<Column> m_columns;
    std::vector<Row> m_rows;
};

} // namespace ostrand
