#include "platform/qt/control_widget.h"

#include "dialogs/kit/accessible_name.h"
#include "platform/qt/form_widget.h"
#include "platform/qt/text.h"
#include "platform/qt/value_help.h"

#include <QContextMenuEvent>
#include <QHelpEvent>
#include <QScrollArea>

namespace ostrand::qt {

ControlWidget::ControlWidget(FormWidget& form, size_t item)
    : m_form(form),
      m_item(item),
      m_model(*form.Model().ControlOfItem(item))
{
}

void ControlWidget::SetFieldLabel(QLabel* label)
{
    m_label = label;
    m_label->setTextFormat(Qt::PlainText);
    m_label->setBuddy(FocusWidget());
    Watch(label);
}

void ControlWidget::UpdateAll()
{
    // Size is the last of them.
    for (int change = 0; change <= static_cast<int>(VChange::Size); ++change)
        Update(static_cast<VChange>(change));
}

void ControlWidget::Update(VChange change)
{
    if (change == VChange::Visible) {
        Widget()->setVisible(m_model.IsVisible());
        if (m_label)
            m_label->setVisible(m_model.IsVisible());
    } else if (change == VChange::Label) {
        if (m_label)
            m_label->setText(ToQt(m_model.GetLabel()));
        const VUnicodeString name = AccessibleName(m_form.Model(), m_item);
        FocusWidget()->setAccessibleName(ToQt(name.IsEmpty() ? FallbackName() : name));
    } else if (change == VChange::Marks) {
        DescribeMarks();
    } else if (change == VChange::Enabled) {
        SetEnabled(m_model.IsEnabled());
        if (m_label)
            m_label->setEnabled(m_model.IsEnabled());
    }
    Draw(change);
}

void ControlWidget::DescribeMarks()
{
    FocusWidget()->setAccessibleDescription(ToQt(MarkWords(m_model.GetMarks(), m_model.IsFound())));
}

void ControlWidget::TakeFocus()
{
    QWidget* const wanted = FocusWidget();
    const QWidget* const held = wanted->window()->focusWidget();
    if (held != wanted && !Widget()->isAncestorOf(held))
        wanted->setFocus(Qt::TabFocusReason); // which selects the text of an edit
    ScrollIntoSight();
}

void ControlWidget::ScrollIntoSight()
{
    for (QWidget* above = FocusWidget()->parentWidget(); above; above = above->parentWidget())
        if (auto* const scrolled = qobject_cast<QScrollArea*>(above))
            scrolled->ensureWidgetVisible(FocusWidget());
}

QRect ControlWidget::AreaOf(const QWidget& part) const
{
    return part.isVisibleTo(&m_form) ? QRect(part.mapTo(&m_form, QPoint()), part.size()) : QRect();
}

QRect ControlWidget::Area() const { return m_label ? AreaOf(*m_label) | AreaOf(*Widget()) : AreaOf(*Widget()); }

void ControlWidget::Watch(QWidget* widget) { widget->installEventFilter(this); }

void ControlWidget::Act(const std::function<bool(VUserInput&)>& act)
{
    const QPointer<ControlWidget> alive(this);
    VForm& form = m_form.Model();
    const bool isDone = m_form.Host().Do([&form, &act] {
        VUserInput user(form);
        return act(user);
    });
    if (!isDone && alive)
        UpdateAll();
}

bool ControlWidget::eventFilter(QObject* watched, QEvent* event)
{
    QWidget& widget = *static_cast<QWidget*>(watched);
    VForm& form = m_form.Model();
    switch (event->type()) {
    case QEvent::FocusIn:
        if (form.GetFocus() != m_model.GetId()) {
            m_form.Host().FollowFocusLater();
            if (!m_form.Host().IsDrawing())
                Act([this](VUserInput& user) { return user.MoveFocus(m_model.GetId()); });
        }
        return false;
    case QEvent::Wheel: // scrolls the page, unless the user has chosen the control
        if (widget.focusPolicy() != Qt::NoFocus && !widget.hasFocus()) {
            event->ignore();
            return true;
        }
        return false;
    case QEvent::ToolTip:
        return ShowOrigin(form, m_model.GetId(), widget, static_cast<QHelpEvent*>(event)->globalPos());
    case QEvent::ContextMenu: {
        QMenu* const menu = MakeValueMenu(m_form, m_model.GetId(), widget);
        if (menu)
            menu->popup(static_cast<QContextMenuEvent*>(event)->globalPos());
        return menu != nullptr;
    }
    default:
        return false;
    }
}

} // namespace ostrand::qt
