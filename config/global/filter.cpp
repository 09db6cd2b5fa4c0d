#include "config/global/filter.h"

namespace ostrand {

namespace {

using C = FilterConfig;

// clang-format off
constexpr std::array kRows = {
    Int<&C::filterType>(u"Filter Type", 0, u"0: what matches is included; 1: it is excluded."),
    Strings<&C::filterCriteria>(u"Filter Criteria", u"The patterns, one text each."),
    Bool<&C::matchFilterCase>(u"Match Filter Case", false, u"Whether patterns match upper and lower case as written."),
    Bool<&C::applyFilterToFolders>(u"Apply Filter to Folders", false, u"Whether patterns apply to folders as well as files."),
};
// clang-format on

static_assert(NamesAreUnique(kRows));

constexpr const char16_t* kTypeTexts[] = {u"Include", u"Exclude"};

} // namespace

FilterConfig::FilterConfig(std::u16string_view definitionName, const VProfileKey* key)
{
    SetName(VUnicodeString(definitionName));
    Schema().Load(*this, ReadContext{key, false});
}

const VSchema<FilterConfig>& FilterConfig::Schema()
{
    static const auto& schema = *new VSchema<FilterConfig>(kRows);
    return schema;
}

VProfileData* FilterConfig::FindMember(std::u16string_view valueName)
{
    return Schema().GetMember(*this, Schema().FindMember(valueName, false));
}

const char16_t* FilterConfig::GetTypeText() const
{
    const auto type = static_cast<unsigned>(filterType.value);
    return type < std::size(kTypeTexts) ? kTypeTexts[type] : u"";
}

VUnicodeString FilterConfig::GetCriteriaText() const
{
    VUnicodeString text;
    for (const VUnicodeString& criterion : GetCriteria()) {
        if (&criterion != &*GetCriteria().begin())
            text += u"; ";
        text += criterion;
    }
    return text;
}

} // namespace ostrand
