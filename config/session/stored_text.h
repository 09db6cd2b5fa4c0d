// A stored value, or its absence, as one text; the grammar stands in apply_undo.h.
#pragma once

#include "profile/stored_value.h"

#include <optional>
#include <string_view>

namespace ostrand {

VUnicodeString StoredText(const std::optional<StoreValue>& value);
/// False for a text that isn't one of these.
bool ReadStoredText(std::u16string_view text, std::optional<StoreValue>& value);

} // namespace ostrand
