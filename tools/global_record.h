// The global record as the commands see it.
#pragma once

#include "config/global/global_edit.h"
#include "tools/value_record.h"

namespace ostrand::tool {

class GlobalRecord : public ValueRecord {
public:
    /// `key` is the one that the record was read from, lent; null for a record that stands in no store.
    explicit GlobalRecord(VUnknownPointer<GlobalConfig> config, const VProfileKey* key = nullptr)
        : m_config(std::move(config)),
          m_key(key)
    {
    }

    std::vector<NamedValue> Values() override;
    VUnicodeString KeyPath() const override;
    std::unique_ptr<ValueRecord> Clone() const override;
    std::unique_ptr<ValueRecord> Defaults(bool ofThisStore) const override;
    bool IsStored(const NamedValue& value) const override;
    std::string WhyUnknown(std::u16string_view name) override;
    SettledEdit Settle(const VUnicodeString& edited, ValueRecord& before) override;
    bool Save(std::span<const VUnicodeString> names, IReportMessageParams& report) override;

    GlobalConfig& Config() { return *m_config; }
    /// The value of a row of config/global/global_edit.h.
    NamedValue ValueOf(const GlobalRow& row);

private:
    const GlobalRow& RowOf(std::u16string_view name) const;

    VUnknownPointer<GlobalConfig> m_config;
    const VProfileKey* m_key;
};

} // namespace ostrand::tool
