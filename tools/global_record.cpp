#include "tools/global_record.h"

#include "core/fold.h"
#include "tools/text.h"

namespace ostrand::tool {

namespace {

constexpr const char16_t* kGlobalKey = u"Global";

} // namespace

NamedValue GlobalRecord::ValueOf(const GlobalRow& row) { return {row, row.Member(*m_config), nullptr}; }

std::vector<NamedValue> GlobalRecord::Values()
{
    std::vector<NamedValue> values;
    for (const GlobalRow* row : GlobalRows())
        values.push_back(ValueOf(*row));
    return values;
}

VUnicodeString GlobalRecord::KeyPath() const { return kGlobalKey; }

std::unique_ptr<ValueRecord> GlobalRecord::Clone() const
{
    return std::make_unique<GlobalRecord>(VUnknownPointer<GlobalConfig>::Adopt(new GlobalConfig(*m_config)), m_key);
}

std::unique_ptr<ValueRecord> GlobalRecord::Defaults(bool ofThisStore) const
{
    const bool storeExisted = ofThisStore && !m_config->version.IsDirty();
    return std::make_unique<GlobalRecord>(GlobalDefaults(m_config->IsOrvane(), storeExisted));
}

bool GlobalRecord::IsStored(const NamedValue& value) const
{
    return m_key && HasGlobalValue(RowOf(value.value->name), *m_key, m_config->IsOrvane());
}

std::string GlobalRecord::WhyUnknown(std::u16string_view name)
{
    const bool isOrvane = m_config->IsOrvane();
    for (const GlobalRow* row : GlobalRows()) {
        const std::string own = Cited(Lossless(row->NameFor(isOrvane)));
        if (EqualNoCase(row->NameFor(!isOrvane), name))
            return "it is the other application's name of " + own + "; see --app";
        if (row->formerly && EqualNoCase(row->formerly, name))
            return "it is an old name of " + own;
    }
    return {};
}

SettledEdit GlobalRecord::Settle(const VUnicodeString& edited, ValueRecord&)
{
    const GlobalEdit edit = SettleEdit(*m_config, RowOf(edited));
    SettledEdit settled{edit.refusedBy, {}};
    for (const GlobalRow* row : edit.rows)
        settled.names.push_back(row->Member(*m_config)->name);
    return settled;
}

bool GlobalRecord::Save(std::span<const VUnicodeString> names, IReportMessageParams& report)
{
    std::vector<const GlobalRow*> rows;
    for (const VUnicodeString& name : names)
        rows.push_back(&RowOf(name));
    VProfileStore store;
    VProfileKey key(store.GetRootKey(), kGlobalKey);
    return SaveGlobalValues(*m_config, rows, key, report);
}

/// Names come from Values, so there is always one.
const GlobalRow& GlobalRecord::RowOf(std::u16string_view name) const
{
    return *FindGlobalRow(name, m_config->IsOrvane());
}

} // namespace ostrand::tool
