// VPropertyTreePage: one page of a dialog with a page tree. A page is a class with its template, its copies and its
// checks; docs/adding-a-page.md shows one whole.
#pragma once

#include "dialogs/kit/edited.h"
#include "dialogs/kit/form.h"
#include "dialogs/kit/page_state.h"

namespace ostrand {

class VPropertyTreeDialog;
class VPropertyTreePage;

/// What pages may ask of their dialog.
class IPropertyTreeDialog {
public:
    /// To the end of the top level; a page leaves where it stood before.
    virtual void AddPage(VPropertyTreePage* page) = 0;
    /// With its subtree; the pages stay alive.
    virtual void RemovePage(VPropertyTreePage* page) = 0;
    /// Into the visible tree and out of it, with the subtree, in its place. Once is as good as twice.
    virtual void ShowPage(VPropertyTreePage* page) = 0;
    virtual void HidePage(VPropertyTreePage* page) = 0;
    /// Enables Apply, where the dialog has it.
    virtual void SetModified(bool modified) = 0;
    /// Between true and false the loss of the selected page selects no other one.
    virtual void SetClearSelected(bool clear) = 0;
    virtual VPropertyPageStateMap* GetPageStateMap() = 0;

protected:
    ~IPropertyTreeDialog() = default;
};

class OSTRAND_API VPropertyTreePageBase {
public:
    virtual ~VPropertyTreePageBase() = default;
    /// Null for a page that stands in no dialog.
    virtual IPropertyTreeDialog* GetParentDialog() = 0;
};

/// A page counts as created when it has come to the front once; before, nothing of its record is read or written
/// through it. Leaving it, by a choice in the tree, OK or Apply, asks OnKillActive.
class OSTRAND_API VPropertyTreePage : public VForm, public VPropertyTreePageBase {
public:
    explicit VPropertyTreePage(const VTemplate& shown);
    /// Leaves its dialog and its parent; children lose their place.
    ~VPropertyTreePage() override;

    /// Borrowed; hangs below this page, at the end, and leaves where it hung before.
    void AddPage(VPropertyTreePage* child);

    const VUnicodeString& GetTreeLabel() const { return m_label; }
    const VUnicodeString& GetHeading() const { return m_heading; }
    /// "Terminal > Emulation > Modes"
    VUnicodeString GetPath() const;
    VPropertyTreePage* GetParentPage() const { return m_parentPage; }
    const std::vector<VPropertyTreePage*>& GetChildren() const { return m_children; }
    /// Whether the page and those above it are shown in a dialog's tree.
    bool IsInVisibleTree() const;
    bool IsCreated() const { return m_isCreated; }
    bool IsExpanded() const { return m_isExpanded; }
    IPropertyTreeDialog* GetParentDialog() override;

    /// Shows the copies, at the first activation. True: the form's first control is its focus.
    virtual bool OnInitDialog();
    /// The dialog is accepted, after the active page has been left; of created pages.
    virtual void OnOK() {}
    virtual void OnCancel() {}
    /// Each time that the page comes to the front.
    virtual void OnSetActive() {}
    /// The page is to be left. False keeps it, after telling the user why; the default saves.
    virtual bool OnKillActive();
    /// The page entered the visible tree or left it.
    virtual void OnShow(bool) {}
    /// Before the dialog opens.
    virtual void PreModal(VPropertyTreeDialog*) {}
    /// Something that the page shows has changed; called by other pages.
    virtual void Refresh() {}
    /// Names the page's remembered state; the default is its path.
    virtual VUnicodeString GetStateMapName() { return GetPath(); }
    virtual VPropertyTreeDialog* InternalGetParentDialog();

private:
    friend class VPropertyTreeDialog;

    /// Leaves its dialog, or its parent that stands in none.
    void Detach();

    VPropertyTreePage* m_parentPage = nullptr;
    std::vector<VPropertyTreePage*> m_children;
    VPropertyTreeDialog* m_dialog = nullptr; // of top-level pages alone
    VUnicodeString m_label;
    VUnicodeString m_heading;
    bool m_isShown = true;
    bool m_isExpanded = true;
    bool m_isCreated = false;
};

} // namespace ostrand
