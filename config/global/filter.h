// FilterConfig: a named list of name patterns for synchronize tasks. The definitions stand in the default store, one
// key each (config/global/filter_list.h). What the patterns match is the file-transfer application's business.
#pragma once

#include "core/unknown.h"
#include "profile/schema.h"

namespace ostrand {

/// Counted; a public record of four values, named like the filter. One thread at a time.
class OSTRAND_API FilterConfig : public VUnknown<ICounted>, public VProfileRecord {
public:
    using ReadContext = VReadContext;

    /// Reads the values below the key; null gives defaults.
    FilterConfig(std::u16string_view definitionName, const VProfileKey* key);

    const VUnicodeString& GetName() const { return name; }
    /// "Include" or "Exclude"; empty for a type that is neither.
    const char16_t* GetTypeText() const;
    const VStringArray& GetCriteria() const { return filterCriteria; }
    /// All criteria in their order, with "; " between them.
    VUnicodeString GetCriteriaText() const;

    VProfileData* GetMember(int index) override { return Schema().GetMember(*this, index); }
    /// The value of this name in any case, or null.
    VProfileData* FindMember(std::u16string_view valueName);
    static const VSchema<FilterConfig>& Schema();

    VProfile<int> filterType;
    VProfileStringList filterCriteria;
    VProfile<bool> matchFilterCase, applyFilterToFolders;
};

} // namespace ostrand
