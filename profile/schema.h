// One readable table per record, from which its constructor, load, merge, member table, find by name, documentation
// and the tool derive. A row is a constant; its functions are generated from the pointer to member:
//
//     constexpr std::array kRows = {
//         Bool<&C::showToolbar>(u"Show Toolbar", true, u"Whether the toolbar is shown.", InOrvane{u"Show Toolbar
//         OVN"}), Int<&C::mruCount>(u"MRU Count", 4, u"Entries in the list of recent sessions.", Within{0, 9}),
//         Rule<RawModeExcludesPort>(u"Raw mode excludes a direct port."),
//     };
//     static_assert(NamesAreUnique(kRows));
//
// A row whose class isn't the field's, whose default lies outside its bound, or whose name another row has, doesn't
// compile. Rows are read in their order, so a rule stands behind the values it uses.
#pragma once

#include "profile/blob.h"
#include "profile/blowfish_value.h"
#include "profile/color_values.h"
#include "profile/encoded_string.h"
#include "profile/log_font.h"
#include "profile/margins.h"
#include "profile/multi_line.h"
#include "profile/name_index.h"
#include "profile/schema_entry.h"
#include "profile/values.h"
#include "profile/view_state.h"
#include "profile/window_placement.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <mutex>
#include <span>
#include <type_traits>
#include <utility>
#include <vector>

namespace ostrand {

using VProfileString = VProfile2<VUnicodeString, VProfileSz>;
using VProfileStringList = VProfile2<VStringArray, VProfileMultiSz>;
using VProfileMargins = VProfile2<VMarginData, VProfileBinary>;
using VProfileColors = VProfile2<CustomColors, VProfileBinary>;

/// What every record's constructor hands to its rows; a record may derive its own with more in it.
struct VReadContext {
    const VProfileKey* key = nullptr; ///< null: nothing is read
    bool isOrvane = false;            ///< selects the names that depend on the application
};

/// One row of record C. C names its context as `C::ReadContext`.
template <class C>
struct VSchemaRow : VSchemaEntry {
    using Context = typename C::ReadContext;
    VProfileData* (*member)(C&) = nullptr; ///< null for a rule
    void (*load)(C&, const VSchemaRow&, const VUnicodeString& name, const Context&) = nullptr;
    void (*merge)(C&, const VSchemaRow&, const VProfileKey*) = nullptr;
};

/// One value of record C's schema: a row's own, or one of the table of a row's part.
template <class C>
struct VSchemaValue {
    const VSchemaEntry& entry; ///< of a part's value its name is the part's business
    const VSchemaRow<C>& row;
    int place = -1; ///< in the part's table; -1: the row's own

    VProfileData& In(C& record) const
    {
        VProfileData* const member = row.member(record);
        return place < 0 ? *member : *member->GetMember(place);
    }
};

// Options of rows.
struct InOrvane {
    const char16_t* name;
};
/// An old name: read when the new one is missing. Only the current value takes it, so the next save writes the new
/// name.
struct Formerly {
    const char16_t* name;
};
/// An old name of a number whose value, where the new one is missing, is the default: no change, but like any default
/// it waits for the next save.
struct DefaultFrom {
    const char16_t* name;
};
struct Within {
    int low, high;
};
struct AtLeast {
    int low;
};
struct Among {
    int low, high;
};
inline constexpr struct NotMergedOption {
} NotMerged;
/// Read at construction and merge, never written by the record: outside its table.
inline constexpr struct NeverSavedOption {
} NeverSaved;

/// A default that is computed while reading: `By<StoreExisted>(u"whether the store existed")`, where StoreExisted is a
/// function of the record and its context.
template <auto F>
struct By {
    const char16_t* how;
    constexpr explicit By(const char16_t* text) : how(text) {}
};

namespace schema_detail {

template <class M>
struct MemberOf;
template <class C, class F>
struct MemberOf<F C::*> {
    using Record = C;
    using Field = F;
};
template <class F>
struct ArgumentOf;
template <class C, class... Context>
struct ArgumentOf<void (*)(C&, Context...)> {
    using Record = C;
};
template <auto M>
using RecordOf = typename MemberOf<decltype(M)>::Record;
template <auto M>
using FieldOf = typename MemberOf<decltype(M)>::Field;

constexpr void Apply(VSchemaEntry& e, InOrvane o) { e.nameInOrvane = o.name; }
constexpr void Apply(VSchemaEntry& e, Formerly o) { e.formerly = o.name; }
constexpr void Apply(VSchemaEntry& e, DefaultFrom o)
{
    e.formerly = o.name;
    e.formerlyIsDefault = true;
}
constexpr void Apply(VSchemaEntry& e, Within o) { e.bound = {VBound::Kind::Within, o.low, o.high}; }
constexpr void Apply(VSchemaEntry& e, AtLeast o) { e.bound = {VBound::Kind::AtLeast, o.low, 0}; }
constexpr void Apply(VSchemaEntry& e, Among o) { e.bound = {VBound::Kind::Among, o.low, o.high}; }
constexpr void Apply(VSchemaEntry& e, NotMergedOption) { e.isMerged = false; }
constexpr void Apply(VSchemaEntry& e, NeverSavedOption) { e.isInTable = false; }

template <auto M>
VProfileData* Member(RecordOf<M>& record)
{
    return &(record.*M);
}

/// The part of a row that all kinds share.
template <auto M, class... Options>
consteval VSchemaRow<RecordOf<M>> Row(VValueClass type, const char16_t* name, const char16_t* meaning,
                                      Options... options)
{
    VSchemaRow<RecordOf<M>> row;
    row.name = name;
    row.type = type;
    row.meaning = meaning;
    row.member = Member<M>;
    (Apply(row, options), ...);
    return row;
}

template <auto M, class Field>
void Correct(RecordOf<M>& record, const VSchemaEntry& row)
{
    if constexpr (std::is_same_v<Field, VProfile<int>>) {
        if (row.bound.kind != VBound::Kind::None)
            (record.*M).value = row.bound.Corrected((record.*M).value, static_cast<int>(row.number));
    }
}

/// Loads with a given default, then looks at the old name and the bound.
template <auto M, class T>
void LoadNumber(RecordOf<M>& record, const VSchemaEntry& row, const VUnicodeString& name, const VProfileKey* key,
                T defaultValue)
{
    auto& value = record.*M;
    value.SetName(name);
    value.Load(key, defaultValue);
    unsigned old = 0;
    if (row.formerly && key && value.dirty && key->ReadDword(row.formerly, &old)) {
        value = static_cast<T>(old);
        if (row.formerlyIsDefault)
            value.saved = value.value;
    }
    Correct<M, FieldOf<M>>(record, row);
}

template <auto M>
void MergeValue(RecordOf<M>& record, const VSchemaRow<RecordOf<M>>& row, const VProfileKey* key)
{
    (record.*M).Merge(key);
    Correct<M, FieldOf<M>>(record, row);
}

/// A number's row without its default.
template <auto M, class T, class... Options>
consteval auto UnsetNumberRow(VValueClass type, const char16_t* name, const char16_t* meaning, Options... options)
{
    static_assert(std::is_same_v<FieldOf<M>, VProfile<T>>, "the row's class isn't the field's");
    auto row = Row<M>(type, name, meaning, options...);
    row.merge = MergeValue<M>;
    return row;
}

template <auto M, class T, class... Options>
consteval auto NumberRow(VValueClass type, const char16_t* name, T defaultValue, const char16_t* meaning,
                         Options... options)
{
    using C = RecordOf<M>;
    auto row = UnsetNumberRow<M, T>(type, name, meaning, options...);
    row.number = static_cast<int64_t>(defaultValue);
    if (!row.bound.Allows(row.number))
        throw "the default lies outside the bound";
    row.load = [](C& record, const VSchemaRow<C>& r, const VUnicodeString& n, const typename C::ReadContext& in) {
        LoadNumber<M, T>(record, r, n, in.key, static_cast<T>(r.number));
    };
    return row;
}

template <auto M, class T, auto F, class... Options>
consteval auto ComputedRow(VValueClass type, const char16_t* name, By<F> by, const char16_t* meaning,
                           Options... options)
{
    using C = RecordOf<M>;
    auto row = UnsetNumberRow<M, T>(type, name, meaning, options...);
    if (row.bound.kind == VBound::Kind::Among)
        throw "a default that isn't known yet can't replace other values";
    row.computed = by.how;
    row.load = [](C& record, const VSchemaRow<C>& r, const VUnicodeString& n, const typename C::ReadContext& in) {
        LoadNumber<M, T>(record, r, n, in.key, F(record, in));
    };
    return row;
}

/// A value whose default is a constant object; `Default` is a function that gives it.
template <auto M, auto Default, class Field, class... Options>
consteval auto ObjectRow(VValueClass type, const char16_t* name, const char16_t* meaning, Options... options)
{
    static_assert(std::is_same_v<FieldOf<M>, Field>, "the row's class isn't the field's");
    using C = RecordOf<M>;
    auto row = Row<M>(type, name, meaning, options...);
    row.load = [](C& record, const VSchemaRow<C>&, const VUnicodeString& n, const typename C::ReadContext& in) {
        (record.*M).SetName(n);
        (record.*M).Load(in.key, Default());
    };
    row.merge = MergeValue<M>;
    return row;
}

/// An object or text whose default is computed while reading.
template <auto M, class Field, auto F, class... Options>
consteval auto ComputedObjectRow(VValueClass type, const char16_t* name, By<F> by, const char16_t* meaning,
                                 Options... options)
{
    static_assert(std::is_same_v<FieldOf<M>, Field>, "the row's class isn't the field's");
    using C = RecordOf<M>;
    auto row = Row<M>(type, name, meaning, options...);
    row.computed = by.how;
    row.load = [](C& record, const VSchemaRow<C>&, const VUnicodeString& n, const typename C::ReadContext& in) {
        (record.*M).SetName(n);
        (record.*M).Load(in.key, F(record, in));
    };
    row.merge = MergeValue<M>;
    return row;
}

/// A value whose default is a text: a plain one, or a state that is kept as text.
template <auto M, class Field, class... Options>
consteval auto TextRow(VValueClass type, const char16_t* name, const char16_t* defaultText, const char16_t* meaning,
                       Options... options)
{
    static_assert(std::is_same_v<FieldOf<M>, Field>, "the row's class isn't the field's");
    using C = RecordOf<M>;
    auto row = Row<M>(type, name, meaning, options...);
    row.text = defaultText;
    row.load = [](C& record, const VSchemaRow<C>& r, const VUnicodeString& n, const typename C::ReadContext& in) {
        (record.*M).SetName(n);
        (record.*M).Load(in.key, VUnicodeString(r.text));
    };
    row.merge = MergeValue<M>;
    return row;
}

} // namespace schema_detail

template <auto M, class... Options>
consteval auto Bool(const char16_t* name, bool defaultValue, const char16_t* meaning, Options... options)
{
    return schema_detail::NumberRow<M, bool>(VValueClass::Bool, name, defaultValue, meaning, options...);
}
template <auto M, auto F, class... Options>
consteval auto Bool(const char16_t* name, By<F> by, const char16_t* meaning, Options... options)
{
    return schema_detail::ComputedRow<M, bool>(VValueClass::Bool, name, by, meaning, options...);
}
template <auto M, class... Options>
consteval auto Int(const char16_t* name, int defaultValue, const char16_t* meaning, Options... options)
{
    return schema_detail::NumberRow<M, int>(VValueClass::Int, name, defaultValue, meaning, options...);
}
template <auto M, auto F, class... Options>
consteval auto Int(const char16_t* name, By<F> by, const char16_t* meaning, Options... options)
{
    return schema_detail::ComputedRow<M, int>(VValueClass::Int, name, by, meaning, options...);
}
template <auto M, class... Options>
consteval auto TriState(const char16_t* name, VTriState defaultValue, const char16_t* meaning, Options... options)
{
    return schema_detail::NumberRow<M, VTriState>(VValueClass::TriState, name, defaultValue, meaning, options...);
}
template <auto M, class... Options>
consteval auto UInt(const char16_t* name, unsigned defaultValue, const char16_t* meaning, Options... options)
{
    return schema_detail::NumberRow<M, unsigned>(VValueClass::UInt, name, defaultValue, meaning, options...);
}
template <auto M, auto F, class... Options>
consteval auto ULong(const char16_t* name, By<F> by, const char16_t* meaning, Options... options)
{
    return schema_detail::ComputedRow<M, unsigned long>(VValueClass::ULong, name, by, meaning, options...);
}
template <auto M, class... Options>
consteval auto String(const char16_t* name, const char16_t* defaultText, const char16_t* meaning, Options... options)
{
    return schema_detail::TextRow<M, VProfileString>(VValueClass::String, name, defaultText, meaning, options...);
}
template <auto M, auto F, class... Options>
consteval auto String(const char16_t* name, By<F> by, const char16_t* meaning, Options... options)
{
    return schema_detail::ComputedObjectRow<M, VProfileString>(VValueClass::String, name, by, meaning, options...);
}
template <auto M, class... Options>
consteval auto Strings(const char16_t* name, const char16_t* meaning, Options... options)
{
    constexpr auto empty = [] { return VStringArray(); };
    return schema_detail::ObjectRow<M, empty, VProfileStringList>(VValueClass::Strings, name, meaning, options...);
}
/// Several lines of one text; it begins empty.
template <auto M, class... Options>
consteval auto MultiLine(const char16_t* name, const char16_t* meaning, Options... options)
{
    constexpr auto empty = [] { return VStringArray(); };
    return schema_detail::ObjectRow<M, empty, VProfileMultiLineString>(VValueClass::MultiLine, name, meaning,
                                                                       options...);
}
template <auto M, auto Default, class... Options>
consteval auto Font(const char16_t* name, const char16_t* meaning, Options... options)
{
    return schema_detail::ObjectRow<M, Default, VProfileLogFont>(VValueClass::Font, name, meaning, options...);
}
template <auto M, auto F, class... Options>
consteval auto Font(const char16_t* name, By<F> by, const char16_t* meaning, Options... options)
{
    return schema_detail::ComputedObjectRow<M, VProfileLogFont>(VValueClass::Font, name, by, meaning, options...);
}
template <auto M, auto Default, class... Options>
consteval auto Placement(const char16_t* name, const char16_t* meaning, Options... options)
{
    return schema_detail::ObjectRow<M, Default, VProfileWindowPlacement>(VValueClass::Placement, name, meaning,
                                                                         options...);
}
template <auto M, auto F, class... Options>
consteval auto Placement(const char16_t* name, By<F> by, const char16_t* meaning, Options... options)
{
    return schema_detail::ComputedObjectRow<M, VProfileWindowPlacement>(VValueClass::Placement, name, by, meaning,
                                                                        options...);
}
template <auto M, auto Default, class... Options>
consteval auto Margins(const char16_t* name, const char16_t* meaning, Options... options)
{
    return schema_detail::ObjectRow<M, Default, VProfileMargins>(VValueClass::Margins, name, meaning, options...);
}
template <auto M, auto Default, class... Options>
consteval auto Colors(const char16_t* name, const char16_t* meaning, Options... options)
{
    return schema_detail::ObjectRow<M, Default, VProfileColors>(VValueClass::Colors, name, meaning, options...);
}
template <auto M, class... Options>
consteval auto ListView(const char16_t* name, const char16_t* meaning, Options... options)
{
    return schema_detail::TextRow<M, VProfileListViewState>(VValueClass::ListView, name, u"", meaning, options...);
}
template <auto M, class... Options>
consteval auto ExplorerFrame(const char16_t* name, const char16_t* defaultText, const char16_t* meaning,
                             Options... options)
{
    return schema_detail::TextRow<M, VProfileExplorerFrameState>(VValueClass::ExplorerFrame, name, defaultText, meaning,
                                                                 options...);
}
/// A block without a fixed size; it has no default.
template <auto M, class... Options>
consteval auto Blob(const char16_t* name, const char16_t* meaning, Options... options)
{
    static_assert(std::is_same_v<schema_detail::FieldOf<M>, VProfileBlob>, "the row's class isn't the field's");
    using C = schema_detail::RecordOf<M>;
    auto row = schema_detail::Row<M>(VValueClass::Blob, name, meaning, options...);
    row.load = [](C& record, const VSchemaRow<C>&, const VUnicodeString& n, const typename C::ReadContext& in) {
        (record.*M).Load(in.key, n);
    };
    row.merge = [](C& record, const VSchemaRow<C>&, const VProfileKey* key) { (record.*M).ReadValue(key); };
    return row;
}

/// A record or list within the record, which has a form of its own in the store: P reads itself by
/// `LoadPart(const VProfileKey*)` and takes what a key holds by `MergePart(const VProfileKey*)`; a null key means that
/// nothing is read. Its row's name is the part's own; the names of its values are the part's business.
template <auto M, class... Options>
consteval auto Part(VValueClass type, const char16_t* name, const char16_t* meaning, Options... options)
{
    using C = schema_detail::RecordOf<M>;
    using P = schema_detail::FieldOf<M>;
    auto row = schema_detail::Row<M>(type, name, meaning, options...);
    if constexpr (requires { P::Schema(); })
        row.part = [] { return P::Schema().View(); };
    row.load = [](C& record, const VSchemaRow<C>&, const VUnicodeString& n, const typename C::ReadContext& in) {
        (record.*M).SetName(n);
        (record.*M).LoadPart(in.key);
    };
    row.merge = [](C& record, const VSchemaRow<C>&, const VProfileKey* key) { (record.*M).MergePart(key); };
    return row;
}

/// A secret in the encoded form, which takes over what the platform's protection wrote. It has no default.
template <auto M, class... Options>
consteval auto Encoded(const char16_t* name, const char16_t* meaning, Options... options)
{
    static_assert(std::is_same_v<schema_detail::FieldOf<M>, VProfileEncodedString>,
                  "the row's class isn't the field's");
    using C = schema_detail::RecordOf<M>;
    auto row = schema_detail::Row<M>(VValueClass::Encoded, name, meaning, options...);
    row.load = [](C& record, const VSchemaRow<C>&, const VUnicodeString& n, const typename C::ReadContext& in) {
        (record.*M).LoadTakingOver(in.key, n);
    };
    row.merge = schema_detail::MergeValue<M>;
    return row;
}
/// A secret in the encrypted form. Its default isn't written by the next save.
template <auto M, class... Options>
consteval auto Encrypted(const char16_t* name, const char16_t* defaultText, const char16_t* meaning, Options... options)
{
    static_assert(std::is_same_v<schema_detail::FieldOf<M>, VProfileBlowfishString>,
                  "the row's class isn't the field's");
    using C = schema_detail::RecordOf<M>;
    auto row = schema_detail::Row<M>(VValueClass::Encrypted, name, meaning, options...);
    row.text = defaultText;
    row.load = [](C& record, const VSchemaRow<C>& r, const VUnicodeString& n, const typename C::ReadContext& in) {
        (record.*M).Load(in.key, n, r.text);
    };
    row.merge = schema_detail::MergeValue<M>;
    return row;
}

namespace schema_detail {

template <class Record>
consteval VSchemaRow<Record> RuleRow(const char16_t* meaning)
{
    VSchemaRow<Record> row;
    row.meaning = meaning;
    row.isInTable = false;
    return row;
}

} // namespace schema_detail

/// A rule across values, at its point of the sequence: runs after a load and after a merge, on current values only.
template <auto F>
consteval auto Rule(const char16_t* meaning)
{
    using Record = typename schema_detail::ArgumentOf<decltype(F)>::Record;
    auto row = schema_detail::RuleRow<Record>(meaning);
    row.load = [](Record& record, const VSchemaRow<Record>&, const VUnicodeString&,
                  const typename Record::ReadContext&) { F(record); };
    row.merge = [](Record& record, const VSchemaRow<Record>&, const VProfileKey*) { F(record); };
    return row;
}
/// A rule that looks at the circumstances of the reading, too, as a second argument, so it runs after a load alone.
template <auto F>
consteval auto LoadRule(const char16_t* meaning)
{
    using Record = typename schema_detail::ArgumentOf<decltype(F)>::Record;
    auto row = schema_detail::RuleRow<Record>(meaning);
    row.load = [](Record& record, const VSchemaRow<Record>&, const VUnicodeString&,
                  const typename Record::ReadContext& in) { F(record, in); };
    row.merge = [](Record&, const VSchemaRow<Record>&, const VProfileKey*) {};
    return row;
}

namespace schema_detail {

constexpr char16_t Lower(char16_t c) { return c >= u'A' && c <= u'Z' ? static_cast<char16_t>(c + 32) : c; }

/// FNV-1a over the lower-case name: the compiler compares hashes, since it counts its steps.
constexpr uint64_t NameHash(const char16_t* name)
{
    uint64_t h = 0xCBF29CE484222325ull;
    for (; *name; ++name)
        h = (h ^ Lower(*name)) * 0x100000001B3ull;
    return h;
}

constexpr bool IsPlainName(const char16_t* name)
{
    for (; name && *name; ++name)
        if (*name < 0x20 || *name > 0x7E)
            return false;
    return true;
}

} // namespace schema_detail

namespace schema_detail {

/// Hashes of the names that one application sees, sorted; rules have none.
template <class C, size_t N>
consteval auto SortedHashes(const std::array<VSchemaRow<C>, N>& rows, bool isOrvane)
{
    std::array<uint64_t, N> hashes{};
    for (size_t i = 0; i < N; ++i)
        hashes[i] = rows[i].IsRule() ? i : NameHash(rows[i].NameFor(isOrvane));
    std::sort(hashes.begin(), hashes.end());
    return hashes;
}

template <class C, size_t N>
consteval bool HasUniqueNames(const std::array<VSchemaRow<C>, N>& rows, bool isOrvane)
{
    const auto hashes = SortedHashes(rows, isOrvane);
    if (std::adjacent_find(hashes.begin(), hashes.end()) != hashes.end())
        return false;
    for (const VSchemaRow<C>& row : rows)
        if (row.formerly && std::binary_search(hashes.begin(), hashes.end(), NameHash(row.formerly)))
            return false;
    return true;
}

} // namespace schema_detail

/// No two values of one application share a name, in any case, and no value takes another's old name. Names are plain
/// ASCII, which finds by name rely on.
template <class C, size_t N>
consteval bool NamesAreUnique(const std::array<VSchemaRow<C>, N>& rows)
{
    for (const VSchemaRow<C>& row : rows)
        if (!schema_detail::IsPlainName(row.name) || !schema_detail::IsPlainName(row.nameInOrvane))
            return false;
    return schema_detail::HasUniqueNames(rows, false) && schema_detail::HasUniqueNames(rows, true);
}

template <class C, size_t N>
consteval size_t CountInTable(const std::array<VSchemaRow<C>, N>& rows)
{
    size_t count = 0;
    for (const auto& row : rows)
        count += row.isInTable ? 1 : 0;
    return count;
}

/// A record's rows with what is derived from them once: shared names, the member table, the index by name. One for the
/// process, never destroyed: the names belong to all records that were ever read.
template <class C>
class VSchema {
public:
    explicit VSchema(std::span<const VSchemaRow<C>> rows) : m_rows(rows)
    {
        for (const VSchemaRow<C>& row : rows)
            for (const bool isOrvane : {false, true})
                AddName(isOrvane, row);
    }

    VSchemaView View() const { return {m_rows.data(), sizeof(VSchemaRow<C>), m_rows.size()}; }
    std::span<const VSchemaRow<C>> Rows() const { return m_rows; }
    /// Hands on each value in the rows' order; a part that is a record stands for the values of its table.
    template <class Visit>
    void VisitValues(Visit visit) const
    {
        for (const VSchemaRow<C>& row : m_rows) {
            if (row.IsRule())
                continue;
            if (!row.part) {
                visit(VSchemaValue<C>{row, row});
                continue;
            }
            const VSchemaView part = row.part();
            for (size_t i = 0, place = 0; i < part.GetCount(); ++i)
                if (part[i].isInTable)
                    visit(VSchemaValue<C>{part[i], row, static_cast<int>(place++)});
        }
    }

    /// Names every member, reads it or gives it its default, and runs the rules, row by row.
    void Load(C& record, const typename C::ReadContext& in) const { LoadAs(record, in, m_names[in.isOrvane ? 1 : 0]); }

    /// The same under other names, one for each row.
    void LoadAs(C& record, const typename C::ReadContext& in, std::span<const VUnicodeString> names) const
    {
        std::call_once(m_measured, [&] { MeasureOffsets(record); });
        const VUnicodeString* name = names.data();
        for (const VSchemaRow<C>& row : m_rows)
            row.load(record, row, *name++, in);
    }

    /// Lays the key's values over the record; what the key lacks stays. Rules run again.
    void Merge(C& record, const VProfileKey* key) const
    {
        for (const VSchemaRow<C>& row : m_rows)
            if (row.isMerged)
                row.merge(record, row, key);
    }

    /// The table's members of a record that was loaded; null behind the last.
    VProfileData* GetMember(C& record, int index) const
    {
        const auto i = static_cast<size_t>(index);
        return i < m_offsets.size() ? At(record, m_offsets[i]) : nullptr;
    }

    /// The table's place of a name in any case; -1 for one that isn't in the table.
    int FindMember(std::u16string_view name, bool isOrvane) const { return m_index[isOrvane ? 1 : 0].Find(name); }

    /// The row of a member of the table.
    const VSchemaRow<C>& RowOf(int index) const { return *m_table[static_cast<size_t>(index)]; }

private:
    void AddName(bool isOrvane, const VSchemaRow<C>& row)
    {
        const char16_t* const name = row.NameFor(isOrvane);
        m_names[isOrvane].push_back(VUnicodeString::Immortal(name ? name : u""));
        if (!row.isInTable)
            return;
        if (!isOrvane)
            m_table.push_back(&row);
        m_index[isOrvane].Add(name, static_cast<int>(m_table.size()) - 1);
    }

    static VProfileData* At(C& record, std::ptrdiff_t offset)
    {
        return reinterpret_cast<VProfileData*>(reinterpret_cast<unsigned char*>(&record) + offset);
    }

    /// Where the table's members lie in a record, the same for all: finds add a number instead of calling through the
    /// row, whose target no processor can foresee.
    void MeasureOffsets(C& record) const
    {
        for (const VSchemaRow<C>* row : m_table)
            m_offsets.push_back(reinterpret_cast<unsigned char*>(row->member(record)) -
                                reinterpret_cast<unsigned char*>(&record));
    }

    std::span<const VSchemaRow<C>> m_rows;
    std::vector<const VSchemaRow<C>*> m_table;
    std::array<std::vector<VUnicodeString>, 2> m_names; // one for each row, by application
    std::array<VNameIndex, 2> m_index;
    mutable std::once_flag m_measured;
    mutable std::vector<std::ptrdiff_t> m_offsets; // of the table's members, filled by the first load
};

} // namespace ostrand
