#include "dialogs/kit/control.h"

#include "dialogs/kit/translate.h"

namespace ostrand {

VControl::VControl(IControlOwner& owner, const VTemplateItem& item, const char16_t* label)
    : m_owner(owner),
      m_item(item),
      m_text(Translate(item.text)),
      m_label(Translate(label)),
      m_isEnabled(!item.Has(VItemFlag::Disabled)),
      m_isVisible(!item.Has(VItemFlag::Hidden))
{
}

void VControl::SetText(const VUnicodeString& text) { Assign(m_text, text, VChange::Text); }

void VControl::SetLabel(const VUnicodeString& label) { Assign(m_label, label, VChange::Label); }

VUnicodeString VControl::GetName() const
{
    if (!m_label.IsEmpty())
        return WithoutMark(m_label);
    return m_item.text ? WithoutMark(m_text) : VUnicodeString(); // an edit's text isn't its name
}

void VControl::Enable(bool enabled) { Assign(m_isEnabled, enabled, VChange::Enabled); }

void VControl::Show(bool visible) { Assign(m_isVisible, visible, VChange::Visible); }

void VControl::SetMarks(const VMarks& marks)
{
    const bool wasEnabled = IsEnabled();
    if (Assign(m_marks, marks, VChange::Marks) && wasEnabled != IsEnabled())
        Changed(VChange::Enabled);
}

void VControl::SetWidestText(const VUnicodeString& text) { Assign(m_widest, text, VChange::Size); }

void VControl::GrowWithText() { Assign(m_growsWithText, true, VChange::Size); }

VUnicodeString VControl::Dump() const
{
    VUnicodeString line = Format(u"%1!d! '%2'", m_item.id, GetName());
    if (!m_isVisible)
        line += u" hidden";
    if (!IsEnabled())
        line += m_marks.isLocked ? u" locked" : u" disabled";
    if (m_marks.isChanged)
        line += u" changed";
    if (m_marks.differs)
        line += u" differs";
    return line;
}

} // namespace ostrand
