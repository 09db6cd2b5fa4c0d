// VIconControl: a picture that says what kind of message stands beside it.
#pragma once

#include "dialogs/kit/control.h"

namespace ostrand {

class VIconControl final : public VControl {
public:
    VIconControl(IControlOwner& owner, const VTemplateItem& item, const char16_t* label)
        : VControl(owner, item, label),
          m_icon(item.icon)
    {
    }

    VIcon GetIcon() const { return m_icon; }
    void SetIcon(VIcon icon) { Assign(m_icon, icon, VChange::State); }

private:
    VIcon m_icon;
};

} // namespace ostrand
