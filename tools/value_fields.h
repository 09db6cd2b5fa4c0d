// Named fields of the structured values: how each is shown, and how it is set from a word.
#pragma once

#include "profile/color_values.h"
#include "profile/log_font.h"
#include "profile/margins.h"
#include "profile/view_state.h"
#include "profile/window_placement.h"
#include "tools/json_writer.h"

#include <optional>
#include <span>
#include <string>

namespace ostrand::tool {

template <class R>
struct Field {
    const char* name;
    Json (*get)(const R&);
    /// None when it was set; else what the field takes, for a message, and the record is as it was.
    std::optional<std::string> (*set)(R&, const std::string& word);
};

/// The fields of R, which is one of the records below, in the order of their stored form.
template <class R>
std::span<const Field<R>> FieldsOf();

template <>
std::span<const Field<VLogFont>> FieldsOf();
template <>
std::span<const Field<VWindowPlacement>> FieldsOf();
template <>
std::span<const Field<VMarginData>> FieldsOf();
template <>
std::span<const Field<CustomColors>> FieldsOf();
template <>
std::span<const Field<VListViewFields>> FieldsOf();
template <>
std::span<const Field<VExplorerFrameFields>> FieldsOf();

/// "int from 0 to 9" and the like are made of this.
std::string FromTo(int64_t low, int64_t high);

} // namespace ostrand::tool
