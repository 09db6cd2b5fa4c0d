// From the layout items of a template to Qt's layouts.
#pragma once

#include "platform/qt/field_label.h"
#include "platform/qt/form_widget.h"

#include <QBoxLayout>
#include <QGridLayout>

#include <map>

namespace ostrand::qt {

/// Puts a form's widgets, which exist, into layouts.
class LayoutBuilder {
public:
    explicit LayoutBuilder(FormWidget& form) : m_form(form) {}

    void FillForm(FormWidget::Margins margins);

private:
    /// A widget or a layout.
    struct Piece {
        QWidget* widget = nullptr;
        QLayout* layout = nullptr;
    };

    std::span<const VTemplateItem> Items() const;
    template <class F>
    void ForEachChild(size_t container, const F& visit) const;
    template <class F>
    bool AnyChild(size_t container, const F& wanted) const;
    bool WantsWidth(size_t item) const;
    bool WantsHeight(size_t item) const;
    bool IsOfButtons(size_t item) const;
    int RoomBetween(size_t above, size_t below) const;

    /// Children one below the other, the labels of fields in one column.
    void FillColumn(size_t container, QGridLayout& grid);
    void FillRow(size_t container, QBoxLayout& row);
    /// Labels of fields in groups that stand in one column.
    void AlignGroups(size_t container);
    void AddField(size_t field, QGridLayout& grid, int line);
    void AddAcross(size_t container, size_t item, QGridLayout& grid, int line);
    void AddToRow(size_t item, bool isLast, QBoxLayout& row);
    QLabel* MakeFieldLabel(size_t field);
    Piece MakePiece(size_t item);
    Piece MakeRow(size_t item);
    /// The page tree, and beside it what it leads to, in widths that the user divides.
    Piece MakeSplitter(size_t row);
    void FillRadio(size_t radio);

    FormWidget& m_form;
    std::map<size_t, FieldLabel*> m_labels; // of fields
};

} // namespace ostrand::qt
