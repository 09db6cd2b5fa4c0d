// Firewalls and filters: records whose fields are the rows of their schema.
#include "config/global/filter_list.h"
#include "config/global/firewall_list.h"
#include "core/fold.h"
#include "tools/definitions.h"
#include "tools/text.h"
#include "tools/value_json.h"
#include "tools/words.h"

#include <algorithm>
#include <optional>

namespace ostrand::tool {

namespace {

/// R is the record; its rows are its fields.
template <class R>
class RecordDefinition : public Definition {
public:
    using Save_ = bool (*)(R&, IReportMessageParams&);

    RecordDefinition(VUnknownPointer<R> record, Save_ save) : m_record(std::move(record)), m_save(save) {}

    Json Fields(bool reveal) override
    {
        Json fields = Json::object();
        for (const VSchemaRow<R>& row : R::Schema().Rows()) {
            const VProfileData& value = *row.member(*m_record);
            const auto* const secret = reveal ? dynamic_cast<const VProfileEncodedString*>(&value) : nullptr;
            fields[Lossless(row.name)] = secret ? Json(Lossless(*secret)) : ValueToJson(row.type, value);
        }
        return fields;
    }
    bool IsSecret(const std::string& field) const override
    {
        const VSchemaRow<R>* const row = Find(field);
        return row && row->type == VValueClass::Encoded;
    }
    bool Set(const std::string& field, const std::string& word, std::string& problem) override
    {
        const VSchemaRow<R>* const row = Find(field);
        if (!row)
            return Refuse(problem, "no field is named " + Cited(field) + "; there are " + FieldNames());
        return SetValue(*row, word, problem);
    }
    bool Save(IReportMessageParams& report) override { return m_save(*m_record, report); }

protected:
    static bool Refuse(std::string& problem, const std::string& text)
    {
        problem = text;
        return false;
    }
    virtual bool SetValue(const VSchemaRow<R>& row, const std::string& word, std::string& problem)
    {
        return SetFromWords(row, *row.member(*m_record), std::span(&word, 1), problem);
    }
    R& Record() { return *m_record; }

private:
    static const VSchemaRow<R>* Find(const std::string& field)
    {
        VUnicodeString name;
        const auto rows = R::Schema().Rows();
        const auto found = std::find_if(rows.begin(), rows.end(), [&](const auto& row) {
            return FromUtf8(field, name) && EqualNoCase(row.name, name);
        });
        return found == rows.end() ? nullptr : &*found;
    }
    static std::string FieldNames()
    {
        std::string names;
        for (const VSchemaRow<R>& row : R::Schema().Rows())
            names += (names.empty() ? "" : ", ") + Lossless(row.name);
        return names;
    }

    VUnknownPointer<R> m_record;
    Save_ m_save;
};

/// Types are those of the table, and a type brings its port along unless the same command names one.
class FirewallDefinition : public RecordDefinition<FirewallConfig> {
public:
    using RecordDefinition::RecordDefinition;

protected:
    bool SetValue(const VSchemaRow<FirewallConfig>& row, const std::string& word, std::string& problem) override
    {
        const VProfileData* const value = row.member(Record());
        if (value == &Record().firewallPort)
            return SetPort(row, word, problem);
        if (!RecordDefinition::SetValue(row, word, problem))
            return false;
        return value != &Record().firewallType || TakeType(word, problem);
    }

private:
    bool SetPort(const VSchemaRow<FirewallConfig>& row, const std::string& word, std::string& problem)
    {
        const std::optional<int64_t> port = ReadNumber(word);
        if (port && (*port < 0 || *port > 65535))
            return Refuse(problem, "'Firewall Port' takes an int from 0 to 65535, not " + Cited(word));
        m_isPortNamed = true;
        return RecordDefinition::SetValue(row, word, problem);
    }
    bool TakeType(const std::string& word, std::string& problem)
    {
        const FirewallType* const type = FindFirewallType(Record().firewallType);
        if (!type) {
            std::string names;
            for (const FirewallType& known : FirewallTypes())
                names += (names.empty() ? "" : ", ") + Cited(Lossless(known.name));
            return Refuse(problem, "'Firewall Type' takes one of " + names + ", not " + Cited(word));
        }
        if (type->defaultPort != 0 && !m_isPortNamed)
            Record().firewallPort = type->defaultPort;
        return true;
    }

    bool m_isPortNamed = false;
};

/// The type by its text, the criteria with ";" between.
class FilterDefinition : public RecordDefinition<FilterConfig> {
public:
    using RecordDefinition::RecordDefinition;

    Json Fields(bool reveal) override
    {
        Json fields = RecordDefinition::Fields(reveal);
        if (const VUnicodeString text = Record().GetTypeText(); !text.IsEmpty())
            fields["Filter Type"] = Lossless(text);
        return fields;
    }

protected:
    bool SetValue(const VSchemaRow<FilterConfig>& row, const std::string& word, std::string& problem) override
    {
        const VProfileData* const value = row.member(Record());
        if (value == &Record().filterType)
            return SetType(word, problem);
        return value == &Record().filterCriteria ? SetCriteria(row, word, problem)
                                                 : RecordDefinition::SetValue(row, word, problem);
    }

private:
    bool SetType(const std::string& word, std::string& problem)
    {
        VUnicodeString text;
        for (const int type : {0, 1}) {
            FilterConfig probe(u"", nullptr);
            probe.filterType = type;
            if (word == std::to_string(type) || (FromUtf8(word, text) && EqualNoCase(probe.GetTypeText(), text))) {
                Record().filterType = type;
                return true;
            }
        }
        return Refuse(problem, "'Filter Type' takes Include or Exclude, not " + Cited(word));
    }
    bool SetCriteria(const VSchemaRow<FilterConfig>& row, const std::string& word, std::string& problem)
    {
        std::vector<std::string> criteria;
        for (size_t from = 0; from <= word.size();) {
            const size_t to = std::min(word.find(';', from), word.size());
            const size_t first = word.find_first_not_of(' ', from);
            if (first < to)
                criteria.push_back(word.substr(first, word.find_last_not_of(' ', to - 1) + 1 - first));
            from = to + 1;
        }
        return SetFromWords(row, Record().filterCriteria, criteria, problem);
    }
};

std::vector<VUnicodeString> VectorOf(const VStringArray& names) { return {names.begin(), names.end()}; }

std::vector<VUnicodeString> FirewallNames(ConfigFolder&)
{
    VStringArray names;
    ListFirewalls(names);
    return VectorOf(names);
}

std::vector<VUnicodeString> FilterNames(ConfigFolder&)
{
    VStringArray names;
    FilterStore().ListNames(names);
    return VectorOf(names);
}

bool SaveDue(FirewallConfig& firewall, IReportMessageParams& report) { return SaveFirewall(firewall, false, report); }

template <class D, auto Save, class R>
std::unique_ptr<Definition> Wrapped(VUnknownPointer<R> record)
{
    return record ? std::make_unique<D>(std::move(record), Save) : nullptr;
}

template <class D, auto Save, class R>
std::unique_ptr<Definition> Made(ConfigFolder&, const VUnicodeString& name)
{
    return Wrapped<D, Save>(VUnknownPointer<R>::Adopt(new R(name, nullptr)));
}

} // namespace

const DefinitionKind& FirewallKind()
{
    static const DefinitionKind kind = {"firewall",
                                        kNoFirewall,
                                        true,
                                        {"Firewall Type", "Firewall Address", "Firewall Port"},
                                        FirewallNames,
                                        [](ConfigFolder&, const VUnicodeString& name) {
                                            return Wrapped<FirewallDefinition, SaveDue>(LoadFirewall(name));
                                        },
                                        Made<FirewallDefinition, SaveDue, FirewallConfig>,
                                        [](ConfigFolder&, const VUnicodeString& name, IReportMessageParams& report) {
                                            return FirewallStore().CheckNewName(name, report);
                                        },
                                        [](ConfigFolder&, const VUnicodeString& from, const VUnicodeString& to,
                                           IReportMessageParams& report) { return RenameFirewall(from, to, report); },
                                        [](ConfigFolder&, const VUnicodeString& name, IReportMessageParams& report) {
                                            return DeleteFirewall(name, report);
                                        }};
    return kind;
}

const DefinitionKind& FilterKind()
{
    static const DefinitionKind kind = {
        "filter",
        nullptr,
        false,
        {"Filter Type", "Filter Criteria"},
        FilterNames,
        [](ConfigFolder&, const VUnicodeString& name) {
            return Wrapped<FilterDefinition, SaveFilter>(LoadFilter(name));
        },
        Made<FilterDefinition, SaveFilter, FilterConfig>,
        [](ConfigFolder&, const VUnicodeString& name, IReportMessageParams& report) {
            return FilterStore().CheckNewName(name, report);
        },
        [](ConfigFolder&, const VUnicodeString& from, const VUnicodeString& to, IReportMessageParams& report) {
            return FilterStore().Rename(from, to, report);
        },
        [](ConfigFolder&, const VUnicodeString& name, IReportMessageParams& report) {
            return DeleteFilter(name, report);
        }};
    return kind;
}

} // namespace ostrand::tool
