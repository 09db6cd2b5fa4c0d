// global merge
#include "tools/commands.h"
#include "tools/global_record.h"
#include "tools/output.h"
#include "tools/value_commands.h"
#include "tools/value_json.h"

namespace ostrand::tool {

namespace {

constexpr size_t kValueWidth = 44;

/// What merging one value would change.
struct Change {
    NamedValue now;
    NamedValue merged;
};

std::string MergeText(const std::vector<Change>& changes, bool isWritten)
{
    if (changes.empty())
        return "Nothing would change.\n";
    std::vector<std::vector<std::string>> rows = {{"NAME", "NOW", isWritten ? "SAVED" : "MERGED"}};
    for (const auto& change : changes) {
        const Json now = JsonOf(change.now);
        const Json merged = JsonOf(change.merged);
        rows.push_back({NameOf(change.now), Shortened(DifferenceText(now, merged), kValueWidth),
                        Shortened(DifferenceText(merged, now), kValueWidth)});
    }
    return Table(rows);
}

std::string IgnoredText(const std::vector<VUnicodeString>& ignored, const ConfigFolder& folder, const char16_t* key)
{
    std::string text;
    for (const VUnicodeString& name : ignored)
        text += "not merged: " + Plain(Lossless(name)) + " (" + PlaceText(folder.PlaceIn(key, name.c_str())) + ")\n";
    return text;
}

std::string MergeJson(const std::vector<Change>& changes, const std::vector<VUnicodeString>& ignored, bool isWritten)
{
    Json changed = Json::array();
    for (const auto& change : changes)
        changed.push_back({{"name", NameOf(change.now)},
                           {"type", ValueClassName(change.now.entry.type)},
                           {"value", JsonOf(change.now)},
                           {"merged", JsonOf(change.merged)}});
    Json names = Json::array();
    for (const VUnicodeString& name : ignored)
        names.push_back(Lossless(name));
    return WriteJson({{"written", isWritten}, {"changed", changed}, {"ignored", names}});
}

} // namespace

Exit MergeGlobal(const Request& request)
{
    OpenedRecord opened;
    if (const Exit done = OpenGlobalRecord(request, Access::Read, opened); done != Exit::Done)
        return done;
    const ConfigFolder& folder = opened.sessions.Folder();
    std::unique_ptr<VProfileKey> key;
    if (const Exit found = folder.OpenKey(request.key, key); found != Exit::Done)
        return found;
    VUnicodeString path;
    FromUtf8(request.key, path);
    folder.WarnOfBrokenLines(path.c_str());
    const GlobalMergePreview preview = PreviewGlobalMerge(folder.Config(), *key);
    GlobalRecord now(VUnknownPointer<GlobalConfig>::Share(&folder.Config()));
    GlobalRecord merged(preview.merged);
    std::vector<Change> changes;
    std::vector<VUnicodeString> names;
    for (const GlobalRow* row : preview.changed) {
        changes.push_back({now.ValueOf(*row), merged.ValueOf(*row)});
        names.push_back(changes.back().merged.value->name);
    }
    const bool isWritten = request.write && !changes.empty();
    if (isWritten)
        if (const Exit saved = folder.SaveValues(merged, names); saved != Exit::Done)
            return saved;
    return Print(request.asJson ? MergeJson(changes, preview.ignored, isWritten)
                                : MergeText(changes, isWritten) + IgnoredText(preview.ignored, folder, path.c_str()));
}

} // namespace ostrand::tool
