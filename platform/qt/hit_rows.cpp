#include "platform/qt/hit_rows.h"

#include "platform/qt/metrics.h"

#include <QApplication>
#include <QPainter>

namespace ostrand::qt {

namespace {

constexpr int kAround = 2; // tenths of the font's height, above and below a row's lines

struct Hit {
    QString page;
    QString setting;
};
/// From "Terminal > Emulation: Rows".
Hit HitOf(const QModelIndex& index)
{
    const QString text = index.data().toString();
    const qsizetype end = text.indexOf(QStringLiteral(": "));
    return end < 0 ? Hit{{}, text} : Hit{text.left(end), text.mid(end + 2)};
}

} // namespace

QSize HitRows::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    const int height = option.fontMetrics.height();
    return {QStyledItemDelegate::sizeHint(option, index).width(), 2 * height + 2 * height * kAround / 10};
}

void HitRows::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    QStyleOptionViewItem row = option;
    initStyleOption(&row, index);
    row.text.clear(); // the style draws the ground alone
    const QStyle& style = row.widget ? *row.widget->style() : *QApplication::style();
    style.drawControl(QStyle::CE_ItemViewItem, &row, painter, row.widget);

    const Hit hit = HitOf(index);
    const bool isSelected = row.state.testFlag(QStyle::State_Selected);
    const int height = row.fontMetrics.height();
    const int side = style.pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, row.widget) + 1;
    QRect line = row.rect.adjusted(side, height * kAround / 10, -side, 0);
    line.setHeight(height);
    const auto draw = [&](const QString& text, const QColor& color, Qt::TextElideMode elide) {
        painter->setPen(color);
        const Qt::Alignment leading = QStyle::visualAlignment(row.direction, Qt::AlignLeft | Qt::AlignVCenter);
        painter->drawText(line, static_cast<int>(leading.toInt()),
                          row.fontMetrics.elidedText(text, elide, line.width()));
        line.translate(0, height);
    };
    painter->save();
    const QColor chosen = row.palette.color(QPalette::HighlightedText);
    draw(hit.setting, isSelected ? chosen : row.palette.color(QPalette::Text), Qt::ElideRight);
    draw(hit.page, isSelected ? chosen : QuietText(row.palette), Qt::ElideLeft);
    painter->restore();
}

} // namespace ostrand::qt
