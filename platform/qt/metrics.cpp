#include "platform/qt/metrics.h"

#include <QFontMetrics>
#include <QStyle>

#include <algorithm>
#include <cmath>

namespace ostrand::qt {

namespace {

constexpr int kTemplateFontHeight = 13;
constexpr int kTenths = 10;
constexpr double kShapeContrast = 3;

int Spacing(const QWidget& widget, Qt::Orientation orientation, QStyle::PixelMetric metric)
{
    const int spacing = widget.style()->pixelMetric(metric, nullptr, &widget);
    const auto kind = QSizePolicy::DefaultType;
    return spacing >= 0 ? spacing : widget.style()->layoutSpacing(kind, kind, orientation, nullptr, &widget);
}

/// `tenths` of the second colour.
QColor Mixed(const QColor& a, const QColor& b, int tenths)
{
    const auto mix = [tenths](int x, int y) { return (x * (kTenths - tenths) + y * tenths) / kTenths; };
    return {mix(a.red(), b.red()), mix(a.green(), b.green()), mix(a.blue(), b.blue())};
}

/// Relative luminance of sRGB, as WCAG 2 defines it.
double Luminance(const QColor& color)
{
    const auto linear = [](double part) {
        return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
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
    return Mixed(palette.color(QPalette::Active, QPalette::WindowText),
                 palette.color(QPalette::Active, QPalette::Window), 3);
}

double Contrast(const QColor& a, const QColor& b)
{
    const double one = Luminance(a);
    const double other = Luminance(b);
    return (std::max(one, other) + 0.05) / (std::min(one, other) + 0.05);
}

QColor MarkColor(const QPalette& palette)
{
    const QColor ground = palette.color(QPalette::Active, QPalette::Window);
    const QColor text = palette.color(QPalette::Active, QPalette::WindowText);
    QColor color = palette.color(QPalette::Active, QPalette::Highlight);
    for (int tenths = 1; tenths <= kTenths && Contrast(color, ground) < kShapeContrast; ++tenths)
        color = Mixed(palette.color(QPalette::Active, QPalette::Highlight), text, tenths);
    return color;
}

} // namespace ostrand::qt
