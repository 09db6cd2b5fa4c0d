#include "tools/value_source.h"

#include "tools/output.h"

namespace ostrand::tool {

ValueSources::ValueSources(const ConfigFolder& folder, ValueRecord& record)
    : m_folder(folder),
      m_record(record),
      m_key(record.KeyPath()),
      m_defaults(record.Defaults(false)),
      m_stored(record.Clone())
{
    // One by one: a whole session goes back to another protocol, too.
    for (const NamedValue& value : m_stored->Values())
        value.value->RevertChanges();
}

ValueSource ValueSources::SourceOf(const NamedValue& value)
{
    const ValuePlace place = StoredPlace(value);
    if (place.line > 0 && value.value->IsModified())
        return {"corrected", place, Correction(value)};
    if (place.line > 0)
        return {"stored", place, {}};
    const char16_t* const formerly = value.entry.formerly;
    const ValuePlace old = formerly ? m_folder.PlaceIn(m_key.c_str(), formerly) : ValuePlace{};
    if (old.line > 0)
        return {"old name", old, "under its old name " + Cited(Lossless(formerly))};
    return {"not stored", {}, "not stored"};
}

bool ValueSources::HasLastingDefault(const NamedValue& value) const
{
    return !value.entry.computed || (value.entry.type != VValueClass::ULong && StoredPlace(value).line > 0);
}

bool ValueSources::IsDifferent(const NamedValue& value)
{
    const std::optional<NamedValue> usual = DefaultOf(value);
    return HasLastingDefault(value) && (!usual || JsonOf(value) != JsonOf(*usual));
}

bool ValueSources::IsWorthTelling(const NamedValue& value)
{
    const bool isCorrected = value.value->IsModified() && StoredPlace(value).line > 0;
    return HasLastingDefault(value) && (isCorrected || IsDifferent(value));
}

ValuePlace ValueSources::StoredPlace(const NamedValue& value) const
{
    const ValuePlace place = m_folder.PlaceIn(m_key.c_str(), value.value->name.c_str());
    return place.line > 0 && m_record.IsStored(value) ? place : ValuePlace{};
}

/// What corrected a stored value, and from what.
std::string ValueSources::Correction(const NamedValue& value)
{
    const std::unique_ptr<ValueRecord> stored = m_stored->Clone();
    const std::optional<NamedValue> before = FindValue(*m_stored, value.value->name);
    const std::string from = "corrected" + (before ? " from " + TextOf(*before) : "");
    if (const VSchemaEntry* const rule = stored->Settle(value.value->name, *m_stored).refusedBy)
        return from + ": " + Lossless(rule->meaning);
    const std::string range = BoundText(value.entry.bound);
    return from + (range.empty() ? " while it was read" : ": its bound is " + range);
}

void AddSource(Json& entry, const ValueSource& source)
{
    entry["from"] = source.kind;
    if (source.place.line > 0) {
        entry["file"] = source.place.file;
        entry["line"] = source.place.line;
    }
    if (!source.detail.empty())
        entry["detail"] = source.detail;
}

} // namespace ostrand::tool
