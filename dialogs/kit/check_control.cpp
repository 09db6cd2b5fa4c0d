#include "dialogs/kit/check_control.h"

namespace ostrand {

VTriState VCheckControl::NextState() const
{
    if (m_state == VTriState::False)
        return VTriState::True;
    return m_state == VTriState::True && IsThreeState() ? VTriState::Undetermined : VTriState::False;
}

VUnicodeString VCheckControl::Dump() const
{
    constexpr const char16_t* kStates[] = {u": off", u": on", u": neither"};
    return VControl::Dump() + kStates[static_cast<unsigned>(m_state)];
}

} // namespace ostrand
