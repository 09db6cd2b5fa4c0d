// VButtonControl: a push button, with a picture in place of its text where it has one.
#pragma once

#include "dialogs/kit/control.h"

namespace ostrand {

class VButtonControl final : public VControl {
public:
    VButtonControl(IControlOwner& owner, const VTemplateItem& item, const char16_t* label)
        : VControl(owner, item, label),
          m_isDefault(item.Has(VItemFlag::Default))
    {
    }

    /// Return presses it. A dialog keeps the mark on one button: VDialog::SetDefaultButton.
    bool IsDefault() const { return m_isDefault; }
    void SetDefault(bool isDefault) { Assign(m_isDefault, isDefault, VChange::State); }
    /// The code with which it ends its dialog; 0: it doesn't.
    int GetResult() const { return GetItem().data; }

private:
    bool m_isDefault;
};

} // namespace ostrand
