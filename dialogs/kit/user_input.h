// VUserInput: what a user can do to a form, for views and for tests. Each act changes the model and calls the handlers,
// as the same act on a screen would; one that a user could not do, on a control that is disabled, hidden or covered,
// changes nothing and is false. Controls that an act works on get the focus first.
#pragma once

#include "dialogs/kit/dialog.h"

namespace ostrand {

class VPropertyTreeDialog;

class OSTRAND_API VUserInput {
public:
    /// Borrows the form.
    explicit VUserInput(VForm& form) : m_form(form) {}

    bool MoveFocus(VControlId id) { return m_form.SetFocus(id); }
    /// A button, or a check box, which goes to its next state.
    bool Click(VControlId id);
    bool ChooseOption(VControlId group, int index);
    /// The whole text that now stands in the edit.
    bool Type(VControlId edit, std::u16string_view text);
    bool SelectText(VControlId edit, VEditControl::Range range);
    bool ChooseEntry(VControlId list, int index);
    /// An empty list takes the selection away.
    bool SelectRows(VControlId report, const std::vector<int>& rows);
    bool DoubleClick(VControlId report, int row);
    bool ChoosePage(VPropertyTreePage& page);
    /// A row of the page tree is selected, or opened: that leads into its page.
    bool ChooseTreeRow(int row);
    bool OpenTreeRow(int row);
    /// A key goes through the dialog first. False for a key that no keyboard has.
    bool PressKey(const VKeyEvent& key);

private:
    /// The control, focused, if a user can work on it.
    template <class C>
    C* Reach(VControlId id);
    /// The dialog, its page tree focused.
    VPropertyTreeDialog* ReachTree();

    VForm& m_form;
};

} // namespace ostrand
