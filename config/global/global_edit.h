// Editing single values of the global record in a store, for tools and administrators: only the edited value goes out,
// with those that a rule changed along. Also what a merge would change.
//
//     const GlobalRow* const row = FindGlobalRow(u"use raw mode", config.IsOrvane());
//     config.useRawMode = 1;
//     const GlobalEdit edit = SettleEdit(config, *row);
//     if (!edit.refusedBy)
//         SaveGlobalValues(config, edit.rows, key, report);
#pragma once

#include "config/global/global_config.h"
#include "core/report.h"
#include "platform/export.h"

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace ostrand {

/// A value of the record as its schema describes it, or a value of a part of the record, such as the printer's line
/// settings. Never a rule. One for the process each: compared by address.
struct OSTRAND_API GlobalRow : VSchemaEntry {
    VProfileData* Member(GlobalConfig& config) const;
    /// Takes what the key holds: of a part, all of its values.
    void Merge(GlobalConfig& config, const VProfileKey* key) const { owner->merge(config, *owner, key); }

    const VSchemaRow<GlobalConfig>* owner = nullptr; ///< the value's own row, or that of its part
    int place = -1;                                  ///< in its part's table; -1 outside parts
};

/// Every value: the member table in its order, with a part's values in the part's place, then those outside it.
OSTRAND_API std::vector<const GlobalRow*> GlobalRows();
/// The value of this name in any case, inside the table or not; null: none of this application has that name.
OSTRAND_API const GlobalRow* FindGlobalRow(std::u16string_view name, bool isOrvane);

/// Whether the key has this value, under its name or an old one that a merge honours, in a form that the record takes.
/// A value of another kind, or a block that is too long, reads as missing.
OSTRAND_API bool HasGlobalValue(const GlobalRow& row, const VProfileKey& key, bool isOrvane);

/// A record that holds nothing but defaults. With `storeExisted` those of a store that has been in use.
OSTRAND_API VUnknownPointer<GlobalConfig> GlobalDefaults(bool isOrvane, bool storeExisted);

/// What rules make of an edit.
struct GlobalEdit {
    const VSchemaEntry* refusedBy = nullptr; ///< the rule that took the edited value back; null: it stands
    std::vector<const GlobalRow*> rows;      ///< the edited value first, then what rules changed with it
};

/// Runs the rules over a record whose value of `edited` has just been set. The record keeps what they change, also
/// after a refusal; throw it away then. Bounds are the caller's: `edited.bound` says what it takes.
OSTRAND_API GlobalEdit SettleEdit(GlobalConfig& config, const GlobalRow& edited);

/// Writes these values, whether they changed or not and whether the record's own save would, and flushes the key. A
/// block without bytes is taken out of the store. False when the store refused: `report` says why.
OSTRAND_API bool SaveGlobalValues(GlobalConfig& config, std::span<const GlobalRow* const> rows, VProfileKey& key,
                                  IReportMessageParams& report);

/// What merging a key would do.
struct GlobalMergePreview {
    VUnknownPointer<GlobalConfig> merged;  ///< a copy of the record with the key's values laid over it
    std::vector<const GlobalRow*> changed; ///< values whose current value is another there, in listing order
    std::vector<VUnicodeString> ignored;   ///< names in the key that a merge passes over, in the key's order
};

/// Changes neither the record nor a store. To write the changes, save `changed` of `merged`.
OSTRAND_API GlobalMergePreview PreviewGlobalMerge(const GlobalConfig& config, const VProfileKey& key);

} // namespace ostrand
