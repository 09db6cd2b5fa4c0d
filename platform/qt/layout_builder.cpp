#include "platform/qt/layout_builder.h"

#include "platform/qt/controls/radio_widget.h"
#include "platform/qt/metrics.h"

#include <QSplitter>
#include <QStyle>

#include <algorithm>

namespace ostrand::qt {

std::span<const VTemplateItem> LayoutBuilder::Items() const { return m_form.Model().GetTemplate().Items(); }

template <class F>
void LayoutBuilder::ForEachChild(size_t container, const F& visit) const
{
    const size_t end = container + Items()[container].descendants;
    for (size_t child = container + 1; child <= end; child += 1u + Items()[child].descendants)
        visit(child);
}

template <class F>
bool LayoutBuilder::AnyChild(size_t container, const F& wanted) const
{
    bool any = false;
    ForEachChild(container, [&](size_t child) { any = any || wanted(child); });
    return any;
}

bool LayoutBuilder::WantsWidth(size_t item) const
{
    switch (Items()[item].kind) {
    case VItemKind::Stretch:
    case VItemKind::Group:
    case VItemKind::MultiLine:
    case VItemKind::Report:
    case VItemKind::Tree:
    case VItemKind::Place:
        return true;
    default:
        return Items()[item].Has(VItemFlag::Grow) || AnyChild(item, [this](size_t child) { return WantsWidth(child); });
    }
}

bool LayoutBuilder::WantsHeight(size_t item) const
{
    switch (Items()[item].kind) {
    case VItemKind::MultiLine:
    case VItemKind::Report:
    case VItemKind::Tree:
    case VItemKind::Place:
        return Items()[item].Has(VItemFlag::Grow);
    default:
        return AnyChild(item, [this](size_t child) { return WantsHeight(child); });
    }
}

void LayoutBuilder::FillForm(FormWidget::Margins margins)
{
    auto* const grid = new QGridLayout(&m_form);
    if (margins == FormWidget::Margins::Window)
        grid->setContentsMargins(Gutter(m_form), grid->contentsMargins().top(), Gutter(m_form),
                                 grid->contentsMargins().bottom());
    else if (margins == FormWidget::Margins::Page)
        grid->setContentsMargins(Gutter(m_form), VerticalSpacing(m_form), 0, 0);
    else
        grid->setContentsMargins({});
    FillColumn(0, *grid);
}

// Columns

void LayoutBuilder::FillColumn(size_t container, QGridLayout& grid)
{
    int line = 0;
    size_t above = container;
    ForEachChild(container, [&](size_t child) {
        if (above != container)
            grid.setRowMinimumHeight(line++, RoomBetween(above, child));
        above = child;
        if (WantsHeight(child))
            grid.setRowStretch(line, 1);
        if (Items()[child].kind == VItemKind::Field)
            AddField(child, grid, line);
        else if (Items()[child].kind == VItemKind::Stretch)
            grid.setRowStretch(line, 1);
        else
            AddAcross(container, child, grid, line);
        ++line;
    });
    grid.setColumnStretch(1, 1);
    if (!WantsHeight(container))
        grid.setRowStretch(line, 1); // room that is left stays below
    AlignGroups(container);
}

/// What sets groups, and the buttons that end a dialog, apart; beyond the spacing of all rows.
int LayoutBuilder::RoomBetween(size_t above, size_t below) const
{
    const auto isGroup = [this](size_t item) {
        return Items()[item].kind == VItemKind::Group || Items()[item].kind == VItemKind::Place;
    };
    const bool isEnd = Items()[below].kind == VItemKind::Row &&
                       AnyChild(below, [this](size_t item) { return Items()[item].data != 0; });
    return isGroup(above) || isGroup(below) || isEnd ? VerticalSpacing(m_form) : 0;
}

void LayoutBuilder::AlignGroups(size_t container)
{
    FieldLabel::Groups groups;
    ForEachChild(container, [&](size_t group) {
        if (Items()[group].kind != VItemKind::Group)
            return;
        groups.emplace_back();
        ForEachChild(group, [&](size_t field) {
            if (Items()[field].kind == VItemKind::Field)
                groups.back().push_back(m_labels.at(field));
        });
    });
    const auto shared = std::make_shared<const FieldLabel::Groups>(groups);
    for (const auto& [field, label] : m_labels)
        for (const auto& group : groups)
            if (std::ranges::find(group, label) != group.end())
                label->AlignWith(shared);
}

QLabel* LayoutBuilder::MakeFieldLabel(size_t field)
{
    auto* const label = new FieldLabel(&m_form);
    m_labels[field] = label;
    m_form.OfItem(field + 1)->SetFieldLabel(label);
    return label;
}

void LayoutBuilder::AddField(size_t field, QGridLayout& grid, int line)
{
    const bool isTall = Items()[field + 1].kind == VItemKind::MultiLine || Items()[field + 1].kind == VItemKind::Report;
    const auto across =
        static_cast<Qt::Alignment>(m_form.style()->styleHint(QStyle::SH_FormLayoutLabelAlignment, nullptr, &m_form));
    grid.addWidget(MakeFieldLabel(field), line, 0,
                   (across & Qt::AlignHorizontal_Mask) | (isTall ? Qt::AlignTop : Qt::AlignVCenter));
    auto* const row = new QHBoxLayout;
    FillRow(field, *row);
    grid.addLayout(row, line, 1);
}

void LayoutBuilder::AddAcross(size_t container, size_t item, QGridLayout& grid, int line)
{
    const VItemKind kind = Items()[item].kind;
    const Piece piece = MakePiece(item);
    if (piece.layout)
        return grid.addLayout(piece.layout, line, 0, 1, 2);
    const bool isOfColumn = kind == VItemKind::Button && Items()[container].kind == VItemKind::Column;
    const bool fills = isOfColumn || kind == VItemKind::Label || kind == VItemKind::Radio || WantsWidth(item);
    grid.addWidget(piece.widget, line, 0, 1, 2, fills ? Qt::Alignment() : Qt::AlignLeading);
}

// Rows

bool LayoutBuilder::IsOfButtons(size_t item) const
{
    return Items()[item].kind == VItemKind::Column &&
           !AnyChild(item, [this](size_t child) { return Items()[child].kind != VItemKind::Button; });
}

void LayoutBuilder::FillRow(size_t container, QBoxLayout& row)
{
    size_t last = container;
    ForEachChild(container, [&](size_t child) { last = child; });
    ForEachChild(container, [&](size_t child) { AddToRow(child, child == last, row); });
    const bool endsInLabel = Items()[last].kind == VItemKind::Label;
    if (!endsInLabel && !AnyChild(container, [this](size_t child) { return WantsWidth(child); }))
        row.addStretch(1);
}

void LayoutBuilder::AddToRow(size_t item, bool isLast, QBoxLayout& row)
{
    const VItemKind kind = Items()[item].kind;
    if (kind == VItemKind::Stretch)
        return row.addStretch(1);
    if (!row.isEmpty() && kind != VItemKind::Button && kind != VItemKind::Label && !IsOfButtons(item))
        row.addSpacing(Gutter(m_form)); // its marks stand there
    if (kind == VItemKind::Field) {
        row.addWidget(MakeFieldLabel(item));
        auto* const inner = new QHBoxLayout;
        ForEachChild(item, [&](size_t child) { AddToRow(child, false, *inner); });
        return row.addLayout(inner, WantsWidth(item) ? 1 : 0);
    }
    const int stretch = WantsWidth(item) || (isLast && kind == VItemKind::Label) ? 1 : 0;
    const Piece piece = MakePiece(item);
    if (piece.layout)
        row.addLayout(piece.layout, stretch);
    else
        row.addWidget(piece.widget, stretch, kind == VItemKind::Icon ? Qt::AlignTop : Qt::Alignment());
}

// Pieces

LayoutBuilder::Piece LayoutBuilder::MakePiece(size_t item)
{
    const VItemKind kind = Items()[item].kind;
    if (kind == VItemKind::Row)
        return MakeRow(item);
    if (kind == VItemKind::Column) {
        auto* const grid = new QGridLayout;
        FillColumn(item, *grid);
        return {nullptr, grid};
    }
    QWidget* const widget = m_form.OfItem(item)->Widget();
    if (kind == VItemKind::Group) {
        auto* const grid = new QGridLayout(widget);
        QMargins margins = grid->contentsMargins();
        margins.setLeft(Gutter(m_form));
        margins.setRight(Gutter(m_form));
        grid->setContentsMargins(margins);
        FillColumn(item, *grid);
    } else if (kind == VItemKind::Radio) {
        FillRadio(item);
    }
    return {widget, nullptr};
}

LayoutBuilder::Piece LayoutBuilder::MakeRow(size_t item)
{
    const size_t end = item + Items()[item].descendants;
    for (size_t i = item; i <= end; ++i)
        if (Items()[i].kind == VItemKind::Tree)
            return MakeSplitter(item);
    auto* const row = new QHBoxLayout;
    FillRow(item, *row);
    return {nullptr, row};
}

LayoutBuilder::Piece LayoutBuilder::MakeSplitter(size_t item)
{
    auto* const splitter = new QSplitter(&m_form);
    splitter->setChildrenCollapsible(false);
    splitter->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    ForEachChild(item, [&](size_t child) {
        auto* const pane = new QWidget;
        auto* const grid = new QGridLayout(pane);
        const bool isFirst = splitter->count() == 0;
        grid->setContentsMargins(isFirst ? 0 : HorizontalSpacing(m_form), 0, isFirst ? HorizontalSpacing(m_form) : 0,
                                 0);
        FillColumn(child, *grid);
        splitter->addWidget(pane);
        splitter->setStretchFactor(splitter->count() - 1, isFirst ? 0 : 1);
    });
    return {splitter, nullptr};
}

void LayoutBuilder::FillRadio(size_t item)
{
    const auto& radio = static_cast<const RadioWidget&>(*m_form.OfItem(item));
    auto* const column = new QVBoxLayout(radio.Widget());
    column->setContentsMargins({});
    int index = 0;
    ForEachChild(item, [&](size_t option) {
        auto* const row = new QHBoxLayout;
        row->addWidget(radio.ButtonOf(index++));
        FillRow(option, *row);
        column->addLayout(row);
    });
}

} // namespace ostrand::qt
