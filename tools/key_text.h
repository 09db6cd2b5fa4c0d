// Key combinations as people write them: "Ctrl+Shift+2", "Alt+F4", "Extended+Home", "Ctrl+0xDC".
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace ostrand::tool {

/// The key index of a combination; none for a text that is no combination, with the reason in `problem`. Modifiers come
/// first, in any order and case; the key is a letter, a digit, a name with or without VK_, a usual one such as PgUp, or
/// a number with 0x.
std::optional<unsigned> ReadKeyCombination(std::string_view text, std::string& problem);

/// "Ctrl+Shift+VK_2".
std::string KeyCombinationText(unsigned keyIndex);
/// {"Ctrl", "Shift"}: the modifiers that an index has, as KeyCombinationText writes them.
std::vector<std::string> ModifiersOf(unsigned keyIndex);
/// "VK_2".
std::string KeyText(unsigned keyIndex);

} // namespace ostrand::tool
