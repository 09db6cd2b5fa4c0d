#include "dialogs/kit/property_tree.h"
#include "platform/qt/controls/makers.h"
#include "platform/qt/controls/page_place.h"
#include "platform/qt/form_widget.h"

#include <QVBoxLayout>

namespace ostrand::qt {

namespace {

/// One form, for as long as it stands there.
class PanelPlace final : public ControlWidget {
public:
    PanelPlace(FormWidget& form, size_t item) : ControlWidget(form, item), m_frame(new QWidget(&form))
    {
        (new QVBoxLayout(m_frame))->setContentsMargins({});
    }

    QWidget* Widget() const override { return m_frame; }

protected:
    void SetEnabled(bool) override {} // the form's controls have states of their own
    void Draw(VChange change) override
    {
        VForm* const content = ModelAs<VPlaceControl>().GetContent();
        if (change != VChange::Content || (m_panel && &m_panel->Model() == content))
            return;
        if (FormWidget* const before = m_panel.release()) {
            before->Detach();
            before->deleteLater(); // one of its own events may be the cause
        }
        if (content) {
            m_panel = std::make_unique<FormWidget>(*content, Form().Host(), FormWidget::Margins::None, m_frame);
            m_frame->layout()->addWidget(m_panel.get());
        }
    }

private:
    QWidget* const m_frame;
    std::unique_ptr<FormWidget> m_panel;
};

} // namespace

std::unique_ptr<ControlWidget> MakePlace(FormWidget& form, size_t item)
{
    if (dynamic_cast<const VPropertyTreeDialog*>(&form.Model()))
        return std::make_unique<PagePlace>(form, item);
    return std::make_unique<PanelPlace>(form, item);
}

} // namespace ostrand::qt
