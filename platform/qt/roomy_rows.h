// Rows of lists and trees with some room around their text.
#pragma once

#include <QStyledItemDelegate>

#include <algorithm>

namespace ostrand::qt {

class RoomyRows : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        const QSize hint = QStyledItemDelegate::sizeHint(option, index);
        return {hint.width(), std::max(hint.height(), option.fontMetrics.height() * 3 / 2)};
    }
};

} // namespace ostrand::qt
