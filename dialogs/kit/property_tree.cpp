#include "dialogs/kit/property_tree.h"

#include <algorithm>

namespace ostrand {

namespace {

using D = VPropertyTreeDialog;
using namespace layout;

// clang-format off
constexpr auto kTreeDialog = layout::Page(u"",
    Row(Column(Field(u"Search:", Edit(D::SearchText, MaxChars{80}, Grow)),
               Tree(D::PageTree, Grow),
               Report(D::Hits, Hidden, NoHeadings, Grow, layout::Heading(u"Setting", 240))),
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
    On({Hits}, VEventKind::SelectionChanged, &VPropertyTreeDialog::OnHitSelected);
    On({Hits}, VEventKind::DoubleClicked, &VPropertyTreeDialog::OnHitChosen);
}

VPropertyTreeDialog::~VPropertyTreeDialog()
{
    for (VPropertyTreePage* const page : AllPages())
        page->SetParentForm(nullptr);
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
    TellTree();
    if (!Control(SearchText).GetText().IsEmpty())
        OnSearchChanged();
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
        for (VPropertyTreePage* const each : removed)
            each->SetParentForm(nullptr);
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

void VPropertyTreeDialog::Expand(VPropertyTreePage& page, bool isExpanded)
{
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

bool VPropertyTreeDialog::LeaveActive() { return !m_active || m_active->OnKillActive(); }

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
    Put(Page, page);
    if (before && before->InternalGetParentDialog() == this)
        before->SetParentForm(this);
    Control(Heading).SetText(page ? page->GetHeading() : VUnicodeString());
    if (page && !page->m_isCreated) {
        page->m_isCreated = true;
        page->OnInitDialog();
    }
    if (page)
        page->OnSetActive();
    if (GetView())
        GetView()->ActivePageChanged();
    if (!GetFocusTarget().form)
        SetFocus(Control(PageTree).CanFocus() ? PageTree : Hits);
}

// Life

void VPropertyTreeDialog::Begin()
{
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
    for (VPropertyTreePage* const page : AllPages())
        if (page->IsCreated())
            page->OnCancel();
    EndDialog(kResultCancel);
}

void VPropertyTreeDialog::OnHelp() { Services().ShowHelp(m_active ? m_active->GetStateMapName() : VUnicodeString()); }

void VPropertyTreeDialog::OnApply() { SetModified(false); }

void VPropertyTreeDialog::OnApplyClicked()
{
    if (AcceptPages())
        OnApply();
}

// The search

std::vector<VSearchHit> VPropertyTreeDialog::Search(std::u16string_view words)
{
    std::vector<VSearchHit> hits;
    for (VPropertyTreePage* const page : GetVisiblePages())
        SearchPage(*page, words, hits);
    std::sort(hits.begin(), hits.end(), [](const VSearchHit& a, const VSearchHit& b) {
        return a.score != b.score ? a.score > b.score : a.order < b.order;
    });
    return hits;
}

bool VPropertyTreeDialog::GoTo(const VSearchHit& hit, bool withFocus)
{
    VPropertyTreePage& page = *hit.page; // the hit may be one of the list's own
    const VControlId control = hit.control;
    if (!SelectPage(page))
        return false;
    if (withFocus)
        page.SetFocus(control);
    return true;
}

void VPropertyTreeDialog::OnSearchChanged()
{
    const VUnicodeString words = Control(SearchText).GetText().Trimmed();
    VReportControl& list = At<VReportControl>(Hits);
    m_hits.clear();
    list.Clear();
    m_hits = Search(words);
    for (const VSearchHit& hit : m_hits)
        list.Insert(list.GetCount(), {hit.text});
    list.Show(!words.IsEmpty());
    Control(PageTree).Show(words.IsEmpty());
}

bool VPropertyTreeDialog::PreTranslateMessage(const VKeyEvent& key)
{
    const bool isSearching = Control(Hits).IsVisible() && (GetFocus() == SearchText || GetFocus() == Hits);
    if (!isSearching || key.kind != VKeyEvent::Kind::Down)
        return VDialog::PreTranslateMessage(key);
    if (key.virtualKey == kKeyEscape) {
        Control(SearchText).SetText(u"");
        return true;
    }
    if (key.virtualKey != kKeyReturn)
        return VDialog::PreTranslateMessage(key);
    VReportControl& list = At<VReportControl>(Hits);
    if (list.GetSelected() < 0 && list.GetCount() > 0)
        list.Select(0);
    OnHitChosen();
    return true;
}

void VPropertyTreeDialog::OnHitSelected()
{
    const size_t row = static_cast<size_t>(At<VReportControl>(Hits).GetSelected());
    if (row < m_hits.size())
        GoTo(m_hits[row], false);
}

void VPropertyTreeDialog::OnHitChosen()
{
    const size_t row = static_cast<size_t>(At<VReportControl>(Hits).GetSelected());
    if (row < m_hits.size())
        GoTo(m_hits[row], true);
}

} // namespace ostrand
