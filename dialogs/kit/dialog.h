// VDialog: a modal window with a form.
//
//     VDialog runs:  OnInitDialog, then on the screen, events, EndDialog(code), OnDestroy, DoModal gives the code
//
// OnOK and OnCancel may refuse by not ending it.
#pragma once

#include "core/parentable.h"
#include "dialogs/kit/form.h"
#include "dialogs/kit/key_event.h"

#include <deque>

namespace ostrand {

class OSTRAND_API VDialog : public VForm, public IParentable {
public:
    /// Above a form's window, with its services.
    VDialog(const VTemplate& shown, VForm& owner);
    /// `parentWindow` is the toolkit's own, or null.
    explicit VDialog(const VTemplate& shown, IDialogServices& services = DialogServices(),
                     void* parentWindow = nullptr);

    /// Runs the dialog to its end; the answer is the closing code. Not again while it runs.
    int DoModal();
    /// The halves of DoModal, for those whose own loop shows the dialog: Close ends one that still runs.
    void Open();
    int Close();
    /// Any code. The first call ends the dialog, later ones change nothing.
    void EndDialog(int code);
    bool IsRunning() const { return m_isRunning; }

    const VUnicodeString& GetTitle() const { return m_title; }
    void SetTitle(const VUnicodeString& title);
    /// Takes the mark off the button that had it; 0 leaves none. Return presses the button.
    void SetDefaultButton(VControlId button);
    VControlId GetDefaultButton() const;

    /// Runs after the present event, or, from OnInitDialog, when the dialog is on the screen; not at all once the
    /// dialog has ended.
    void PostToSelf(std::function<void()> task) { m_posted.push_back(std::move(task)); }
    /// For the one who runs the loop.
    void RunPosted();
    bool HasPosted() const { return !m_posted.empty(); }

    /// Makes the controls wide enough for the longest of the texts.
    void ResizeElements(std::initializer_list<VControlId> controls, std::initializer_list<VUnicodeString> texts);
    /// Gives a label its text and the height for it; the controls below move down, and the window grows.
    void ResizeElements(VControlId label, const VUnicodeString& text);

    /// A button that ends its dialog, the window's own closing, or Escape.
    void End(int result);
    /// Return, Escape, Tab, F1 and the marked letters, after PreTranslateMessage. False for a key that is the focused
    /// control's business.
    bool HandleKey(const VKeyEvent& key);

    void Press(VButtonControl& button) override;
    IDialogServices& Services() override { return m_services; }
    void* GetParentWindow() override;

protected:
    /// Shows the copies. True: the first control gets the focus; false: the dialog has set it.
    virtual bool OnInitDialog();
    /// Saves, and ends with kResultOk.
    virtual void OnOK();
    /// Ends with kResultCancel.
    virtual void OnCancel();
    virtual void OnDestroy() {}
    virtual void OnHelp() {}
    /// True swallows the key.
    virtual bool PreTranslateMessage(const VKeyEvent&) { return false; }

private:
    /// What happens before the dialog is on the screen.
    virtual void Begin();
    bool PressByReturn();
    void FocusNext(bool backwards);

    IDialogServices& m_services;
    void* const m_parentWindow;
    VUnicodeString m_title;
    std::deque<std::function<void()>> m_posted;
    int m_result = 0;
    bool m_isRunning = false;
};

} // namespace ostrand
