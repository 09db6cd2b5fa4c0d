// VCheckControl: a check box of two or three states.
#pragma once

#include "dialogs/kit/control.h"
#include "profile/values.h"

namespace ostrand {

class OSTRAND_API VCheckControl final : public VControl {
public:
    using VControl::VControl;

    bool IsThreeState() const { return GetItem().Has(VItemFlag::ThreeState); }
    bool IsChecked() const { return m_state == VTriState::True; }
    VTriState GetState() const { return m_state; }
    /// Raises no event.
    void SetState(VTriState state) { Assign(m_state, state, VChange::State); }
    void SetChecked(bool checked) { SetState(checked ? VTriState::True : VTriState::False); }
    /// The state after a click: off, on, neither, off; without "neither" in a box of two states.
    VTriState NextState() const;

    /// What "neither" means here and now, such as "global setting: on"; views show it beside the box in that state.
    const VUnicodeString& GetThirdStateWords() const { return m_words; }
    void SetThirdStateWords(const VUnicodeString& words) { Assign(m_words, words, VChange::Label); }

    VUnicodeString Dump() const override;

private:
    VTriState m_state = VTriState::False;
    VUnicodeString m_words;
};

} // namespace ostrand
