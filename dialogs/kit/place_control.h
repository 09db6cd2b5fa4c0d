// VPlaceControl: a rectangle with a place in the tab order, for a form that comes from elsewhere.
#pragma once

#include "dialogs/kit/control.h"

namespace ostrand {

class VForm;

class VPlaceControl final : public VControl {
public:
    using VControl::VControl;

    /// Null for none. Borrowed; VForm::Put sets it.
    VForm* GetContent() const { return m_content; }
    void SetContent(VForm* content) { Assign(m_content, content, VChange::Content); }

private:
    VForm* m_content = nullptr;
};

} // namespace ostrand
