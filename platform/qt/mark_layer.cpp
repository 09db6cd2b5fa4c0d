#include "platform/qt/mark_layer.h"

#include "platform/qt/form_widget.h"
#include "platform/qt/metrics.h"

#include <QPainter>
#include <QPainterPath>
#include <QStyle>

#include <algorithm>

namespace ostrand::qt {

namespace {

constexpr int kFoundAlpha = 28; // of 255; what is written below must stay easy to read

void PaintPadlock(QPainter& painter, const QRectF& area, const QColor& color)
{
    const QRectF body(area.left(), area.top() + area.height() * 0.45, area.width(), area.height() * 0.55);
    painter.setPen(Qt::NoPen);
    painter.setBrush(color);
    painter.drawRoundedRect(body, area.width() * 0.15, area.width() * 0.15);
    const qreal line = area.width() * 0.16;
    const QRectF shackle(area.left() + area.width() * 0.2, area.top() + line / 2, area.width() * 0.6,
                         area.height() * 0.8);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(color, line));
    painter.drawArc(shackle, 0, 180 * 16);
}

} // namespace

void PaintFound(QPainter& painter, const QRectF& area, const QPalette& palette, qreal unit)
{
    const QColor line = MarkColor(palette);
    QColor tint = line;
    tint.setAlpha(kFoundAlpha);
    const qreal width = unit * 0.11;
    painter.setPen(QPen(line, width));
    painter.setBrush(tint);
    painter.drawRoundedRect(area.adjusted(width / 2, width / 2, -width / 2, -width / 2), unit / 4, unit / 4);
}

MarkLayer::MarkLayer(FormWidget& form) : QWidget(&form), m_form(form)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setAttribute(Qt::WA_NoSystemBackground);
    setFocusPolicy(Qt::NoFocus);
}

void MarkLayer::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    for (const auto& control : m_form.Widgets())
        if (control && !control->Area().isEmpty())
            PaintMarks(painter, *control);
}

void MarkLayer::PaintMarks(QPainter& painter, const ControlWidget& control)
{
    const VMarks& marks = control.Model().GetMarks();
    const int unit = Gutter(m_form);
    if (control.Model().IsFound()) {
        const int around = std::min(unit / 3, VerticalSpacing(m_form) / 2 - 1); // neighbours have theirs, too
        const QRect area = control.Area().adjusted(-around, -around, around, around);
        PaintFound(painter, area.intersected(rect()), palette(), unit);
    }
    // The gutter ahead of the control's line, as for a language that is written to the right.
    const QRect area = QStyle::visualRect(layoutDirection(), rect(), control.MarkedArea());
    const QRect logical(area.left() - unit, area.top(), unit, area.height());
    const QRectF gutter = QStyle::visualRect(layoutDirection(), rect(), logical);
    const qreal size = unit * 0.95;
    const QPointF middle = gutter.center();
    if (marks.isLocked) {
        PaintPadlock(painter, QRectF(middle.x() - size * 0.45, middle.y() - size * 0.55, size * 0.8, size),
                     QuietText(palette()));
    } else if (marks.isChanged) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(MarkColor(palette()));
        const qreal width = unit * 0.28;
        painter.drawRoundedRect(QRectF(middle.x() - width / 2, gutter.top(), width, gutter.height()), width / 2,
                                width / 2);
    } else if (marks.differs) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(QuietText(palette()));
        painter.drawEllipse(middle, unit * 0.19, unit * 0.19);
    }
}

} // namespace ostrand::qt
