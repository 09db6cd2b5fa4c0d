#include "dialogs/kit/radio_control.h"

#include "dialogs/kit/translate.h"

namespace ostrand {

VRadioControl::VRadioControl(IControlOwner& owner, const VTemplateItem& item, const char16_t* label)
    : VControl(owner, item, label)
{
    const VTemplateItem* const end = &item + 1 + item.descendants;
    for (const VTemplateItem* part = &item + 1; part != end; ++part)
        if (part->kind == VItemKind::Option)
            m_options.push_back({Translate(part->text), !part->Has(VItemFlag::Disabled)});
}

void VRadioControl::EnableOption(int index, bool enabled)
{
    if (index >= 0 && index < GetCount())
        Assign(m_options[static_cast<size_t>(index)].isEnabled, enabled, VChange::Options);
}

void VRadioControl::SetIndex(int index)
{
    Assign(m_index, index >= 0 && index < GetCount() ? index : -1, VChange::State);
}

VUnicodeString VRadioControl::Dump() const
{
    return VControl::Dump() + u": " + (m_index < 0 ? u"none" : m_options[static_cast<size_t>(m_index)].text.View());
}

} // namespace ostrand
