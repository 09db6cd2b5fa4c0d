#include "platform/qt/metrics.h"

#include <QFontMetrics>
#include <QStyle>

#include <algorithm>

namespace ostrand::qt {

namespace {

constexpr int kTemplateFontHeight = 13;

int Spacing(const QWidget& widget, Qt::Orientation orientation, QStyle::PixelMetric metric)
{
    const int spacing = widget.style()->pixelMetric(metric, nullptr, &widget);
    const auto kind = QSizePolicy::DefaultType;
    return spacing >= 0 ? spacing : widget.style()->layoutSpacing(kind, kind, orientation, nullptr, &widget);
}

} // namespace

int Gutter(const QWidget& widget)
{
    const int margin = widget.style()->pixelMetric(QStyle::PM_LayoutLeftMargin, nullptr, &widget);
    return std::max(margin, widget.fontMetrics().height() * 3 / 4);
}

int CharactersWidth(const QWidget& widget, int count) { return widget.fontMetrics().averageCharWidth() * count; }

int TemplatePixels(const QWidget& widget, int pixels)
{
    return std::max(pixels, pixels * widget.fontMetrics().height() / kTemplateFontHeight);
}

int VerticalSpacing(const QWidget& widget) { return Spacing(widget, Qt::Vertical, QStyle::PM_LayoutVerticalSpacing); }

int HorizontalSpacing(const QWidget& widget)
{
    return Spacing(widget, Qt::Horizontal, QStyle::PM_LayoutHorizontalSpacing);
}

void MakeRoomFor(const QString& text, QAbstractButton& button)
{
    const QString own = button.text();
    if (text.isEmpty())
        return;
    button.setText(text);
    button.setMinimumWidth(button.sizeHint().width());
    button.setText(own);
}

QColor QuietText(const QPalette& palette)
{
    const QColor text = palette.color(QPalette::Active, QPalette::WindowText);
    const QColor ground = palette.color(QPalette::Active, QPalette::Window);
    const auto mix = [](int a, int b) { return (a * 7 + b * 3) / 10; };
    return {mix(text.red(), ground.red()), mix(text.green(), ground.green()), mix(text.blue(), ground.blue())};
}

} // namespace ostrand::qt
