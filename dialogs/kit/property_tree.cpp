#include "dialogs/kit/property_tree.h"

#include <algorithm>
#include <set>
#include <tuple>
#include <utility>

namespace ostrand {

namespace {

using D = VPropertyTreeDialog;
using namespace layout;

// clang-format off
constexpr auto kTreeDialog = layout::Page(u"",
    Row(Column(Field(u"Search:", Edit(D::SearchText, MaxChars{80}, Width{12}, Grow)),
               Label(D::HitCount, u"", Hidden),
               Tree(D::PageTree, Grow)),
        Column(Label(D::Heading, u""),
               Place(D::Page, Grow))),
    Row(Stretch(),
        EndButton(D::Ok, u"OK", kResultOk, Default),
        EndButton(D::Cancel, u"Cancel", kResultCancel),
        Button(D::Apply, u"&Apply", Hidden, Disabled)));
// clang-format on

using Pages = std::vector<VPropertyTreePage*>;

/// Pages and those below them, each ahead of its children.
template <class Wanted>
void Collect(const Pages& pages, const Wanted& wanted, Pages& out)
{
    for (VPropertyTreePage* const page : pages)
        if (wanted(*page)) {
            out.push_back(page);
            Collect(page->GetChildren(), wanted, out);
        }
}

bool Has(const Pages& pages, const VPropertyTreePage* page)
{
    return std::find(pages.begin(), pages.end(), page) != pages.end();
}

/// The pages of one list that the other one lacks.
Pages Lacking(const Pages& pages, const Pages& others)
{
    Pages lacking;
    std::copy_if(pages.begin(), pages.end(), std::back_inserter(lacking),
                 [&](const VPropertyTreePage* page) { return !Has(others, page); });
    return lacking;
}

void MarkFound(VForm& page, const std::set<std::pair<const VForm*, VControlId>>& found)
{
    std::vector<VForm*> forms;
    page.CollectForms(forms);
    for (const VForm* const form : forms)
        for (size_t i = 0; i < form->GetTemplate().Items().size(); ++i)
            if (VControl* const control = form->ControlOfItem(i); control && control->GetItem().TakesFocus())
                control->SetFound(found.count({form, control->GetId()}) != 0);
}

} // namespace

VPropertyTreeDialog::VPropertyTreeDialog(const VUnicodeString& title, VTreeStyle style, VPropertyPageStateMap* states,
                                         IDialogServices& services, void* parentWindow)
    : VDialog(kTreeDialog, services, parentWindow),
      m_states(states)
{
    SetTitle(title);
    Control(Apply).Show(style == VTreeStyle::WithApply);
    On({Apply}, VEventKind::Clicked, &VPropertyTreeDialog::OnApplyClicked);
    On({SearchText}, VEventKind::TextChanged, &VPropertyTreeDialog::OnSearchChanged);
}

VPropertyTreeDialog::~VPropertyTreeDialog()
{
    for (VPropertyTreePage* const page : AllPages()) {
        MarkFound(*page, {});
        page->SetParentForm(nullptr);
    }
    for (VPropertyTreePage* const page : m_pages)
        page->m_dialog = nullptr;
}

// The tree

std::vector<VPropertyTreePage*> VPropertyTreeDialog::AllPages() const
{
    Pages all;
    Collect(m_pages, [](const VPropertyTreePage&) { return true; }, all);
    return all;
}

std::vector<VPropertyTreePage*> VPropertyTreeDialog::GetVisiblePages() const
{
    Pages visible;
    Collect(m_pages, [](const VPropertyTreePage& page) { return page.m_isShown; }, visible);
    return visible;
}

void VPropertyTreeDialog::ChangeTree(const std::function<void()>& change)
{
    const Pages before = GetVisiblePages();
    Pages heirs;
    for (VPropertyTreePage* page = m_active; page; page = page->GetParentPage())
        heirs.push_back(page);
    change();
    const Pages all = AllPages();
    for (VPropertyTreePage* const page : all)
        page->SetParentForm(this);
    const Pages after = GetVisiblePages();
    if (m_active && !Has(after, m_active))
        m_heirs = heirs;
    if (m_active && !Has(all, m_active)) { // no longer ours
        Put(Page, nullptr);
        m_active = nullptr;
    }
    for (VPropertyTreePage* const page : Lacking(before, after))
        page->OnShow(false);
    for (VPropertyTreePage* const page : Lacking(after, before))
        page->OnShow(true);
    m_search.Clear();
    if (m_isSearching)
        SearchAnew();
    TellTree();
    if (m_isOpen && !m_isClearing)
        ReplaceLostActive();
}

/// Nothing of the page that goes is saved: it was taken away, not left.
void VPropertyTreeDialog::ReplaceLostActive()
{
    if (m_active && m_active->IsInVisibleTree())
        return;
    const Pages visible = GetVisiblePages();
    const auto heir = std::find_if(m_heirs.begin(), m_heirs.end(), [&](auto* page) { return Has(visible, page); });
    Activate(heir != m_heirs.end() ? *heir : visible.empty() ? nullptr : visible.front());
}

void VPropertyTreeDialog::AddPages(std::initializer_list<VTreeLine> lines)
{
    for (const VTreeLine& line : lines) {
        if (!line.isPresent)
            continue;
        if (!line.parent)
            AddPage(line.page);
        else if (line.parent->InternalGetParentDialog() == this)
            line.parent->AddPage(line.page);
    }
}

void VPropertyTreeDialog::AddPage(VPropertyTreePage* page)
{
    page->Detach();
    ChangeTree([this, page] {
        page->m_dialog = this;
        m_pages.push_back(page);
    });
}

void VPropertyTreeDialog::RemovePage(VPropertyTreePage* page)
{
    Pages removed;
    Collect({page}, [](const VPropertyTreePage&) { return true; }, removed);
    ChangeTree([this, page, &removed] {
        std::erase(page->m_parentPage ? page->m_parentPage->m_children : m_pages, page);
        page->m_parentPage = nullptr;
        page->m_dialog = nullptr;
        for (VPropertyTreePage* const each : removed) {
            MarkFound(*each, {});
            each->SetParentForm(nullptr);
        }
    });
}

void VPropertyTreeDialog::ShowPage(VPropertyTreePage* page)
{
    if (!page->m_isShown)
        ChangeTree([page] { page->m_isShown = true; });
}

void VPropertyTreeDialog::HidePage(VPropertyTreePage* page)
{
    if (page->m_isShown)
        ChangeTree([page] { page->m_isShown = false; });
}

void VPropertyTreeDialog::SetClearSelected(bool clear)
{
    m_isClearing = clear;
    if (!clear && m_isOpen)
        ReplaceLostActive();
}

void VPropertyTreeDialog::ExpandAbove(VPropertyTreePage& page)
{
    for (VPropertyTreePage* above = page.GetParentPage(); above; above = above->GetParentPage())
        if (!std::exchange(above->m_isExpanded, true))
            TellTree();
}

void VPropertyTreeDialog::Expand(VPropertyTreePage& page, bool isExpanded)
{
    if (m_isSearching)
        return;
    bool coversActive = false;
    for (const VPropertyTreePage* above = m_active; above; above = above->GetParentPage())
        coversActive = coversActive || above->GetParentPage() == &page;
    if (!isExpanded && coversActive && !SelectPage(page))
        return;
    page.m_isExpanded = isExpanded;
    TellTree();
}

void VPropertyTreeDialog::TellTree()
{
    if (GetView())
        GetView()->TreeChanged();
}

// The active page

bool VPropertyTreeDialog::LeaveActive() { return !m_active || !m_active->IsCreated() || m_active->OnKillActive(); }

bool VPropertyTreeDialog::SelectPage(VPropertyTreePage& page)
{
    if (&page == m_active)
        return true;
    if (!page.IsInVisibleTree() || !LeaveActive())
        return false;
    Activate(&page);
    return true;
}

void VPropertyTreeDialog::Activate(VPropertyTreePage* page)
{
    VPropertyTreePage* const before = m_active;
    m_active = page;
    m_isOpen = true;
    if (page && !m_isSearching)
        ExpandAbove(*page);
    Put(Page, page);
    if (before && before->InternalGetParentDialog() == this)
        before->SetParentForm(this);
    Control(Heading).SetText(page ? page->GetHeading() : VUnicodeString());
    if (GetView())
        GetView()->ActivePageChanged();
    if (page)
        BringToFront(*page);
    if (!GetFocusTarget().form)
        SetFocus(PageTree);
}

/// A page that throws while it is initialised doesn't count as created: its controls show nothing that could be saved.
void VPropertyTreeDialog::BringToFront(VPropertyTreePage& page)
{
    try {
        if (!std::exchange(page.m_isCreated, true))
            page.OnInitDialog();
    } catch (...) {
        page.m_isCreated = false;
        throw;
    }
    page.OnSetActive();
}

// Life

void VPropertyTreeDialog::Begin()
{
    Control(SearchText).SetText(u"");
    m_search.Clear(); // records may have come
    m_isSearchDue = false;
    for (VPropertyTreePage* const page : AllPages()) {
        page->m_isCreated = false; // a former run may have created it
        page->PreModal(this);
    }
    m_builtPages.clear();
    for (VPropertyTreePage* const page : AllPages())
        m_builtPages.push_back(page->GetStateMapName());
    if (m_states)
        m_states->TakeBranches(m_builtPages);
    OnInitDialog();
    SetFocus(PageTree);
    const Pages visible = GetVisiblePages();
    VPropertyTreePage* const remembered = m_isNewSession ? nullptr : RememberedPage();
    Activate(remembered ? remembered : visible.empty() ? nullptr : visible.front());
    if (m_isNewSession && m_active)
        m_active->OnReceivedFocus();
    OnOpened();
}

VPropertyTreePage* VPropertyTreeDialog::RememberedPage()
{
    VPropertyTreePage* selected = nullptr;
    for (VPropertyTreePage* const page : AllPages()) {
        VPropertyPageState* state = nullptr;
        if (!m_states || !m_states->Lookup(page->GetStateMapName(), state))
            continue;
        page->m_isExpanded = state->isExpanded;
        if (state->isSelected && page->IsInVisibleTree())
            selected = page;
    }
    return selected;
}

bool VPropertyTreeDialog::OnInitDialog() { return VDialog::OnInitDialog(); }

void VPropertyTreeDialog::OnDestroy()
{
    m_isOpen = false;
    if (!m_states)
        return;
    for (VPropertyTreePage* const page : AllPages())
        m_states->StateOf(page->GetStateMapName()).isExpanded = page->m_isExpanded;
    if (m_active)
        m_states->Select(m_active->GetStateMapName());
    m_states->KeepBranches(m_builtPages);
}

bool VPropertyTreeDialog::AcceptPages()
{
    if (!LeaveActive())
        return false;
    for (VPropertyTreePage* const page : AllPages())
        if (page->IsCreated())
            page->OnOK();
    return true;
}

void VPropertyTreeDialog::OnOK()
{
    if (AcceptPages())
        EndDialog(kResultOk);
}

void VPropertyTreeDialog::OnCancel()
{
    EndDialog(kResultCancel); // whatever a page throws
    for (VPropertyTreePage* const page : AllPages())
        if (page->IsCreated())
            page->OnCancel();
}

void VPropertyTreeDialog::OnHelp() { Services().ShowHelp(m_active ? m_active->GetStateMapName() : VUnicodeString()); }

void VPropertyTreeDialog::OnApply() { SetModified(false); }

void VPropertyTreeDialog::OnApplyClicked()
{
    if (AcceptPages())
        OnApply();
}

// The search

std::vector<VTreeRow> VPropertyTreeDialog::GetTreeRows() const
{
    return m_isSearching ? RowsOfHits(m_pages, m_hits) : RowsOfPages(m_pages);
}

int VPropertyTreeDialog::GetSelectedRow() const
{
    const std::vector<VTreeRow> rows = GetTreeRows();
    const auto selected = std::find_if(rows.begin(), rows.end(), [this](const VTreeRow& row) {
        return m_chosenHit >= 0 ? row.hit == m_chosenHit : row.page == m_active;
    });
    return selected == rows.end() ? -1 : static_cast<int>(selected - rows.begin());
}

std::vector<VSearchHit> VPropertyTreeDialog::Search(std::u16string_view words)
{
    std::vector<VSearchHit> hits;
    for (VPropertyTreePage* const page : GetVisiblePages())
        m_search.Search(*page, words, hits);
    std::sort(hits.begin(), hits.end(), [](const VSearchHit& a, const VSearchHit& b) {
        return a.score != b.score ? a.score > b.score : a.order < b.order;
    });
    return hits;
}

bool VPropertyTreeDialog::GoTo(const VSearchHit& hit, bool withFocus)
{
    const auto [page, form, id] = std::tuple(hit.page, hit.form, hit.control); // handlers may end the search
    if (!SelectPage(*page) || m_active != page)
        return false;
    std::vector<VForm*> forms;
    page->CollectForms(forms);
    VControl* const control = std::find(forms.begin(), forms.end(), form) == forms.end() ? nullptr : form->Find(id);
    if (control && form->GetView())
        form->GetView()->BringIntoSight(*control);
    if (control && withFocus)
        form->SetFocus(id);
    else if (withFocus)
        page->OnReceivedFocus();
    return true;
}

bool VPropertyTreeDialog::ChooseRow(size_t index, bool withFocus)
{
    const std::vector<VTreeRow> rows = GetTreeRows();
    if (index >= rows.size())
        return false;
    const VTreeRow& row = rows[index];
    const int before = std::exchange(m_chosenHit, row.hit);
    const VSearchHit wanted =
        row.hit < 0 ? VSearchHit{row.page, row.page, 0, 0, 0, {}} : m_hits[static_cast<size_t>(row.hit)];
    const bool isDone = GoTo(wanted, withFocus);
    if (!isDone)
        m_chosenHit = before < static_cast<int>(m_hits.size()) ? before : -1;
    if (GetView())
        GetView()->ActivePageChanged();
    return isDone;
}

bool VPropertyTreeDialog::SelectRow(size_t row) { return ChooseRow(row, false); }

bool VPropertyTreeDialog::OpenRow(size_t row) { return ChooseRow(row, true); }

void VPropertyTreeDialog::StartSearch()
{
    if (SetFocus(SearchText))
        At<VEditControl>(SearchText).SelectAll();
}

void VPropertyTreeDialog::OnSearchChanged()
{
    const bool wasSearching = std::exchange(m_isSearching, !Control(SearchText).GetText().Trimmed().IsEmpty());
    if (wasSearching && !m_isSearching && m_active)
        ExpandAbove(*m_active);
    SearchAnew();
    TellTree();
}

/// The hit that was chosen stays so while it is found.
void VPropertyTreeDialog::SearchAnew()
{
    const VSearchHit chosen = m_chosenHit < 0 ? VSearchHit{} : m_hits[static_cast<size_t>(m_chosenHit)];
    m_hits = m_isSearching ? Search(Control(SearchText).GetText()) : std::vector<VSearchHit>();
    const auto again = std::find_if(m_hits.begin(), m_hits.end(), [&](const VSearchHit& hit) {
        return hit.form == chosen.form && hit.control == chosen.control;
    });
    m_chosenHit = again == m_hits.end() ? -1 : static_cast<int>(again - m_hits.begin());
    std::set<std::pair<const VForm*, VControlId>> found;
    for (const VSearchHit& hit : m_hits)
        found.insert({hit.form, hit.control});
    for (VPropertyTreePage* const page : AllPages())
        MarkFound(*page, found);
    ShowHitCount();
}

void VPropertyTreeDialog::ShowHitCount()
{
    const size_t count = m_hits.size();
    Control(HitCount).SetText(count == 0   ? Translate(u"No setting found")
                              : count == 1 ? Translate(u"1 hit")
                                           : TranslateFormat(u"%1!u! hits", count));
    Control(HitCount).Show(m_isSearching);
}

/// A page that shows or hides something of itself does so in the middle of its work.
void VPropertyTreeDialog::ChangedWithin(const VForm& form, const VControl& control, VChange change)
{
    const bool isTyped = control.GetKind() == VItemKind::Edit || control.GetKind() == VItemKind::MultiLine;
    const bool isText = change == VChange::Label || (change == VChange::Text && !isTyped);
    if (&form == this || !(isText || change == VChange::Content || change == VChange::Visible))
        return;
    m_search.Clear();
    if (!m_isSearching || std::exchange(m_isSearchDue, true))
        return;
    PostToSelf([this] {
        m_isSearchDue = false;
        OnSearchChanged();
    });
}

bool VPropertyTreeDialog::PreTranslateMessage(const VKeyEvent& key)
{
    const bool isOurs =
        m_isSearching && key.kind == VKeyEvent::Kind::Down && (GetFocus() == SearchText || GetFocus() == PageTree);
    return (isOurs && HandleSearchKey(key.virtualKey)) || VDialog::PreTranslateMessage(key);
}

bool VPropertyTreeDialog::HandleSearchKey(unsigned virtualKey)
{
    const bool isTyping = GetFocus() == SearchText;
    if (virtualKey == kKeyEscape) {
        Control(SearchText).SetText(u"");
        return true;
    }
    const bool isReturn = virtualKey == kKeyReturn;
    if (!isReturn && !(isTyping && virtualKey == kKeyDown))
        return false;
    const std::vector<VTreeRow> rows = GetTreeRows();
    const auto best = std::find_if(rows.begin(), rows.end(), [](const VTreeRow& row) { return row.hit == 0; });
    const int row = isTyping ? static_cast<int>(best - rows.begin()) : GetSelectedRow();
    if (row < 0 || row >= static_cast<int>(rows.size()))
        return true;
    if (isReturn)
        OpenRow(static_cast<size_t>(row));
    else if (SelectRow(static_cast<size_t>(row)))
        SetFocus(PageTree);
    return true;
}

} // namespace ostrand
