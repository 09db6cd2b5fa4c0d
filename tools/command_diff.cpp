// global diff
#include "tools/commands.h"
#include "tools/global_rows.h"
#include "tools/output.h"
#include "tools/value_json.h"
#include "tools/value_source.h"

#include <algorithm>

namespace ostrand::tool {

namespace {

constexpr size_t kValueWidth = 44;
constexpr size_t kDefaultWidth = 36;

struct Difference {
    const GlobalRow* row;
    ValueSource source;
};

std::vector<Difference> FindDifferences(ValueSources& sources)
{
    std::vector<Difference> differences;
    for (const GlobalRow* row : GlobalRows())
        if (sources.IsWorthTelling(*row))
            differences.push_back({row, sources.SourceOf(*row)});
    return differences;
}

size_t CountPending(GlobalConfig& config)
{
    const std::vector<const GlobalRow*> rows = GlobalRows();
    return static_cast<size_t>(std::count_if(rows.begin(), rows.end(), [&config](const GlobalRow* row) {
        return row->isInTable && IsPending(*row->Member(config));
    }));
}

std::string FileName(const std::string& path) { return path.substr(path.rfind('/') + 1); }

std::string DiffText(const std::vector<Difference>& differences, GlobalConfig& config, GlobalConfig& defaults)
{
    std::vector<std::vector<std::string>> rows = {{"NAME", "VALUE", "DEFAULT", "FROM"}};
    for (const auto& [row, source] : differences) {
        const std::string place =
            source.place.line > 0 ? PlaceText({FileName(source.place.file), source.place.line}) : "";
        const Json value = JsonOf(*row, config);
        const Json usual = JsonOf(*row, defaults);
        rows.push_back(
            {NameOf(*row, config.IsOrvane()), Shortened(DifferenceText(value, usual), kValueWidth),
             Shortened(row->computed ? DefaultText(*row, defaults) : DifferenceText(usual, value), kDefaultWidth),
             place + (place.empty() || source.detail.empty() ? "" : ", ") + source.detail});
    }
    std::string text = differences.empty() ? "" : Table(rows) + "\n";
    text += std::to_string(differences.size()) + " of " + std::to_string(GlobalRows().size()) +
            " values differ from their defaults.";
    if (const size_t pending = CountPending(config); pending > 0)
        text += " " + std::to_string(pending) + " defaults are not stored yet; the next save writes them.";
    return text + "\n";
}

std::string DiffJson(const std::vector<Difference>& differences, GlobalConfig& config, GlobalConfig& defaults)
{
    Json list = Json::array();
    for (const auto& [row, source] : differences) {
        Json entry = RowToJson(*row, config);
        entry["default"] = row->computed ? Json() : JsonOf(*row, defaults);
        AddSource(entry, source);
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
    ValueSources sources(folder);
    const std::vector<Difference> differences = FindDifferences(sources);
    const auto write = request.asJson ? DiffJson : DiffText;
    return Print(write(differences, folder.Config(), sources.Defaults()));
}

} // namespace ostrand::tool
