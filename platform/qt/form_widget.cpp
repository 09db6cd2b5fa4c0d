#include "platform/qt/form_widget.h"

#include "platform/qt/layout_builder.h"
#include "platform/qt/mark_layer.h"
#include "platform/qt/outlines.h"

#include <QEvent>
#include <QTimer>

#include <utility>

namespace ostrand::qt {

FormWidget::FormWidget(VForm& form, IViewHost& host, Margins margins, QWidget* parent)
    : QWidget(parent),
      m_model(form),
      m_host(host),
      m_widgets(form.GetTemplate().Items().size()),
      m_marks(new MarkLayer(*this))
{
    for (size_t i = 0; i < m_widgets.size(); ++i)
        if (form.ControlOfItem(i))
            m_widgets[i] = MakeControlWidget(*this, i);
    LayoutBuilder(*this).FillForm(margins);
    for (const auto& widget : m_widgets)
        if (widget)
            widget->UpdateAll();
    ShowOutlines(*this);
    m_model.SetView(this);
}

FormWidget::~FormWidget() { Detach(); }

void FormWidget::Detach()
{
    if (std::exchange(m_isDetached, true))
        return;
    if (m_model.GetView() == this)
        m_model.SetView(nullptr);
    m_widgets.clear();
    hide();
}

ControlWidget* FormWidget::OfControl(const VControl& control) const
{
    for (const auto& widget : m_widgets)
        if (widget && &widget->Model() == &control)
            return widget.get();
    return nullptr;
}

ControlWidget* FormWidget::OfId(VControlId id) const
{
    const VControl* const control = m_model.Find(id);
    return control ? OfControl(*control) : nullptr;
}

void FormWidget::ControlChanged(VControl& control, VChange change)
{
    const DrawingScope drawing(m_host);
    OfControl(control)->Update(change);
    m_marks->update();
}

void FormWidget::FocusChanged(VControl* control)
{
    if (control)
        OfControl(*control)->TakeFocus();
}

void FormWidget::BringIntoSight(VControl& control)
{
    ControlWidget* const widget = OfControl(control);
    QTimer::singleShot(0, widget, [widget] { widget->ScrollIntoSight(); }); // a page that is new has no layout yet
}

void FormWidget::TreeChanged()
{
    for (const auto& widget : m_widgets)
        if (widget)
            widget->TreeChanged();
}

void FormWidget::ActivePageChanged()
{
    for (const auto& widget : m_widgets)
        if (widget)
            widget->ActivePageChanged();
}

bool FormWidget::event(QEvent* event)
{
    const bool handled = QWidget::event(event);
    switch (event->type()) {
    case QEvent::Resize:
    case QEvent::LayoutRequest:
        m_marks->setGeometry(rect());
        m_marks->raise();
        m_marks->update();
        break;
    case QEvent::PaletteChange:
        ShowOutlines(*this);
        break;
    case QEvent::FontChange:
    case QEvent::StyleChange:
        for (const auto& widget : m_widgets)
            if (widget)
                widget->Update(VChange::Size);
        break;
    default:
        break;
    }
    return handled;
}

} // namespace ostrand::qt
