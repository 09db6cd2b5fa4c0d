#include "platform/qt/field_label.h"

#include <algorithm>

namespace ostrand::qt {

QSize FieldLabel::Aligned(QSize own) const
{
    if (!m_groups)
        return own;
    int narrowest = own.width();
    int widest = own.width();
    for (const std::vector<const FieldLabel*>& group : *m_groups) {
        int width = 0;
        for (const FieldLabel* const label : group)
            width = std::max(width, label->isHidden() ? 0 : label->QLabel::sizeHint().width());
        narrowest = width > 0 ? std::min(narrowest, width) : narrowest;
        widest = std::max(widest, width);
    }
    return widest <= narrowest * 2 ? QSize(widest, own.height()) : own;
}

} // namespace ostrand::qt
