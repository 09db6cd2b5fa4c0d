#include "dialogs/kit/marked_letter.h"

#include "dialogs/kit/user_input.h"

namespace ostrand {

namespace {

int OptionOf(const VRadioControl& radio, char16_t letter)
{
    for (int i = 0; i < radio.GetCount(); ++i)
        if (MarkedLetter(radio.GetOptions()[static_cast<size_t>(i)].text) == letter)
            return i;
    return -1;
}

/// A control by its own text.
bool PressItself(VForm& form, VControl& control, char16_t letter)
{
    VUserInput user(form);
    if (const auto* const radio = dynamic_cast<const VRadioControl*>(&control))
        return user.ChooseOption(control.GetId(), OptionOf(*radio, letter));
    const bool isPressed = control.GetKind() == VItemKind::Button || control.GetKind() == VItemKind::Check;
    return isPressed && MarkedLetter(control.GetText()) == letter && user.Click(control.GetId());
}

bool IsCaption(const VControl& control)
{
    return control.GetKind() == VItemKind::Label || control.GetKind() == VItemKind::Group;
}

/// Goes through a form's controls; `isPending` says that a caption with the letter waits for the control behind it.
bool PressIn(VForm& form, char16_t letter, bool& isPending)
{
    for (size_t i = 0; i < form.GetTemplate().Items().size(); ++i) {
        VControl* const control = form.ControlOfItem(i);
        if (!control || !control->IsVisible())
            continue;
        if (const auto* const place = dynamic_cast<const VPlaceControl*>(control)) {
            if (place->GetContent() && PressIn(*place->GetContent(), letter, isPending))
                return true;
        } else if (IsCaption(*control)) {
            isPending = isPending || MarkedLetter(control->GetText()) == letter;
        } else if (control->CanFocus() && (isPending || MarkedLetter(control->GetLabel()) == letter)) {
            form.SetFocus(control->GetId());
            return true;
        } else if (PressItself(form, *control, letter)) {
            return true;
        }
    }
    return false;
}

} // namespace

bool PressMarkedLetter(VForm& top, char16_t letter)
{
    bool isPending = false;
    return PressIn(top, letter, isPending);
}

} // namespace ostrand
