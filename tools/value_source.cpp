#include "tools/value_source.h"

#include "tools/global_rows.h"
#include "tools/output.h"

namespace ostrand::tool {

ValueSources::ValueSources(ConfigFolder& folder)
    : m_folder(folder),
      m_config(folder.Config()),
      m_defaults(GlobalDefaults(m_config.IsOrvane(), false)),
      m_stored(VUnknownPointer<GlobalConfig>::Adopt(new GlobalConfig(m_config)))
{
    m_stored->RevertChanges();
}

ValueSource ValueSources::SourceOf(const GlobalRow& row)
{
    const ValuePlace place = StoredPlace(row);
    if (place.line > 0 && row.Member(m_config)->IsModified())
        return {"corrected", place, "corrected from " + TextOf(row, *m_stored) + ": " + Correction(row)};
    if (place.line > 0)
        return {"stored", place, {}};
    const ValuePlace old = row.formerly ? m_folder.PlaceOf(row.formerly) : ValuePlace{};
    if (old.line > 0)
        return {"old name", old, "under its old name " + Cited(Lossless(row.formerly))};
    return {"not stored", {}, "not stored"};
}

bool ValueSources::HasLastingDefault(const GlobalRow& row) const
{
    return !row.computed || (row.type != VValueClass::ULong && StoredPlace(row).line > 0);
}

bool ValueSources::IsDifferent(const GlobalRow& row)
{
    return HasLastingDefault(row) && JsonOf(row, m_config) != JsonOf(row, *m_defaults);
}

bool ValueSources::IsWorthTelling(const GlobalRow& row)
{
    return HasLastingDefault(row) && (row.Member(m_config)->IsModified() || IsDifferent(row));
}

ValuePlace ValueSources::StoredPlace(const GlobalRow& row) const
{
    const ValuePlace place = m_folder.PlaceOf(row.NameFor(m_config.IsOrvane()));
    return place.line > 0 && HasGlobalValue(row, m_folder.GlobalKey(), m_config.IsOrvane()) ? place : ValuePlace{};
}

/// What corrected a stored value.
std::string ValueSources::Correction(const GlobalRow& row)
{
    const VUnknownPointer<GlobalConfig> stored = VUnknownPointer<GlobalConfig>::Adopt(new GlobalConfig(*m_stored));
    const VSchemaEntry* const rule = SettleEdit(*stored, row).refusedBy;
    return rule ? Lossless(rule->meaning) : "its bound is " + BoundText(row.bound);
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
