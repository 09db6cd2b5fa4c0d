// Rows of a search's hits: the setting's name, and in a second, quiet line the page that it stands on.
#pragma once

#include <QStyledItemDelegate>

namespace ostrand::qt {

class HitRows final : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
};

} // namespace ostrand::qt
