// Lengths of the layout. All follow the font and the style, none is a number of pixels.
#pragma once

#include <QAbstractButton>

namespace ostrand::qt {

/// The room before a control that marks stand in.
int Gutter(const QWidget& widget);
/// Of `count` characters of usual width.
int CharactersWidth(const QWidget& widget, int count);
/// Widths in templates are pixels of a desktop whose font is 13 pixels high.
int TemplatePixels(const QWidget& widget, int pixels);
/// Between controls one below the other, and side by side.
int VerticalSpacing(const QWidget& widget);
int HorizontalSpacing(const QWidget& widget);

/// Makes the button wide enough for another text than its own; an empty one makes no difference.
void MakeRoomFor(const QString& text, QAbstractButton& button);

/// A colour between the palette's text and its background, for what isn't to be loud.
QColor QuietText(const QPalette& palette);
/// The palette's highlight, as far off its background as shapes must be that say something (WCAG 2, 1.4.11: 3 to 1).
QColor MarkColor(const QPalette& palette);
/// 1 to 21, as WCAG 2 defines it.
double Contrast(const QColor& a, const QColor& b);

} // namespace ostrand::qt
