#include "config/global/filter_list.h"

namespace ostrand {

const DefinitionStore& FilterStore()
{
    static constexpr DefinitionStore store(u"Filters", u"filter");
    return store;
}

VUnknownPointer<FilterConfig> LoadFilter(std::u16string_view name)
{
    if (!FilterExists(name))
        return {};
    const VProfileStore store(true);
    const VProfileKey key(store.GetRootKey(), FilterStore().PathOf(name).c_str());
    return VUnknownPointer<FilterConfig>::Adopt(new FilterConfig(name, &key));
}

bool FilterExists(std::u16string_view name) { return FilterStore().Exists(name); }

bool SaveFilter(FilterConfig& filter, IReportMessageParams& report)
{
    return FilterStore().Save(filter.GetName(), filter, false, report);
}

bool DeleteFilter(std::u16string_view name, IReportMessageParams& report) { return FilterStore().Delete(name, report); }

} // namespace ostrand
