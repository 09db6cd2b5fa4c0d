// global diff
#include "tools/commands.h"
#include "tools/config_folder.h"
#include "tools/global_rows.h"
#include "tools/output.h"
#include "tools/value_json.h"

#include <algorithm>
#include <optional>

namespace ostrand::tool {

namespace {

constexpr size_t kValueWidth = 44;
constexpr size_t kDefaultWidth = 36;

/// Where a value came from.
struct Source {
    const char* kind; ///< "stored", "old name", "corrected" or "not stored"
    ValuePlace place; ///< of what is stored; line 0 for nothing
    std::string detail;
};

struct Difference {
    const GlobalRow* row;
    Source source;
};

class Comparison {
public:
    explicit Comparison(ConfigFolder& folder)
        : m_folder(folder),
          m_config(folder.Config()),
          m_defaults(GlobalDefaults(m_config.IsOrvane(), false)),
          m_stored(VUnknownPointer<GlobalConfig>::Adopt(new GlobalConfig(m_config)))
    {
        m_stored->RevertChanges();
    }

    std::vector<Difference> Run()
    {
        std::vector<Difference> differences;
        for (const GlobalRow* row : GlobalRows())
            if (IsDifferent(*row))
                differences.push_back({row, SourceOf(*row)});
        return differences;
    }

    std::string Text(const std::vector<Difference>& differences);
    std::string AsJson(const std::vector<Difference>& differences);

private:
    ValuePlace StoredPlace(const GlobalRow& row) const
    {
        const ValuePlace place = m_folder.PlaceOf(row.NameFor(m_config.IsOrvane()));
        return place.line > 0 && HasGlobalValue(row, m_folder.GlobalKey(), m_config.IsOrvane()) ? place : ValuePlace{};
    }

    /// A default that is computed has no lasting value of its own: only what is stored can differ from it, and a stored
    /// moment can't be told from the default of that moment.
    bool IsDifferent(const GlobalRow& row)
    {
        if (row.computed && (row.type == VValueClass::ULong || StoredPlace(row).line == 0))
            return false;
        return row.member(m_config)->IsModified() || JsonOf(row, m_config) != JsonOf(row, *m_defaults);
    }

    Source SourceOf(const GlobalRow& row)
    {
        const ValuePlace place = StoredPlace(row);
        if (place.line > 0 && row.member(m_config)->IsModified())
            return {"corrected", place, "corrected from " + TextOf(row, *m_stored) + ": " + Correction(row)};
        if (place.line > 0)
            return {"stored", place, {}};
        const ValuePlace old = row.formerly ? m_folder.PlaceOf(row.formerly) : ValuePlace{};
        if (old.line > 0)
            return {"old name", old, "under its old name " + Cited(Lossless(row.formerly))};
        return {"not stored", {}, "not stored"};
    }

    /// What corrected a stored value.
    std::string Correction(const GlobalRow& row)
    {
        const VUnknownPointer<GlobalConfig> stored = VUnknownPointer<GlobalConfig>::Adopt(new GlobalConfig(*m_stored));
        const GlobalRow* const rule = SettleEdit(*stored, row).refusedBy;
        return rule ? Lossless(rule->meaning) : "its bound is " + BoundText(row.bound);
    }

    size_t CountPending()
    {
        const std::vector<const GlobalRow*> rows = GlobalRows();
        return static_cast<size_t>(std::count_if(rows.begin(), rows.end(), [this](const GlobalRow* row) {
            return row->isInTable && row->member(m_config)->IsDirty();
        }));
    }

    const ConfigFolder& m_folder;
    GlobalConfig& m_config;
    const VUnknownPointer<GlobalConfig> m_defaults;
    const VUnknownPointer<GlobalConfig> m_stored; // the record without what bounds and rules changed
};

std::string FileName(const std::string& path) { return path.substr(path.rfind('/') + 1); }

std::string Comparison::Text(const std::vector<Difference>& differences)
{
    std::vector<std::vector<std::string>> rows = {{"NAME", "VALUE", "DEFAULT", "FROM"}};
    for (const auto& [row, source] : differences) {
        const std::string place =
            source.place.line > 0 ? PlaceText({FileName(source.place.file), source.place.line}) : "";
        const Json value = JsonOf(*row, m_config);
        const Json usual = JsonOf(*row, *m_defaults);
        rows.push_back(
            {NameOf(*row, m_config.IsOrvane()), Shortened(DifferenceText(value, usual), kValueWidth),
             Shortened(row->computed ? DefaultText(*row, *m_defaults) : DifferenceText(usual, value), kDefaultWidth),
             place + (place.empty() || source.detail.empty() ? "" : ", ") + source.detail});
    }
    std::string text = differences.empty() ? "" : Table(rows) + "\n";
    text += std::to_string(differences.size()) + " of " + std::to_string(GlobalRows().size()) +
            " values differ from their defaults.";
    if (const size_t pending = CountPending(); pending > 0)
        text += " " + std::to_string(pending) + " defaults are not stored yet; the next save writes them.";
    return text + "\n";
}

std::string Comparison::AsJson(const std::vector<Difference>& differences)
{
    Json list = Json::array();
    for (const auto& [row, source] : differences) {
        Json entry = RowToJson(*row, m_config);
        entry["default"] = row->computed ? Json() : JsonOf(*row, *m_defaults);
        entry["from"] = source.kind;
        if (source.place.line > 0) {
            entry["file"] = source.place.file;
            entry["line"] = source.place.line;
        }
        if (!source.detail.empty())
            entry["detail"] = source.detail;
        list.push_back(entry);
    }
    return WriteJson(list);
}

} // namespace

Exit DiffGlobal(const Request& request)
{
    ConfigFolder folder;
    if (const Exit opened = folder.OpenGlobal(request, Access::Read); opened != Exit::Done)
        return opened;
    folder.WarnOfDamage();
    Comparison comparison(folder);
    const std::vector<Difference> differences = comparison.Run();
    return Print(request.asJson ? comparison.AsJson(differences) : comparison.Text(differences));
}

} // namespace ostrand::tool
