#include "platform/qt/outlines.h"

#include "platform/qt/metrics.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QRadioButton>

namespace ostrand::qt {

namespace {

constexpr int kStyleDarkens = 140; // percent, from the window's colour to an outline
constexpr double kFaint = 1.5;     // of contrast
constexpr double kFieldContrast = 2.5;

template <class Field>
void SetOutlines(const QWidget& form, const QPalette& palette)
{
    for (Field* const field : form.findChildren<Field*>())
        field->setPalette(palette);
}

} // namespace

void ShowOutlines(QWidget& form)
{
    const QColor ground = form.palette().color(QPalette::Active, QPalette::Window);
    QPalette palette; // sets nothing
    if (Contrast(ground.darker(kStyleDarkens), ground) < kFaint) {
        QColor outline = ground;
        for (int step = 0; step < 20 && Contrast(outline, ground) < kFieldContrast; ++step)
            outline = outline.lighter(110);
        palette.setColor(QPalette::Window, outline.lighter(kStyleDarkens));
    }
    SetOutlines<QCheckBox>(form, palette);
    SetOutlines<QRadioButton>(form, palette);
    SetOutlines<QLineEdit>(form, palette);
    SetOutlines<QPlainTextEdit>(form, palette);
}

} // namespace ostrand::qt
