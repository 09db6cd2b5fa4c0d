// global set, global reset, global save
#include "core/entry.h"
#include "tools/commands.h"
#include "tools/config_folder.h"
#include "tools/global_rows.h"
#include "tools/output.h"
#include "tools/value_json.h"

#include <algorithm>

namespace ostrand::tool {

namespace {

/// Changes one value of the record; false after one line on stderr.
using Change = bool (*)(const Request&, const GlobalRow&, GlobalConfig&);

bool TakeWords(const Request& request, const GlobalRow& row, GlobalConfig& config)
{
    std::string problem;
    const bool isTaken = SetFromWords(row, *row.Member(config), request.values, problem);
    if (!isTaken)
        Fail(Exit::Failed, problem);
    return isTaken;
}

bool TakeDefault(const Request&, const GlobalRow& row, GlobalConfig& config)
{
    const bool storeExisted = !config.version.IsDirty();
    const VUnknownPointer<GlobalConfig> defaults = GlobalDefaults(config.IsOrvane(), storeExisted);
    row.Member(config)->CopyValue(*row.Member(*defaults));
    return true;
}

/// Whether the record's own save writes the value.
bool IsSaved(const GlobalRow& row, const VProfileData& value, bool force)
{
    const auto* const block = dynamic_cast<const VProfileBlob*>(&value);
    const bool isEmpty = block && block->data.empty();
    return row.isInTable && !isEmpty && (force || value.IsModified() || IsPending(value));
}

std::string WrittenText(const std::vector<const GlobalRow*>& rows, GlobalConfig& before, GlobalConfig& after)
{
    std::string text;
    for (const GlobalRow* row : rows) {
        const Json was = JsonOf(*row, before);
        const Json now = JsonOf(*row, after);
        text += NameOf(*row, after.IsOrvane()) + ": ";
        text += was == now ? ValueToText(now) + ", as before"
                           : DifferenceText(was, now) + " -> " + DifferenceText(now, was);
        text += "\n";
    }
    return text;
}

std::string WrittenJson(const std::vector<const GlobalRow*>& rows, GlobalConfig& config)
{
    Json list = Json::array();
    for (const GlobalRow* row : rows)
        list.push_back(RowToJson(*row, config));
    return WriteJson(list);
}

/// All checks come before the store is opened for writing, so that a refused change leaves no trace.
Exit ChangeOne(const Request& request, Change change)
{
    const GlobalRow* const row = FindRow(request);
    if (!row)
        return Exit::Failed;
    ConfigFolder folder;
    if (const Exit opened = folder.OpenGlobal(request, Access::Write); opened != Exit::Done)
        return opened;
    GlobalConfig& config = folder.Config();
    const auto before = VUnknownPointer<GlobalConfig>::Adopt(new GlobalConfig(config));
    if (!change(request, *row, config))
        return Exit::Failed;
    const GlobalEdit edit = SettleEdit(config, *row);
    if (edit.refusedBy)
        return Fail(Exit::Failed, Cited(NameOf(*row, config.IsOrvane())) + " can't take this value now. " +
                                      Lossless(edit.refusedBy->meaning));
    if (const Exit saved = folder.SaveValues(config, edit.rows); saved != Exit::Done)
        return saved;
    return Print(request.asJson ? WrittenJson(edit.rows, config) : WrittenText(edit.rows, *before, config));
}

} // namespace

Exit SetGlobal(const Request& request) { return ChangeOne(request, TakeWords); }

Exit ResetGlobal(const Request& request) { return ChangeOne(request, TakeDefault); }

Exit SaveGlobal(const Request& request)
{
    ConfigFolder folder;
    if (const Exit opened = folder.OpenGlobal(request, Access::Write); opened != Exit::Done)
        return opened;
    GlobalConfig& config = folder.Config();
    std::vector<const GlobalRow*> rows = GlobalRows();
    std::erase_if(rows, [&](const GlobalRow* row) { return !IsSaved(*row, *row->Member(config), request.force); });
    if (const Exit writable = folder.CheckWritable(); writable != Exit::Done)
        return writable;
    VReportMessageParams report;
    if (!SaveGlobalConfig(request.force, &report))
        return folder.FailSave(report);
    if (request.asJson)
        return Print(WrittenJson(rows, config));
    return Print(rows.empty() ? "Every value is stored already.\n"
                              : std::to_string(rows.size()) + " values saved to " + folder.GlobalFile() + "\n");
}

} // namespace ostrand::tool
