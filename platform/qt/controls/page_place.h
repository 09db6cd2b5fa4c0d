// PagePlace: where the pages of a tree dialog stand, one at a time, each in its widgets from its first time on. Scrolls
// where the window is lower than the page.
#pragma once

#include "platform/qt/control_widget.h"

#include <map>

namespace ostrand::qt {

class PageArea;

class PagePlace final : public ControlWidget {
public:
    PagePlace(FormWidget& form, size_t item);
    ~PagePlace() override;

    QWidget* Widget() const override;
    /// Pages that have left the dialog lose their widgets; they may be about to die.
    void TreeChanged() override;

protected:
    void SetEnabled(bool) override {} // the page's controls have states of their own
    void Draw(VChange change) override;

private:
    PageArea* const m_area;
    std::map<const VForm*, std::unique_ptr<FormWidget>> m_pages;
};

} // namespace ostrand::qt
