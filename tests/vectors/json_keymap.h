// Bindings of key maps between JSON and the library: [{"index", "function", "string"}].
#pragma once

#include "keymap/keymap.h"
#include "tests/vectors/json_text.h"

namespace ostrand::vectors {

/// What a key does, through the fallback map.
Json FromBinding(const IKeymap& keymap, unsigned keyIndex);
/// The map's own bindings that have a code or a string.
Json FromBindings(const Keymap& keymap);
void SetBinding(const Json& binding, IKeymap& keymap);
void SetBindings(const Json& bindings, IKeymap& keymap);

} // namespace ostrand::vectors
