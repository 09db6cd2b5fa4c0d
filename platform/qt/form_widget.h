// FormWidget: a form on the screen, with a widget for each of its controls.
#pragma once

#include "dialogs/kit/form.h"
#include "platform/qt/control_widget.h"
#include "platform/qt/view_host.h"

#include <QWidget>

namespace ostrand::qt {

class MarkLayer;

/// The form's view until it is detached. The form must outlive that, or be in its destructor.
class FormWidget final : public QWidget, public IFormView {
public:
    /// A page keeps room for marks, and reaches to the edges of its place on the other sides.
    enum class Margins : uint8_t { Window, Page, None };

    FormWidget(VForm& form, IViewHost& host, Margins margins, QWidget* parent);
    ~FormWidget() override;

    /// The end of the view, ahead of the widget's: from here on the form may die.
    void Detach();

    VForm& Model() const { return m_model; }
    IViewHost& Host() const { return m_host; }
    /// Null for layout and parts.
    ControlWidget* OfItem(size_t item) const { return m_widgets[item].get(); }
    ControlWidget* OfControl(const VControl& control) const;
    ControlWidget* OfId(VControlId id) const;
    /// Every control, in the template's order.
    const std::vector<std::unique_ptr<ControlWidget>>& Widgets() const { return m_widgets; }

    // IFormView
    void ControlChanged(VControl& control, VChange change) override;
    void FocusChanged(VControl* control) override;
    void BringIntoSight(VControl& control) override;
    void* Window() override { return m_host.HostWindow(); }
    void TitleChanged() override { m_host.ShowTitle(); }
    void Ended() override { m_host.Finish(); }
    void TreeChanged() override;
    void ActivePageChanged() override;

protected:
    bool event(QEvent* event) override;

private:
    VForm& m_model;
    IViewHost& m_host;
    std::vector<std::unique_ptr<ControlWidget>> m_widgets; // one for each item of the template
    MarkLayer* m_marks;
    bool m_isDetached = false;
};

} // namespace ostrand::qt
