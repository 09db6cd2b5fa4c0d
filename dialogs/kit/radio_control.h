// VRadioControl: a group of options of which one is chosen, or none.
#pragma once

#include "dialogs/kit/control.h"

#include <vector>

namespace ostrand {

class OSTRAND_API VRadioControl final : public VControl {
public:
    VRadioControl(IControlOwner& owner, const VTemplateItem& item, const char16_t* label);

    struct Option {
        VUnicodeString text;
        bool isEnabled = true;
    };
    const std::vector<Option>& GetOptions() const { return m_options; }
    int GetCount() const { return static_cast<int>(m_options.size()); }
    /// An index outside the group changes nothing.
    void EnableOption(int index, bool enabled);

    /// -1 for none.
    int GetIndex() const { return m_index; }
    /// Raises no event. An index outside the group chooses none.
    void SetIndex(int index);

    VUnicodeString Dump() const override;

private:
    std::vector<Option> m_options;
    int m_index = -1;
};

} // namespace ostrand
