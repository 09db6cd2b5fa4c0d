// What a form may ask of the record behind its copies: the schema's word on a value, its default, and why it is what it
// is. One object for each record that a dialog edits, made when the dialog opens, before any value is changed.
#pragma once

#include "dialogs/kit/value_origin.h"
#include "profile/schema.h"

#include <vector>

namespace ostrand {

class OSTRAND_API IRecordInfo {
public:
    virtual ~IRecordInfo() = default;
    /// Null for a value of another record. The name in the store is the value's own: an entry of a part lacks what the
    /// part puts in front.
    virtual const VSchemaEntry* EntryOf(const VProfileData& value) const = 0;
    /// The default, of the value's class; null where it has none that lasts. Lent.
    virtual const VProfileData* DefaultOf(const VProfileData& value) const = 0;
    /// Asked seldom: opens the store. The value must be one of this record.
    virtual VValueOrigin OriginOf(const VProfileData& value) const = 0;
    /// The value of this name in any case, or null. Lent.
    virtual const VProfileData* FindValue(std::u16string_view name) const = 0;
};

/// The same from a list of values.
class OSTRAND_API VValueListInfo : public IRecordInfo {
public:
    const VSchemaEntry* EntryOf(const VProfileData& value) const override;
    const VProfileData* DefaultOf(const VProfileData& value) const override;
    VValueOrigin OriginOf(const VProfileData& value) const override;
    const VProfileData* FindValue(std::u16string_view name) const override;

protected:
    explicit VValueListInfo(VRecordPlace place) : m_place(std::move(place)) {}
    /// Borrows all three. A value that a bound or a rule has corrected is noted, since accepting a record forgets it.
    void Add(const VSchemaEntry& entry, const VProfileData& value, const VProfileData& usual)
    {
        m_lines.push_back({&entry, &value, &usual, value.IsModified()});
    }

private:
    struct Line {
        const VSchemaEntry* entry;
        const VProfileData* value;
        const VProfileData* usual;
        bool isCorrected;
    };
    const Line* LineOf(const VProfileData& value) const;

    const VRecordPlace m_place;
    std::vector<Line> m_lines;
};

/// Of a record with a schema, and of the records within it. Record and defaults are borrowed; `defaults` holds nothing
/// but them.
template <class C>
class VRecordInfo final : public VValueListInfo {
public:
    VRecordInfo(C& record, C& defaults, VRecordPlace place = {}) : VValueListInfo(std::move(place))
    {
        C::Schema().VisitValues(
            [&](const VSchemaValue<C>& each) { Add(each.entry, each.In(record), each.In(defaults)); });
    }
};

} // namespace ostrand
