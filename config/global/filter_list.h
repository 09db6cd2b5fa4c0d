// The filters of the default store, below the key Filters.
#pragma once

#include "config/global/definition_store.h"
#include "config/global/filter.h"

namespace ostrand {

/// Lists, renames, checks.
OSTRAND_API const DefinitionStore& FilterStore();

/// Null where there is no such filter.
OSTRAND_API VUnknownPointer<FilterConfig> LoadFilter(std::u16string_view name);
OSTRAND_API bool FilterExists(std::u16string_view name);
/// What is changed or pending; all of a new filter.
OSTRAND_API bool SaveFilter(FilterConfig& filter, IReportMessageParams& report);
/// Synchronize tasks that name it keep the name.
OSTRAND_API bool DeleteFilter(std::u16string_view name, IReportMessageParams& report);

} // namespace ostrand
