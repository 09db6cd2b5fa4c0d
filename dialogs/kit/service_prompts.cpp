#include "dialogs/kit/service_prompts.h"

namespace ostrand {

VIcon IconOf(VPromptIcon icon)
{
    switch (icon) {
    case VPromptIcon::Error:
        return VIcon::Error;
    case VPromptIcon::Question:
        return VIcon::Question;
    case VPromptIcon::Warning:
        return VIcon::Warning;
    case VPromptIcon::Information:
        return VIcon::Information;
    case VPromptIcon::None:
        break;
    }
    return VIcon::None;
}

void VServicePrompts::Show(std::u16string_view text, VPromptIcon icon)
{
    m_services.ShowMessage(nullptr, {text, IconOf(icon)});
}

bool VServicePrompts::AskYesNo(std::u16string_view text, VPromptIcon icon)
{
    return m_services.ShowMessage(nullptr, {text, IconOf(icon), VButtons::YesNo}) == kResultYes;
}

bool VServicePrompts::PickFolder(std::u16string_view title, VUnicodeString& path)
{
    return m_services.PickFolder(nullptr, title, path);
}

void VServicePrompts::BeginWait()
{
    if (m_waits++ == 0)
        m_services.SetWaiting(true);
}

void VServicePrompts::EndWait()
{
    if (--m_waits == 0)
        m_services.SetWaiting(false);
}

} // namespace ostrand
