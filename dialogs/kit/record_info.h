// What a form may ask of the record behind its copies: the schema's word on a value, its default, and why it is what it
// is. One object for each record that a dialog edits, made when the dialog opens, before any value is changed.
#pragma once

#include "core/fold.h"
#include "dialogs/kit/value_origin.h"
#include "profile/schema.h"

#include <set>
#include <utility>

namespace ostrand {

class OSTRAND_API IRecordInfo {
public:
    virtual ~IRecordInfo() = default;
    /// Null for a value of another record.
    virtual const VSchemaEntry* EntryOf(const VProfileData& value) const = 0;
    /// The default, of the value's class; null where it has none that lasts. Lent.
    virtual const VProfileData* DefaultOf(const VProfileData& value) const = 0;
    /// Asked seldom: opens the store. The value must be one of this record.
    virtual VValueOrigin OriginOf(const VProfileData& value) const = 0;
    /// The value of this name in any case, or null. Lent.
    virtual const VProfileData* FindValue(std::u16string_view name) const = 0;
    virtual bool IsOrvane() const = 0;
};

/// Of a record with a schema. Record and defaults are borrowed; `defaults` holds nothing but them. Values that bounds
/// or rules have corrected are noted here, since accepting a record forgets it.
template <class C>
class VRecordInfo final : public IRecordInfo {
public:
    VRecordInfo(C& record, C& defaults, bool isOrvane, VRecordPlace place = {})
        : m_record(record),
          m_defaults(defaults),
          m_place(std::move(place)),
          m_isOrvane(isOrvane)
    {
        for (const VSchemaRow<C>& row : C::Schema().Rows())
            if (row.member && row.member(m_record)->IsModified())
                m_corrected.insert(row.member(m_record));
    }

    const VSchemaEntry* EntryOf(const VProfileData& value) const override { return RowOf(value); }
    const VProfileData* DefaultOf(const VProfileData& value) const override
    {
        const VSchemaRow<C>* const row = RowOf(value);
        return row && !row->computed ? row->member(m_defaults) : nullptr;
    }
    VValueOrigin OriginOf(const VProfileData& value) const override
    {
        return FindOrigin(*RowOf(value), m_isOrvane, m_place, m_corrected.count(&value) != 0);
    }
    const VProfileData* FindValue(std::u16string_view name) const override
    {
        for (const VSchemaRow<C>& row : C::Schema().Rows())
            if (row.member && EqualNoCase(row.NameFor(m_isOrvane), name))
                return row.member(m_record);
        return nullptr;
    }
    bool IsOrvane() const override { return m_isOrvane; }

private:
    const VSchemaRow<C>* RowOf(const VProfileData& value) const
    {
        for (const VSchemaRow<C>& row : C::Schema().Rows())
            if (row.member && row.member(m_record) == &value)
                return &row;
        return nullptr;
    }

    C& m_record;
    C& m_defaults;
    const VRecordPlace m_place;
    std::set<const VProfileData*> m_corrected;
    const bool m_isOrvane;
};

} // namespace ostrand
