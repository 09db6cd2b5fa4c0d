// VPropertyTreeDialog: a tree of pages beside the page that is chosen in it, with a search over all of them.
#pragma once

#include "dialogs/kit/dialog.h"
#include "dialogs/kit/property_page.h"
#include "dialogs/kit/property_tree_rows.h"

namespace ostrand {

/// One line of a dialog's tree.
struct VTreeLine {
    VPropertyTreePage* page;
    VPropertyTreePage* parent = nullptr; ///< null: top level
    bool isPresent = true;               ///< else the page, and what would hang below it, isn't added
};

enum class VTreeStyle : uint8_t { Plain, WithApply };

class OSTRAND_API VPropertyTreeDialog : public VDialog, public IPropertyTreeDialog {
public:
    enum Id : VControlId { SearchText = 1, HitCount, PageTree, Heading, Page, Ok, Cancel, Apply };

    /// `states`, which may be null, is borrowed and outlives the dialog.
    VPropertyTreeDialog(const VUnicodeString& title, VTreeStyle style, VPropertyPageStateMap* states,
                        IDialogServices& services = DialogServices(), void* parentWindow = nullptr);
    ~VPropertyTreeDialog() override;

    /// Parents ahead of their children.
    void AddPages(std::initializer_list<VTreeLine> lines);
    void AddPage(VPropertyTreePage* page) override;
    void RemovePage(VPropertyTreePage* page) override;
    void ShowPage(VPropertyTreePage* page) override;
    void HidePage(VPropertyTreePage* page) override;
    void SetModified(bool modified) override { Control(Apply).Enable(modified); }
    void SetClearSelected(bool clear) override;
    VPropertyPageStateMap* GetPageStateMap() override { return m_states; }

    /// Begins on the first page, with the focus in it, whatever is remembered.
    void SetNewSession(bool isNew) { m_isNewSession = isNew; }
    void DisableOkButton() { Control(Ok).Enable(false); }

    const std::vector<VPropertyTreePage*>& GetPages() const { return m_pages; }
    /// Of the visible tree, in its order.
    std::vector<VPropertyTreePage*> GetVisiblePages() const;
    /// Null only while no page is visible.
    VPropertyTreePage* GetActivePage() const { return m_active; }
    /// As a choice in the tree: the active page may refuse to be left, then false.
    bool SelectPage(VPropertyTreePage& page);
    /// During a search everything is expanded; then it changes nothing.
    void Expand(VPropertyTreePage& page, bool isExpanded);

    /// What the tree shows.
    std::vector<VTreeRow> GetTreeRows() const;
    /// The row of the hit that was chosen last, or of the active page; -1 for none.
    int GetSelectedRow() const;
    /// As a choice in the tree: shows the page, of a hit with its control in sight.
    bool SelectRow(size_t row);
    /// ... and leads into it.
    bool OpenRow(size_t row);

    /// Pages and settings in sight that fit the words, the best first.
    std::vector<VSearchHit> Search(std::u16string_view words);
    /// Shows the hit's page, and leads to its control if `withFocus`. False when the active page refuses to be left.
    bool GoTo(const VSearchHit& hit, bool withFocus);
    /// Leads to where the words are typed.
    void StartSearch();
    /// Whether the tree shows what a search has found.
    bool IsSearching() const { return m_isSearching; }

protected:
    bool OnInitDialog() override;
    /// Leaves the active page, then OnOK of every created page in tree order.
    void OnOK() override;
    void OnCancel() override;
    void OnDestroy() override;
    void OnHelp() override;
    /// In a search, Return goes to the best hit or the selected row, Down to the best hit, and Escape ends the search.
    bool PreTranslateMessage(const VKeyEvent& key) override;
    /// After Apply has left the active page.
    virtual void OnApply();
    /// Once, when the dialog has been initialised; for what is to come when it is on the screen.
    virtual void OnOpened() = 0;

private:
    friend class VPropertyTreePage;

    void Begin() override;
    void ChangedWithin(const VForm& form, const VControl& control, VChange change) override;
    /// Changes the tree and tells the pages that come into sight or go; an active page that goes is replaced.
    void ChangeTree(const std::function<void()>& change);
    void ReplaceLostActive();
    void Activate(VPropertyTreePage* page);
    static void BringToFront(VPropertyTreePage& page);
    bool LeaveActive();
    bool AcceptPages();
    std::vector<VPropertyTreePage*> AllPages() const;
    VPropertyTreePage* RememberedPage();
    void TellTree();
    void OnApplyClicked();
    void OnSearchChanged();
    void SearchAnew();
    void ShowHitCount();
    void ExpandAbove(VPropertyTreePage& page);
    bool ChooseRow(size_t row, bool withFocus);
    bool HandleSearchKey(unsigned virtualKey);

    VPropertyPageStateMap* const m_states;
    std::vector<VPropertyTreePage*> m_pages;  // top level
    std::vector<VUnicodeString> m_builtPages; // names of those that were there before the dialog opened
    VPropertyTreePage* m_active = nullptr;
    std::vector<VPropertyTreePage*> m_heirs; // of an active page that has gone: it, then those above it; compared only
    VSettingSearch m_search;
    std::vector<VSearchHit> m_hits; // of what stands in SearchText, the best first
    int m_chosenHit = -1;           // whose row is selected
    bool m_isSearching = false;
    bool m_isSearchDue = false;
    bool m_isNewSession = false;
    bool m_isClearing = false;
    bool m_isOpen = false; // a page has been chosen
};

} // namespace ostrand
