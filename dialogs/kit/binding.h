// VBinding: a control stands for a value of a record. From it come the exchange, the marks and the answer to "where
// does this come from?". VEdited (dialogs/kit/edited.h) is its one heir.
#pragma once

#include "dialogs/kit/control.h"
#include "dialogs/kit/exchange.h"
#include "profile/value.h"

#include <optional>

namespace ostrand {

class IRecordInfo;

class OSTRAND_API VBinding {
public:
    /// Registers with the form, which must have the control and outlive the binding.
    VBinding(VForm& form, VControlId control, VProfileData& target);
    virtual ~VBinding();
    VBinding(const VBinding&) = delete;
    VBinding& operator=(const VBinding&) = delete;

    VForm& Form() const { return m_form; }
    VControlId GetControl() const { return m_control; }
    const VProfileData& GetTarget() const { return m_target; }
    /// What the schema says of the value; null where no record of the form or its dialog knows it.
    const VSchemaEntry* Entry() const;
    const IRecordInfo* Record() const;

    /// Between control and copy; a save also writes the copy to the record, unless an administrator decides the value.
    virtual void Exchange(VDataExchange& dx) = 0;
    /// Whether what the control shows is another value than when the dialog opened, or than the default.
    virtual VMarks Compare() = 0;
    /// Brings the default, or the value that the dialog opened with, into control and copy. False without a default.
    virtual bool ShowDefault() = 0;
    virtual void ShowOpened() = 0;
    /// The default as the control would show it; empty without one.
    virtual VUnicodeString DefaultText() = 0;

protected:
    VProfileData& Target() const { return m_target; }
    /// The value's default, of its own class; null where it has none that lasts.
    const VProfileData* DefaultValue() const;
    /// Looked up once, when first asked of a form whose records know the value.
    bool IsLocked() const;

private:
    VForm& m_form;
    VProfileData& m_target;
    const VControlId m_control;
    mutable std::optional<bool> m_isLocked;
};

} // namespace ostrand
