#include "tools/key_text.h"

#include "keymap/key_index.h"
#include "keymap/virtual_keys.h"
#include "tools/text.h"

#include <algorithm>
#include <array>

namespace ostrand::tool {

namespace {

struct Modifier {
    const char* name;
    unsigned bit;
};
/// In the order in which they are written.
constexpr std::array kModifiers = {Modifier{"Extended", kExtendedKey}, Modifier{"Ctrl", kControlHeld},
                                   Modifier{"Shift", kShiftHeld}, Modifier{"Alt", kAltHeld}};

struct UsualName {
    const char* name;
    const char* key;
};
/// What keyboards have on them, where the platform's name is another.
constexpr std::array kUsualNames = {UsualName{"PGUP", "VK_PRIOR"},     UsualName{"PAGEUP", "VK_PRIOR"},
                                    UsualName{"PGDN", "VK_NEXT"},      UsualName{"PAGEDOWN", "VK_NEXT"},
                                    UsualName{"ENTER", "VK_RETURN"},   UsualName{"ESC", "VK_ESCAPE"},
                                    UsualName{"BACKSPACE", "VK_BACK"}, UsualName{"INS", "VK_INSERT"},
                                    UsualName{"DEL", "VK_DELETE"},     UsualName{"CAPSLOCK", "VK_CAPITAL"}};

std::string InCapitals(std::string_view text)
{
    std::string capitals(text);
    std::transform(capitals.begin(), capitals.end(), capitals.begin(),
                   [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c; });
    return capitals;
}

int KeyOf(std::string_view text)
{
    std::string name = InCapitals(text);
    const auto usual =
        std::find_if(kUsualNames.begin(), kUsualNames.end(), [&](const UsualName& n) { return n.name == name; });
    if (usual != kUsualNames.end())
        name = usual->key;
    VUnicodeString wide;
    FromUtf8(name, wide);
    if (name.starts_with("0X"))
        return ParseVirtualKey(wide);
    const int code = VirtualKeyCodeOf(wide);
    return code >= 0 ? code : VirtualKeyCodeOf(VUnicodeString(u"VK_") + wide);
}

unsigned ModifierOf(std::string_view text)
{
    const std::string name = InCapitals(text);
    for (const Modifier& modifier : kModifiers)
        if (InCapitals(modifier.name) == name)
            return modifier.bit;
    return name == "CONTROL" ? kControlHeld : 0;
}

} // namespace

std::optional<unsigned> ReadKeyCombination(std::string_view text, std::string& problem)
{
    unsigned index = 0;
    std::string_view rest = text;
    for (size_t plus = rest.find('+'); plus != std::string_view::npos; plus = rest.find('+')) {
        const unsigned bit = ModifierOf(rest.substr(0, plus));
        if (bit == 0) {
            problem = Cited(rest.substr(0, plus)) + " is none of Ctrl, Shift, Alt, Extended";
            return std::nullopt;
        }
        index |= bit;
        rest.remove_prefix(plus + 1);
    }
    const int key = KeyOf(rest);
    if (key < 0) {
        problem = Cited(rest) + " is no key; see docs/keymap-format.md for names, or give a number such as 0xDC";
        return std::nullopt;
    }
    return index | static_cast<unsigned>(key);
}

std::string KeyCombinationText(unsigned keyIndex)
{
    std::string text;
    for (const std::string& modifier : ModifiersOf(keyIndex))
        text += modifier + "+";
    return text + KeyText(keyIndex);
}

std::vector<std::string> ModifiersOf(unsigned keyIndex)
{
    std::vector<std::string> names;
    for (const Modifier& modifier : kModifiers)
        if ((keyIndex & modifier.bit) != 0)
            names.emplace_back(modifier.name);
    return names;
}

std::string KeyText(unsigned keyIndex) { return Lossless(VirtualKeyName(keyIndex & kVirtualKeyMask)); }

} // namespace ostrand::tool
