// global diff, session show
#include "tools/output.h"
#include "tools/session_record.h"
#include "tools/value_commands.h"
#include "tools/value_json.h"
#include "tools/value_source.h"

#include <algorithm>

namespace ostrand::tool {

namespace {

constexpr size_t kValueWidth = 44;
constexpr size_t kDefaultWidth = 36;

struct Difference {
    NamedValue value;
    ValueSource source;
};

/// Values that differ, then with `withOthers` all others.
class Differences {
public:
    Differences(ValueRecord& record, ValueSources& sources, bool withOthers) : m_record(record), m_sources(sources)
    {
        for (const NamedValue& value : record.Values())
            if (sources.IsWorthTelling(value))
                m_told.push_back({value, sources.SourceOf(value)});
        m_differing = m_told.size();
        if (!withOthers)
            return;
        for (const NamedValue& value : record.Values())
            if (!sources.IsWorthTelling(value))
                m_told.push_back({value, sources.SourceOf(value)});
    }

    std::string Text() const
    {
        std::vector<std::vector<std::string>> rows = {{"NAME", "VALUE", "DEFAULT", "FROM"}};
        for (const auto& [value, source] : m_told)
            rows.push_back({NameOf(value), ValueText(value), UsualText(value), FromText(source)});
        std::string text = m_told.empty() ? "" : Table(rows) + "\n";
        text += std::to_string(m_differing) + " of " + std::to_string(m_record.Values().size()) +
                " values differ from their defaults.";
        if (const size_t pending = CountPending(); pending > 0)
            text += " " + std::to_string(pending) + " defaults are not stored yet; the next save writes them.";
        return text + "\n";
    }

    std::string ToJson() const
    {
        Json list = Json::array();
        for (const auto& [value, source] : m_told) {
            Json entry = RowToJson(value);
            const std::optional<NamedValue> usual = m_sources.DefaultOf(value);
            entry["default"] = value.entry.computed || !usual ? Json() : JsonOf(*usual);
            entry["isDefault"] = !m_sources.IsDifferent(value);
            AddSource(entry, source);
            list.push_back(entry);
        }
        return WriteJson(list);
    }

private:
    /// A value beside its default shows only where they differ, unless they don't.
    std::string ValueText(const NamedValue& value) const
    {
        const std::optional<NamedValue> usual = m_sources.DefaultOf(value);
        return Shortened(OneBesideOther(JsonOf(value), usual ? JsonOf(*usual) : JsonOf(value)), kValueWidth);
    }
    std::string UsualText(const NamedValue& value) const
    {
        const std::optional<NamedValue> usual = m_sources.DefaultOf(value);
        return Shortened(value.entry.computed || !usual ? DefaultText(value.entry, usual)
                                                        : OneBesideOther(JsonOf(*usual), JsonOf(value)),
                         kDefaultWidth);
    }
    static std::string OneBesideOther(const Json& one, const Json& other)
    {
        return one == other ? ValueToText(one) : DifferenceText(one, other);
    }
    static std::string FromText(const ValueSource& source)
    {
        const std::string& file = source.place.file;
        const std::string place =
            source.place.line > 0 ? PlaceText({file.substr(file.rfind('/') + 1), source.place.line}) : "";
        return place + (place.empty() || source.detail.empty() ? "" : ", ") + source.detail;
    }
    size_t CountPending() const
    {
        const std::vector<NamedValue> values = m_record.Values();
        return static_cast<size_t>(std::count_if(values.begin(), values.end(), [](const NamedValue& value) {
            return value.entry.isInTable && IsPending(*value.value);
        }));
    }

    ValueRecord& m_record;
    ValueSources& m_sources;
    std::vector<Difference> m_told;
    size_t m_differing = 0;
};

} // namespace

Exit DiffValues(const Request& request, RecordOpener open)
{
    OpenedRecord opened;
    if (const Exit done = open(request, Access::Read, opened); done != Exit::Done)
        return done;
    ValueRecord& record = *opened.record;
    opened.sessions.Folder().WarnOfDamage(record);
    const auto* const session = dynamic_cast<const SessionRecord*>(&record);
    if (const std::string why = session ? session->MissingProtocols() : ""; !why.empty())
        Warn(why);
    ValueSources sources(opened.sessions.Folder(), record);
    const Differences differences(record, sources, request.showAll || (session && request.asJson));
    return Print(request.asJson ? differences.ToJson() : differences.Text());
}

} // namespace ostrand::tool
