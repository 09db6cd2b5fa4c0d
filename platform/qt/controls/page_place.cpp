#include "platform/qt/controls/page_place.h"

#include "dialogs/kit/property_tree.h"
#include "platform/qt/form_widget.h"
#include "platform/qt/metrics.h"

#include <QEvent>
#include <QLayout>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QSplitter>

#include <algorithm>
#include <set>

namespace ostrand::qt {

namespace {

constexpr int kUsualCharacters = 92;
constexpr int kFewestCharacters = 12;
constexpr int kUsualLines = 41;
constexpr int kFewestLines = 8;

/// What the window needs beside a widget that stands deep in it, at the least.
int WidthBeside(const QWidget& inner)
{
    int width = 0;
    for (const QWidget* widget = &inner; !widget->isWindow() && widget->parentWidget();
         widget = widget->parentWidget()) {
        const QWidget& around = *widget->parentWidget();
        if (const QLayout* const layout = around.layout())
            width += layout->contentsMargins().left() + layout->contentsMargins().right();
        const auto* const splitter = qobject_cast<const QSplitter*>(&around);
        for (int i = 0; splitter && i < splitter->count(); ++i)
            if (splitter->widget(i) != widget)
                width += splitter->widget(i)->minimumSizeHint().width() + splitter->handleWidth();
    }
    return width;
}

} // namespace

/// Wide enough for its page, as far as the screen has room for the rest of the window beside it; scrolls up and down.
class PageArea final : public QScrollArea {
public:
    explicit PageArea(QWidget* parent) : QScrollArea(parent)
    {
        setWidgetResizable(true);
        setFrameShape(QFrame::NoFrame);
        setFocusPolicy(Qt::NoFocus);
        verticalScrollBar()->installEventFilter(this);
    }
    /// A page ends where the window's buttons do, and before a bar that is there.
    void KeepOffBar(bool isThere)
    {
        if (!widget())
            return;
        QMargins margins = widget()->layout()->contentsMargins();
        margins.setRight(isThere ? HorizontalSpacing(*this) : 0);
        widget()->layout()->setContentsMargins(margins);
    }

    QSize sizeHint() const override
    {
        const QSize page = widget() ? widget()->sizeHint() : QSize();
        const QSize usual(CharactersWidth(*this, kUsualCharacters), fontMetrics().lineSpacing() * kUsualLines);
        const QSize most(RoomOnScreen(), screen()->availableSize().height() * 3 / 4);
        return page.expandedTo(usual).boundedTo(most).expandedTo(minimumSizeHint());
    }
    QSize minimumSizeHint() const override
    {
        const int page = widget() ? widget()->minimumSizeHint().width() + verticalScrollBar()->sizeHint().width() : 0;
        return {std::min(page, RoomOnScreen()), fontMetrics().lineSpacing() * kFewestLines};
    }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (watched == widget() && event->type() == QEvent::LayoutRequest)
            updateGeometry();
        if (watched == verticalScrollBar() && (event->type() == QEvent::Show || event->type() == QEvent::Hide))
            KeepOffBar(event->type() == QEvent::Show);
        return QScrollArea::eventFilter(watched, event);
    }

private:
    int RoomOnScreen() const
    {
        return std::max(screen()->availableSize().width() - WidthBeside(*this),
                        CharactersWidth(*this, kFewestCharacters));
    }
};

namespace {

void CollectPages(const std::vector<VPropertyTreePage*>& pages, std::set<const VForm*>& all)
{
    for (const VPropertyTreePage* const page : pages) {
        all.insert(page);
        CollectPages(page->GetChildren(), all);
    }
}

} // namespace

PagePlace::PagePlace(FormWidget& form, size_t item) : ControlWidget(form, item), m_area(new PageArea(&form)) {}

QWidget* PagePlace::Widget() const { return m_area; }

PagePlace::~PagePlace()
{
    m_area->takeWidget(); // it is in the map
}

void PagePlace::Draw(VChange change)
{
    if (change != VChange::Content)
        return;
    m_area->takeWidget();
    VForm* const content = ModelAs<VPlaceControl>().GetContent();
    if (!content)
        return;
    std::unique_ptr<FormWidget>& page = m_pages[content];
    if (!page)
        page = std::make_unique<FormWidget>(*content, Form().Host(), FormWidget::Margins::Page, nullptr);
    m_area->setWidget(page.get());
    page->show();
    m_area->KeepOffBar(!m_area->verticalScrollBar()->isHidden());
    m_area->verticalScrollBar()->setValue(0);
    m_area->updateGeometry();
}

void PagePlace::TreeChanged()
{
    std::set<const VForm*> present;
    CollectPages(static_cast<VPropertyTreeDialog&>(Form().Model()).GetPages(), present);
    for (auto entry = m_pages.begin(); entry != m_pages.end();) {
        if (present.count(entry->first) != 0) {
            ++entry;
            continue;
        }
        if (m_area->widget() == entry->second.get())
            m_area->takeWidget();
        FormWidget* const gone = entry->second.release();
        gone->Detach();
        gone->deleteLater(); // one of its own events may be the cause
        entry = m_pages.erase(entry);
    }
}

} // namespace ostrand::qt
