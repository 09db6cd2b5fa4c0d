#include "dialogs/kit/property_tree.h"
#include "platform/qt/controls/makers.h"
#include "platform/qt/form_widget.h"
#include "platform/qt/icons.h"
#include "platform/qt/metrics.h"
#include "platform/qt/text.h"

#include <QScreen>
#include <QStylePainter>

#include <algorithm>

namespace ostrand::qt {

namespace {

constexpr int kLineOfGrowingText = 56; // characters
constexpr size_t kLongestInOneLine = 40;
constexpr double kHeadingScale = 1.25;
constexpr int kFewestOfHeading = 8; // characters

/// Whether the item's container puts its children one below the other.
bool IsInColumn(std::span<const VTemplateItem> items, size_t item)
{
    size_t container = item;
    for (size_t i = 0; i < item; ++i)
        if (i + items[i].descendants >= item)
            container = i; // the innermost comes last
    return items[container].kind != VItemKind::Row && items[container].kind != VItemKind::Field;
}

/// Never makes the window wider than its page does.
class HeadingLabel final : public QLabel {
public:
    using QLabel::QLabel;

    QSize minimumSizeHint() const override
    {
        return {CharactersWidth(*this, kFewestOfHeading), QLabel::minimumSizeHint().height()};
    }

protected:
    void paintEvent(QPaintEvent*) override
    {
        QStylePainter painter(this);
        const int indent = std::max(this->indent(), 0);
        const QRect area = QStyle::visualRect(layoutDirection(), rect(), rect().adjusted(indent, 0, 0, 0));
        const int leading = static_cast<int>(QStyle::visualAlignment(layoutDirection(), alignment()).toInt());
        painter.drawItemText(area, leading, palette(), isEnabled(),
                             fontMetrics().elidedText(text(), Qt::ElideRight, area.width()), foregroundRole());
    }
};

class LabelWidget final : public ControlWidget {
public:
    LabelWidget(FormWidget& form, size_t item)
        : ControlWidget(form, item),
          m_item(item),
          m_isHeading(Model().GetId() == VPropertyTreeDialog::Heading &&
                      dynamic_cast<const VPropertyTreeDialog*>(&form.Model()) != nullptr),
          m_label(m_isHeading ? new HeadingLabel(&form) : new QLabel(&form))
    {
        m_label->setTextFormat(Qt::PlainText);
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
        m_label->setWordWrap(Model().GrowsWithText() || BreaksLines());
        if (Model().GrowsWithText()) {
            const int line = metrics.size(0, m_label->text()).width();
            const int most = m_label->screen()->availableSize().width() * 3 / 4;
            width = std::max(width, std::min({line, most, CharactersWidth(*m_label, kLineOfGrowingText)}));
        }
        m_label->setMinimumWidth(width);
    }
    /// A long text may take several lines, where the template leaves it the whole width.
    bool BreaksLines() const
    {
        const std::span<const VTemplateItem> items = Form().Model().GetTemplate().Items();
        return !m_isHeading && IsInColumn(items, m_item) && Model().GetText().GetLength() > kLongestInOneLine;
    }
    const ControlWidget* NextControl() const
    {
        const auto& widgets = Form().Widgets();
        const auto next = std::find_if(widgets.begin() + static_cast<ptrdiff_t>(m_item) + 1, widgets.end(),
                                       [](const auto& widget) { return widget && widget->Item().TakesFocus(); });
        return next == widgets.end() ? nullptr : next->get();
    }

    const size_t m_item;
    const bool m_isHeading; // of the page that a tree has chosen
    QLabel* const m_label;
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
