// Named definitions in the default store: one key each below a common one. There is no list in memory; each operation
// opens the store. A key counts as a definition when a dword `Is Session` can be read from it.
#pragma once

#include "core/report.h"
#include "profile/value.h"

#include <string_view>

namespace ostrand {

class OSTRAND_API DefinitionStore {
public:
    /// `rootKey`: the key directly below the store's root that holds the definitions. `noun`: what messages call one.
    constexpr DefinitionStore(const char16_t* rootKey, const char16_t* noun) : m_rootKey(rootKey), m_noun(noun) {}

    /// Path of a definition's key; an empty name means the common key itself.
    VUnicodeString PathOf(std::u16string_view name) const;
    bool Exists(std::u16string_view name) const;
    /// In store order.
    void ListNames(VStringArray& out) const;
    /// Writes the record's changed or pending members, all of them with `force` or into a new key, and what marks the
    /// key as a definition. False when the store refused: `report` says why, and the writes stay queued there.
    bool Save(std::u16string_view name, VProfileData& record, bool force, IReportMessageParams& report) const;
    /// With all below it. False when there is no such key, or the store refuses.
    bool Delete(std::u16string_view name, IReportMessageParams& report) const;
    /// Moves all values and keys of the definition, also those that this version doesn't know. A new name that differs
    /// in case alone is fine. What a file store's file holds beside values, such as comments, isn't carried over. False
    /// for a missing definition, a name that can't be or is taken, or a store that refuses; the old one is then there.
    bool Rename(std::u16string_view from, std::u16string_view to, IReportMessageParams& report) const;

    /// Whether a new definition may have this name: not empty, not parted, not taken.
    bool CheckNewName(std::u16string_view name, IReportMessageParams& report) const;

private:
    bool CheckName(std::u16string_view name, IReportMessageParams& report) const;

    const char16_t* m_rootKey;
    const char16_t* m_noun;
};

} // namespace ostrand
