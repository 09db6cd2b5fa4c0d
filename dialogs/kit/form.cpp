#include "dialogs/kit/form.h"

#include "dialogs/kit/control_factory.h"
#include "dialogs/kit/origin_text.h"
#include "dialogs/kit/record_info.h"

#include <algorithm>

namespace ostrand {

namespace {

/// What a user's change of a control of this kind raises.
VEventKind ChangeOf(const VControl& control)
{
    switch (control.GetKind()) {
    case VItemKind::Edit:
    case VItemKind::MultiLine:
        return VEventKind::TextChanged;
    case VItemKind::DropList:
        return VEventKind::SelectionChanged;
    default:
        return VEventKind::Clicked;
    }
}

} // namespace

VForm::VForm(const VTemplate& shown) : m_template(shown), m_controls(MakeControls(*this, shown)) {}

VForm::~VForm()
{
    if (Top().m_focus.form == this)
        Top().m_focus = {};
    for (const auto& control : m_controls)
        if (const auto* const place = dynamic_cast<const VPlaceControl*>(control.get()); place && place->GetContent())
            place->GetContent()->m_parent = nullptr;
    if (VPlaceControl* const place = m_parent ? m_parent->PlaceOf(*this) : nullptr)
        place->SetContent(nullptr);
}

void VForm::Silence()
{
    m_handlers.clear();
    m_view = nullptr;
}

VPlaceControl* VForm::PlaceOf(const VForm& form) const
{
    for (const auto& control : m_controls)
        if (auto* const place = dynamic_cast<VPlaceControl*>(control.get()); place && place->GetContent() == &form)
            return place;
    return nullptr;
}

VControl* VForm::Find(VControlId id) const
{
    const std::span<const VTemplateItem> items = m_template.Items();
    for (size_t i = 0; i < items.size(); ++i)
        if (id != 0 && items[i].id == id)
            return m_controls[i].get();
    return nullptr;
}

VControl& VForm::Control(VControlId id) const
{
    if (VControl* const control = Find(id))
        return *control;
    throw NoSuchControl();
}

bool VForm::UpdateData(VDataExchange::Direction direction)
{
    VFocusTarget culprit;
    {
        VDataExchange dx(*this, direction);
        DoDataExchange(dx);
        dx.Finish();
        culprit = dx.GetCulprit();
    }
    RefreshMarks();
    if (!culprit.form)
        return true;
    culprit.form->SetFocus(culprit.control);
    if (auto* const edit = dynamic_cast<VEditControl*>(culprit.form->Find(culprit.control)))
        edit->SelectAll();
    return false;
}

void VForm::DoDataExchange(VDataExchange& dx)
{
    for (VBinding* const binding : m_bindings)
        binding->Exchange(dx);
}

void VForm::ShowFirst()
{
    RefreshMarks(); // locks first, so that nothing of a locked value is seen as the user's
    for (VBinding* const binding : m_bindings)
        if (auto* const box = dynamic_cast<VCheckControl*>(Find(binding->GetControl())); box && box->IsThreeState())
            box->SetThirdStateWords(ThirdStateWords(*binding));
    UpdateData(VDataExchange::Show);
}

// Focus

const VForm& VForm::Top() const
{
    const VForm* form = this;
    while (form->m_parent)
        form = form->m_parent;
    return *form;
}

VControlId VForm::GetFocus() const
{
    const VFocusTarget& focus = Top().m_focus;
    return focus.form == this ? focus.control : VControlId{0};
}

bool VForm::SetFocus(VControlId id)
{
    std::vector<VFocusTarget> targets;
    Top().CollectFocusTargets(targets);
    const VFocusTarget wanted{this, id};
    if (std::find(targets.begin(), targets.end(), wanted) == targets.end())
        return false;
    SetFocusTarget(wanted);
    return true;
}

void VForm::OnReceivedFocus()
{
    std::vector<VFocusTarget> targets;
    CollectFocusTargets(targets);
    if (!targets.empty())
        SetFocusTarget(targets.front());
}

void VForm::CollectFocusTargets(std::vector<VFocusTarget>& targets)
{
    for (const auto& control : m_controls) {
        if (!control || !control->CanFocus())
            continue;
        if (const auto* const place = dynamic_cast<const VPlaceControl*>(control.get())) {
            if (place->GetContent())
                place->GetContent()->CollectFocusTargets(targets);
        } else {
            targets.push_back({this, control->GetId()});
        }
    }
}

void VForm::CollectForms(std::vector<VForm*>& forms)
{
    forms.push_back(this);
    for (const auto& control : m_controls)
        if (const auto* const place = dynamic_cast<const VPlaceControl*>(control.get()); place && place->GetContent())
            place->GetContent()->CollectForms(forms);
}

void VForm::SetFocusTarget(const VFocusTarget& target)
{
    VFocusTarget& focus = Top().m_focus;
    if (focus == target)
        return;
    const VFocusTarget before = focus;
    focus = target;
    if (before.form)
        before.form->RaiseFocus(before.control, VEventKind::FocusLost);
    if (target.form && focus == target) // a handler may have led elsewhere
        target.form->RaiseFocus(target.control, VEventKind::FocusGained);
}

void VForm::RaiseFocus(VControlId id, VEventKind event)
{
    VControl& control = Control(id);
    if (m_view)
        m_view->FocusChanged(event == VEventKind::FocusGained ? &control : nullptr);
    Handle(control, event);
}

/// Leads to the next control behind one that can't keep the focus, or to the first.
void VForm::PassFocusOn(VControlId from)
{
    std::vector<VFocusTarget> targets;
    Top().CollectFocusTargets(targets);
    if (targets.empty())
        return SetFocusTarget({});
    const auto itemOf = [this](VControlId id) {
        const auto items = m_template.Items();
        return std::find_if(items.begin(), items.end(), [id](const VTemplateItem& item) { return item.id == id; });
    };
    const auto next = std::find_if(targets.begin(), targets.end(), [&](const VFocusTarget& target) {
        return target.form == this && itemOf(target.control) > itemOf(from);
    });
    SetFocusTarget(next == targets.end() ? targets.front() : *next);
}

// Structure

void VForm::Put(VControlId place, VForm* form)
{
    VPlaceControl& at = At<VPlaceControl>(place);
    if (VForm* const before = at.GetContent(); before && before != form) {
        std::vector<VFocusTarget> inner;
        before->CollectFocusTargets(inner);
        if (std::find(inner.begin(), inner.end(), GetFocusTarget()) != inner.end())
            SetFocusTarget({});
        before->m_parent = nullptr;
    }
    if (form)
        form->m_parent = this;
    at.SetContent(form);
}

IDialogServices& VForm::Services() { return m_parent ? m_parent->Services() : DialogServices(); }

void* VForm::Window()
{
    if (m_view)
        return m_view->Window();
    return m_parent ? m_parent->Window() : nullptr;
}

// Values

const IRecordInfo* VForm::RecordOf(const VProfileData& value) const
{
    for (const VForm* form = this; form; form = form->m_parent)
        for (const IRecordInfo* const record : form->m_records)
            if (record->EntryOf(value))
                return record;
    return nullptr;
}

const VProfileData* VForm::FindValueElsewhere(std::u16string_view name, const IRecordInfo& own) const
{
    for (const VForm* form = this; form; form = form->m_parent)
        for (const IRecordInfo* const record : form->m_records)
            if (const VProfileData* const value = record == &own ? nullptr : record->FindValue(name))
                return value;
    return nullptr;
}

VBinding* VForm::BindingOf(VControlId id) const
{
    const auto found = std::find_if(m_bindings.begin(), m_bindings.end(),
                                    [id](const VBinding* binding) { return binding->GetControl() == id; });
    return found == m_bindings.end() ? nullptr : *found;
}

bool VForm::ResetToDefault(VControlId id)
{
    VBinding* const binding = BindingOf(id);
    if (!binding || !IsSettable(id) || !binding->ShowDefault())
        return false;
    ControlEvent(Control(id), ChangeOf(Control(id)));
    return true;
}

bool VForm::UndoChange(VControlId id)
{
    VBinding* const binding = BindingOf(id);
    if (!binding || !IsSettable(id))
        return false;
    binding->ShowOpened();
    ControlEvent(Control(id), ChangeOf(Control(id)));
    return true;
}

bool VForm::IsSettable(VControlId id) const
{
    const auto* const edit = dynamic_cast<const VEditControl*>(Find(id));
    return Control(id).CanFocus() && !(edit && edit->IsReadOnly());
}

void VForm::RefreshMarks()
{
    for (VBinding* const binding : m_bindings)
        Control(binding->GetControl()).SetMarks(binding->Compare());
}

// Events

void VForm::Press(VButtonControl& button) { ControlEvent(button, VEventKind::Clicked); }

void VForm::Handle(VControl& control, VEventKind event)
{
    if (m_exchanging > 0)
        return;
    for (size_t i = 0; i < m_handlers.size(); ++i)
        if (m_handlers[i].control == control.GetId() && m_handlers[i].event == event)
            m_handlers[i].run();
}

void VForm::ControlEvent(VControl& control, VEventKind event)
{
    Handle(control, event);
    if (m_exchanging == 0)
        RefreshMarks();
}

void VForm::ControlChanged(VControl& control, VChange change)
{
    if (m_view)
        m_view->ControlChanged(control, change);
    Top().ChangedWithin(*this, control, change);
    if (!control.CanFocus() && control.GetId() != 0 && GetFocus() == control.GetId())
        PassFocusOn(control.GetId());
}

} // namespace ostrand
