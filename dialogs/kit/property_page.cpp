#include "dialogs/kit/property_page.h"

#include "dialogs/kit/property_tree.h"

namespace ostrand {

VPropertyTreePage::VPropertyTreePage(const VTemplate& shown) : VForm(shown)
{
    const VUnicodeString title = Translate(shown.Title());
    const size_t end = title.Find(u"\n");
    m_label = title.Left(end);
    m_heading = end == VUnicodeString::npos ? title : title.Mid(end + 1);
}

VPropertyTreePage::~VPropertyTreePage()
{
    Silence();
    Detach();
    for (VPropertyTreePage* const child : m_children)
        child->m_parentPage = nullptr;
}

void VPropertyTreePage::AddPage(VPropertyTreePage* child)
{
    child->Detach();
    const auto add = [this, child] {
        child->m_parentPage = this;
        m_children.push_back(child);
    };
    if (VPropertyTreeDialog* const dialog = InternalGetParentDialog())
        dialog->ChangeTree(add);
    else
        add();
}

void VPropertyTreePage::Detach()
{
    if (VPropertyTreeDialog* const dialog = VPropertyTreePage::InternalGetParentDialog())
        dialog->RemovePage(this);
    else if (m_parentPage)
        std::erase(m_parentPage->m_children, this);
    m_parentPage = nullptr;
}

VUnicodeString VPropertyTreePage::GetPath() const
{
    return m_parentPage ? m_parentPage->GetPath() + u" > " + m_label : m_label;
}

bool VPropertyTreePage::IsInVisibleTree() const
{
    return m_isShown && (m_parentPage ? m_parentPage->IsInVisibleTree() : m_dialog != nullptr);
}

IPropertyTreeDialog* VPropertyTreePage::GetParentDialog() { return InternalGetParentDialog(); }

VPropertyTreeDialog* VPropertyTreePage::InternalGetParentDialog()
{
    return m_parentPage ? m_parentPage->InternalGetParentDialog() : m_dialog;
}

bool VPropertyTreePage::OnInitDialog()
{
    ShowFirst();
    return true;
}

bool VPropertyTreePage::OnKillActive() { return UpdateData(VDataExchange::Save); }

} // namespace ostrand
