// MarkLayer: what a form tells about its values, drawn in the gutter beside the controls: a bar at what has changed
// since the dialog opened, a dot at what differs from the default, a padlock at what an administrator decides; and a
// frame around what a search has found. It lies above the form's widgets and lets the mouse through.
#pragma once

#include <QWidget>

namespace ostrand::qt {

class ControlWidget;
class FormWidget;

class MarkLayer final : public QWidget {
public:
    explicit MarkLayer(FormWidget& form);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void PaintMarks(QPainter& painter, const ControlWidget& control);

    FormWidget& m_form;
};

/// The frame of what a search has found.
void PaintFound(QPainter& painter, const QRectF& area, const QPalette& palette, qreal unit);

} // namespace ostrand::qt
