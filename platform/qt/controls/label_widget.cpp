#include "dialogs/kit/property_tree.h"
#include "platform/qt/controls/makers.h"
#include "platform/qt/form_widget.h"
#include "platform/qt/icons.h"
#include "platform/qt/metrics.h"
#include "platform/qt/text.h"

#include <QStyle>

#include <algorithm>

namespace ostrand::qt {

namespace {

constexpr int kLineOfGrowingText = 56; // characters
constexpr double kHeadingScale = 1.25;

class LabelWidget final : public ControlWidget {
public:
    LabelWidget(FormWidget& form, size_t item) : ControlWidget(form, item), m_item(item), m_label(new QLabel(&form))
    {
        m_label->setTextFormat(Qt::PlainText);
        m_isHeading = Model().GetId() == VPropertyTreeDialog::Heading &&
                      dynamic_cast<const VPropertyTreeDialog*>(&form.Model()) != nullptr;
    }

    QWidget* Widget() const override { return m_label; }

protected:
    void Draw(VChange change) override
    {
        if (change == VChange::Text)
            DrawText();
        else if (change == VChange::Size)
            DrawSize();
    }

private:
    /// The mark is shown where a control follows for it to lead to.
    void DrawText()
    {
        const VUnicodeString& text = Model().GetText();
        const ControlWidget* const next = !m_isHeading && MarkedLetter(text) != 0 ? NextControl() : nullptr;
        m_label->setBuddy(next ? next->FocusWidget() : nullptr);
        m_label->setText(ToQt(next || m_isHeading ? text : WithoutMark(text)));
        DrawSize();
    }
    void DrawHeading()
    {
        QFont font = Form().font();
        font.setBold(true);
        font.setPointSizeF(font.pointSizeF() * kHeadingScale);
        m_label->setFont(font);
        m_label->setIndent(Gutter(Form())); // above the controls of the page
    }
    void DrawSize()
    {
        if (m_isHeading)
            DrawHeading();
        const QFontMetrics metrics = m_label->fontMetrics();
        int width = metrics.horizontalAdvance(ToQt(WithoutMark(Model().GetWidestText())));
        m_label->setWordWrap(Model().GrowsWithText());
        if (Model().GrowsWithText()) {
            const int line = metrics.size(0, m_label->text()).width();
            width = std::max(width, std::min(line, CharactersWidth(*m_label, kLineOfGrowingText)));
        }
        m_label->setMinimumWidth(width);
    }
    const ControlWidget* NextControl() const
    {
        const auto& widgets = Form().Widgets();
        const auto next = std::find_if(widgets.begin() + static_cast<ptrdiff_t>(m_item) + 1, widgets.end(),
                                       [](const auto& widget) { return widget && widget->Item().TakesFocus(); });
        return next == widgets.end() ? nullptr : next->get();
    }

    const size_t m_item;
    QLabel* const m_label;
    bool m_isHeading;
};

class IconWidget final : public ControlWidget {
public:
    IconWidget(FormWidget& form, size_t item) : ControlWidget(form, item), m_label(new QLabel(&form)) {}

    QWidget* Widget() const override { return m_label; }

protected:
    void Draw(VChange change) override
    {
        if (change != VChange::State)
            return;
        const int size = m_label->style()->pixelMetric(QStyle::PM_MessageBoxIconSize, nullptr, m_label);
        const QIcon icon = StandardIcon(ModelAs<VIconControl>().GetIcon(), m_label);
        m_label->setPixmap(icon.pixmap(QSize(size, size), m_label->devicePixelRatioF()));
    }

private:
    QLabel* const m_label;
};

} // namespace

std::unique_ptr<ControlWidget> MakeLabel(FormWidget& form, size_t item)
{
    return std::make_unique<LabelWidget>(form, item);
}

std::unique_ptr<ControlWidget> MakeIcon(FormWidget& form, size_t item)
{
    return std::make_unique<IconWidget>(form, item);
}

} // namespace ostrand::qt
