#include "config/global/global_edit.h"

#include "core/fold.h"

#include <algorithm>

namespace ostrand {

namespace {

VUnknownPointer<GlobalConfig> CopyOf(const GlobalConfig& config)
{
    return VUnknownPointer<GlobalConfig>::Adopt(new GlobalConfig(config));
}

/// Whether both hold the same current value. `scratch` loses its own.
bool Differs(VProfileData& scratch, const VProfileData& other)
{
    // Copying a block brings its saved copy along, so that one is compared by its bytes.
    if (const auto* const block = dynamic_cast<const VProfileBlob*>(&other))
        return dynamic_cast<const VProfileBlob&>(scratch).data != block->data;
    scratch.AcceptChanges();
    scratch.CopyValue(other);
    return scratch.IsModified();
}

/// Values of `after` that `before`, a copy to be used up, holds otherwise.
std::vector<const GlobalRow*> Differences(GlobalConfig& before, GlobalConfig& after)
{
    std::vector<const GlobalRow*> rows = GlobalRows();
    std::erase_if(rows, [&](const GlobalRow* row) { return !Differs(*row->Member(before), *row->Member(after)); });
    return rows;
}

const VSchemaEntry* FirstRuleThatChanges(GlobalConfig& config, const GlobalRow& edited)
{
    for (const VSchemaRow<GlobalConfig>& row : GlobalConfig::Schema().Rows()) {
        if (!row.IsRule())
            continue;
        const VUnknownPointer<GlobalConfig> before = CopyOf(config);
        row.merge(config, row, nullptr);
        if (Differs(*edited.Member(*before), *edited.Member(config)))
            return &row;
    }
    return nullptr;
}

const GlobalRow* FindByOldName(std::u16string_view name)
{
    for (const GlobalRow* row : GlobalRows())
        if (row->formerly && EqualNoCase(row->formerly, name))
            return row;
    return nullptr;
}

std::vector<GlobalRow> MakeRows()
{
    static const VUnknownPointer<GlobalConfig>& defaults =
        *new VUnknownPointer<GlobalConfig>(GlobalDefaults(false, false)); // names of parts' values are lent from it
    std::vector<GlobalRow> rows;
    std::vector<GlobalRow> outsideTable;
    GlobalConfig::Schema().VisitValues([&](const VSchemaValue<GlobalConfig>& each) {
        GlobalRow row{each.entry, &each.row, each.place};
        if (each.place >= 0)
            row.name = each.In(*defaults).name.c_str();
        (each.row.isInTable ? rows : outsideTable).push_back(row);
    });
    rows.insert(rows.end(), outsideTable.begin(), outsideTable.end());
    return rows;
}

/// Some values are never merged, and some still honour an old name.
bool IsMergeable(const VUnicodeString& name, const VProfileKey& key, bool isOrvane)
{
    const GlobalRow* row = FindGlobalRow(name, isOrvane);
    if (!row)
        row = FindByOldName(name);
    return row && row->isMerged && HasGlobalValue(*row, key, isOrvane);
}

} // namespace

VProfileData* GlobalRow::Member(GlobalConfig& config) const
{
    VProfileData* const member = owner->member(config);
    return place < 0 ? member : member->GetMember(place);
}

std::vector<const GlobalRow*> GlobalRows()
{
    static const std::vector<GlobalRow>& all = *new std::vector<GlobalRow>(MakeRows());
    std::vector<const GlobalRow*> rows;
    for (const GlobalRow& row : all)
        rows.push_back(&row);
    return rows;
}

const GlobalRow* FindGlobalRow(std::u16string_view name, bool isOrvane)
{
    for (const GlobalRow* row : GlobalRows())
        if (EqualNoCase(row->NameFor(isOrvane), name))
            return row;
    return nullptr;
}

bool HasGlobalValue(const GlobalRow& row, const VProfileKey& key, bool isOrvane)
{
    const VUnknownPointer<GlobalConfig> probe = GlobalDefaults(isOrvane, false);
    VProfileData& value = *row.Member(*probe);
    value.dirty = true;
    row.Merge(*probe, &key);
    return !value.dirty; // a value that was found is clean
}

VUnknownPointer<GlobalConfig> GlobalDefaults(bool isOrvane, bool storeExisted)
{
    auto config = VUnknownPointer<GlobalConfig>::Adopt(new GlobalConfig(nullptr, isOrvane));
    if (storeExisted)
        GlobalConfig::Schema().Load(*config, GlobalConfig::ReadContext{{nullptr, isOrvane}, true});
    return config;
}

GlobalEdit SettleEdit(GlobalConfig& config, const GlobalRow& edited)
{
    const VUnknownPointer<GlobalConfig> before = CopyOf(config);
    GlobalEdit edit;
    edit.refusedBy = FirstRuleThatChanges(config, edited);
    edit.rows.push_back(&edited);
    for (const GlobalRow* row : Differences(*before, config))
        if (row != &edited)
            edit.rows.push_back(row);
    return edit;
}

bool SaveGlobalValues(GlobalConfig& config, std::span<const GlobalRow* const> rows, VProfileKey& key,
                      IReportMessageParams& report)
{
    for (const GlobalRow* row : rows) {
        VProfileData& value = *row->Member(config);
        const auto* const block = dynamic_cast<const VProfileBlob*>(&value);
        if (block && block->data.empty())
            key.DeleteValue(value.name.c_str());
        else
            value.Save(&key, true);
    }
    return key.Flush(report);
}

GlobalMergePreview PreviewGlobalMerge(const GlobalConfig& config, const VProfileKey& key)
{
    GlobalMergePreview preview;
    const VUnknownPointer<GlobalConfig> before = CopyOf(config);
    preview.merged = CopyOf(config);
    preview.merged->Merge(&key);
    preview.changed = Differences(*before, *preview.merged);

    VProfileKeyIterator values(&key, true);
    VUnicodeString name;
    int type = 0;
    while (values.NextValue(name, &type))
        if (!IsMergeable(name, key, config.IsOrvane()))
            preview.ignored.push_back(name);
    return preview;
}

} // namespace ostrand
