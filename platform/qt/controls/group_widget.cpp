#include "platform/qt/controls/makers.h"
#include "platform/qt/form_widget.h"
#include "platform/qt/text.h"

#include <QGroupBox>
#include <QStyleOptionGroupBox>
#include <QStylePainter>

namespace ostrand::qt {

namespace {

/// Shows that the group is disabled by its caption alone, since its controls have states of their own.
class CaptionedBox final : public QGroupBox {
public:
    explicit CaptionedBox(QWidget* parent) : QGroupBox(parent) {}

    void SetCaptionEnabled(bool isEnabled)
    {
        m_isCaptionEnabled = isEnabled;
        update();
    }

protected:
    void paintEvent(QPaintEvent*) override
    {
        QStylePainter painter(this);
        QStyleOptionGroupBox option;
        initStyleOption(&option);
        if (!m_isCaptionEnabled) {
            option.state &= ~QStyle::State_Enabled;
            option.palette.setCurrentColorGroup(QPalette::Disabled);
        }
        painter.drawComplexControl(QStyle::CC_GroupBox, option);
    }

private:
    bool m_isCaptionEnabled = true;
};

class GroupWidget final : public ControlWidget {
public:
    GroupWidget(FormWidget& form, size_t item) : ControlWidget(form, item), m_box(new CaptionedBox(&form)) {}

    QWidget* Widget() const override { return m_box; }

protected:
    void SetEnabled(bool isEnabled) override { m_box->SetCaptionEnabled(isEnabled); }
    void Draw(VChange change) override
    {
        if (change == VChange::Text)
            m_box->setTitle(ToQt(Model().GetText()));
    }

private:
    CaptionedBox* const m_box;
};

} // namespace

std::unique_ptr<ControlWidget> MakeGroup(FormWidget& form, size_t item)
{
    return std::make_unique<GroupWidget>(form, item);
}

} // namespace ostrand::qt
