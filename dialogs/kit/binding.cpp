#include "dialogs/kit/binding.h"

#include "dialogs/kit/form.h"
#include "dialogs/kit/record_info.h"
#include "profile/policy.h"

namespace ostrand {

VBinding::VBinding(VForm& form, VControlId control, VProfileData& target)
    : m_form(form),
      m_target(target),
      m_control(form.Control(control).GetId())
{
    form.m_bindings.push_back(this);
}

VBinding::~VBinding() { std::erase(m_form.m_bindings, this); }

const IRecordInfo* VBinding::Record() const { return m_form.RecordOf(m_target); }

const VSchemaEntry* VBinding::Entry() const
{
    const IRecordInfo* const record = Record();
    return record ? record->EntryOf(m_target) : nullptr;
}

const VProfileData* VBinding::DefaultValue() const
{
    const IRecordInfo* const record = Record();
    return record ? record->DefaultOf(m_target) : nullptr;
}

bool VBinding::IsLocked() const
{
    if (!m_isLocked && Record())
        m_isLocked = FindPolicy(m_target.name.c_str()).has_value();
    return m_isLocked.value_or(false);
}

} // namespace ostrand
