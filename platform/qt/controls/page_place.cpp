#include "platform/qt/controls/page_place.h"

#include "dialogs/kit/property_tree.h"
#include "platform/qt/form_widget.h"
#include "platform/qt/metrics.h"

#include <QEvent>
#include <QScreen>
#include <QScrollBar>

#include <algorithm>
#include <set>

namespace ostrand::qt {

namespace {

constexpr int kUsualCharacters = 62;
constexpr int kUsualLines = 26;
constexpr int kFewestLines = 10;

/// Wide enough for its page, as far as the screen is; scrolls up and down.
class PageArea final : public QScrollArea {
public:
    explicit PageArea(QWidget* parent) : QScrollArea(parent)
    {
        setWidgetResizable(true);
        setFrameShape(QFrame::NoFrame);
        setFocusPolicy(Qt::NoFocus);
    }

    QSize sizeHint() const override
    {
        const QSize page = widget() ? widget()->sizeHint() : QSize();
        const QSize usual(CharactersWidth(*this, kUsualCharacters), fontMetrics().lineSpacing() * kUsualLines);
        return page.expandedTo(usual).expandedTo(minimumSizeHint()).boundedTo(screen()->availableSize() * 2 / 3);
    }
    QSize minimumSizeHint() const override
    {
        const int page = widget() ? widget()->minimumSizeHint().width() + verticalScrollBar()->sizeHint().width() : 0;
        return {std::min(page, screen()->availableSize().width() * 2 / 3), fontMetrics().lineSpacing() * kFewestLines};
    }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (watched == widget() && event->type() == QEvent::LayoutRequest)
            updateGeometry();
        return QScrollArea::eventFilter(watched, event);
    }
};

void CollectPages(const std::vector<VPropertyTreePage*>& pages, std::set<const VForm*>& all)
{
    for (const VPropertyTreePage* const page : pages) {
        all.insert(page);
        CollectPages(page->GetChildren(), all);
    }
}

} // namespace

PagePlace::PagePlace(FormWidget& form, size_t item) : ControlWidget(form, item), m_area(new PageArea(&form)) {}

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
        page = std::make_unique<FormWidget>(*content, Form().Host(), FormWidget::Margins::Window, nullptr);
    m_area->setWidget(page.get());
    page->show();
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
