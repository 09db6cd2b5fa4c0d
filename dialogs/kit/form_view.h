// What a toolkit implements to show forms, and all that it implements. It reads the template and the controls, and is
// told of each change; what the user does goes back through VUserInput (dialogs/kit/user_input.h).
//
// A view sets itself on a form when it builds the form's widgets: on a dialog before it is shown, on a page when that
// is shown first, on the form in a place when the place tells VChange::Content. A view whose own widget made a change
// is told of it, too; setting a widget to what it shows already ends the circle.
#pragma once

#include "dialogs/kit/control.h"

namespace ostrand {

class VPropertyTreePage;

class IFormView {
public:
    virtual void ControlChanged(VControl& control, VChange change) = 0;
    /// Null: the focus has left the form.
    virtual void FocusChanged(VControl* control) = 0;
    /// The user is to see the control, which may be unable to have the focus.
    virtual void BringIntoSight(VControl&) {}
    /// The toolkit's window, for boxes above it.
    virtual void* Window() = 0;

    // Of dialogs alone.
    virtual void TitleChanged() {}
    /// The dialog no longer runs: RunModal comes back.
    virtual void Ended() {}

    // Of dialogs with a page tree alone.
    /// Rows came, went, were renamed, expanded or collapsed.
    virtual void TreeChanged() {}
    /// Another page is active, or another row selected.
    virtual void ActivePageChanged() {}

protected:
    ~IFormView() = default;
};

} // namespace ostrand
