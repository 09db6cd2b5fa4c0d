// ControlWidget: keeps one control and the Qt widgets that show it alike. Each kind of control has its own class, made
// by the table in control_makers.cpp.
#pragma once

#include "dialogs/kit/user_input.h"
#include "platform/qt/view_host.h"

#include <QLabel>
#include <QPointer>

#include <memory>

namespace ostrand::qt {

class FormWidget;

/// The widgets belong to Qt's tree of widgets. Slots are lambdas with this object as their context, so that they end
/// with it, even where Qt deletes the widget later.
class ControlWidget : public QObject {
public:
    ControlWidget(FormWidget& form, size_t item);

    /// What stands in the layout.
    virtual QWidget* Widget() const = 0;
    /// What has the keyboard's focus when the control has it.
    virtual QWidget* FocusWidget() const { return Widget(); }

    VControl& Model() const { return m_model; }
    const VTemplateItem& Item() const { return m_model.GetItem(); }
    FormWidget& Form() const { return m_form; }

    /// The label in front; shown, hidden, enabled and disabled with the control.
    void SetFieldLabel(QLabel* label);
    /// Draws anew what has changed.
    void Update(VChange change);
    void UpdateAll();
    void TakeFocus();
    void ScrollIntoSight();
    /// Of the widget with its label, in coordinates of the form's widget; empty when hidden.
    QRect Area() const;
    /// The part of it that marks stand beside.
    virtual QRect MarkedArea() const { return Area(); }

    virtual void TreeChanged() {}
    virtual void ActivePageChanged() {}

protected:
    /// Shows one aspect of the model; those that the base shows (enabled, visible, field label, marks) come here too.
    virtual void Draw(VChange change) = 0;
    /// Not for those whose widget holds the widgets of other controls.
    virtual void SetEnabled(bool isEnabled) { Widget()->setEnabled(isEnabled); }
    /// Called where the control has no name of its own.
    virtual VUnicodeString FallbackName() const { return {}; }
    /// Widgets that users reach: their focus, wheel, tooltip and menu become the control's.
    void Watch(QWidget* widget);
    /// What a user does. Refused, or ended by an exception: the widget goes back to what the model says.
    void Act(const std::function<bool(VUserInput&)>& act);
    template <class C>
    C& ModelAs() const
    {
        return static_cast<C&>(m_model);
    }
    bool eventFilter(QObject* watched, QEvent* event) override;

    QRect AreaOf(const QWidget& part) const;

private:
    void DescribeMarks();

    FormWidget& m_form;
    const size_t m_item;
    VControl& m_model;
    QPointer<QLabel> m_label;
};

using ControlWidgetMaker = std::unique_ptr<ControlWidget> (*)(FormWidget& form, size_t item);
/// For the item's kind, which must be that of a control.
std::unique_ptr<ControlWidget> MakeControlWidget(FormWidget& form, size_t item);

} // namespace ostrand::qt
