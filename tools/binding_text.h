// Bindings of key maps as people read them.
#pragma once

#include "keymap/function_names.h"
#include "keymap/keymap.h"
#include "tools/key_text.h"

#include <string>

namespace ostrand::tool {

struct Binding {
    unsigned function = 0;
    VUnicodeString argument;
    bool operator==(const Binding&) const = default;
};

/// The map's own.
Binding BindingOf(const Keymap& map, unsigned index);
bool TakesArgument(unsigned function);
/// As an action of a key map file.
std::string ActionText(const Binding& binding);

template <class See>
void ForEachBinding(const Keymap& map, See see)
{
    for (unsigned index = 0; index < kKeyCount; ++index)
        if (const Binding binding = BindingOf(map, index); binding.function != kFunctionNone)
            see(index, binding);
}

} // namespace ostrand::tool
