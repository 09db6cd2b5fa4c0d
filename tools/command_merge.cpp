// global merge
#include "tools/commands.h"
#include "tools/config_folder.h"
#include "tools/global_rows.h"
#include "tools/output.h"
#include "tools/value_json.h"

namespace ostrand::tool {

namespace {

constexpr size_t kValueWidth = 44;

std::string MergeText(const GlobalMergePreview& preview, const ConfigFolder& folder, const char16_t* key,
                      GlobalConfig& config, bool isWritten)
{
    std::vector<std::vector<std::string>> rows = {{"NAME", "NOW", isWritten ? "SAVED" : "MERGED"}};
    for (const GlobalRow* row : preview.changed) {
        const Json now = JsonOf(*row, config);
        const Json merged = JsonOf(*row, *preview.merged);
        rows.push_back({NameOf(*row, config.IsOrvane()), Shortened(DifferenceText(now, merged), kValueWidth),
                        Shortened(DifferenceText(merged, now), kValueWidth)});
    }
    std::string text = preview.changed.empty() ? "Nothing would change.\n" : Table(rows);
    for (const VUnicodeString& name : preview.ignored) {
        const std::string place = PlaceText(folder.PlaceIn(key, name.c_str()));
        text += "not merged: " + Plain(Lossless(name)) + " (" + place + ")\n";
    }
    return text;
}

std::string MergeJson(const GlobalMergePreview& preview, GlobalConfig& config, bool isWritten)
{
    Json changed = Json::array();
    for (const GlobalRow* row : preview.changed)
        changed.push_back({{"name", NameOf(*row, config.IsOrvane())},
                           {"type", ValueClassName(row->type)},
                           {"value", JsonOf(*row, config)},
                           {"merged", JsonOf(*row, *preview.merged)}});
    Json ignored = Json::array();
    for (const VUnicodeString& name : preview.ignored)
        ignored.push_back(Lossless(name));
    return WriteJson({{"written", isWritten}, {"changed", changed}, {"ignored", ignored}});
}

} // namespace

Exit MergeGlobal(const Request& request)
{
    ConfigFolder folder;
    if (const Exit opened = folder.OpenGlobal(request, Access::Read); opened != Exit::Done)
        return opened;
    std::unique_ptr<VProfileKey> key;
    if (const Exit found = folder.OpenKey(request.key, key); found != Exit::Done)
        return found;
    VUnicodeString path;
    FromUtf8(request.key, path);
    folder.WarnOfBrokenLines(path.c_str());
    GlobalConfig& config = folder.Config();
    const GlobalMergePreview preview = PreviewGlobalMerge(config, *key);
    const bool isWritten = request.write && !preview.changed.empty();
    if (isWritten)
        if (const Exit saved = folder.SaveValues(*preview.merged, preview.changed); saved != Exit::Done)
            return saved;
    return Print(request.asJson ? MergeJson(preview, config, isWritten)
                                : MergeText(preview, folder, path.c_str(), config, isWritten));
}

} // namespace ostrand::tool
