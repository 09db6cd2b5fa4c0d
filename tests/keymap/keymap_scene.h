// Random maps from a seed, and how maps are shown when they differ.
#pragma once

#include "core/format.h"
#include "keymap/keymap.h"

#include <functional>
#include <random>
#include <string>

namespace ostrand::test {

/// All own bindings, one a line.
inline std::u16string Show(const KeyBindings& bindings)
{
    std::u16string text;
    for (unsigned index = 0; index < kKeyCount; ++index)
        if (bindings.Function(index) != 0 || !bindings.String(index).IsEmpty())
            text += Format(u"%1!03X! %2!u! '%3'\n", index, bindings.Function(index), bindings.String(index)).View();
    return text;
}

/// Some hundreds of bindings of all kinds; strings of characters from `characters`, on the codes that have one.
inline Keymap RandomKeymap(unsigned seed, std::u16string_view characters)
{
    std::mt19937 dice(seed);
    const auto below = [&dice](size_t end) { return static_cast<unsigned>(dice() % end); };
    Keymap keymap;
    for (int i = 0; i < 300; ++i) {
        const unsigned index = below(kKeyCount);
        const unsigned code = 1 + below(i % 2 == 0 ? 3 : 164);
        std::u16string text;
        for (unsigned left = code <= 3 ? below(40) : 0; left > 0; --left)
            text += characters[below(characters.size())];
        keymap.SetFunction(index, code);
        keymap.SetString(index, std::u16string_view(text));
    }
    return keymap;
}

} // namespace ostrand::test
