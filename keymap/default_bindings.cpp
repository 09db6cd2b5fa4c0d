#include "keymap/default_bindings.h"

#include "keymap/function_names.h"
#include "keymap/function_table.h"
#include "keymap/keymap.h"
#include "keymap/virtual_key_table.h"

#include <cstdint>

namespace ostrand {

namespace {

// A name that isn't in its table doesn't compile.

consteval unsigned Key(std::u16string_view name)
{
    for (const VirtualKeyRow& row : kVirtualKeyTable)
        if (row.name == name)
            return row.code;
    throw "no such key";
}

consteval unsigned Function(std::u16string_view name)
{
    for (unsigned code = 0; code < kFunctionCount; ++code)
        if (kFunctionTable[code] == name)
            return code;
    throw "no such function";
}

constexpr unsigned kExtended = kExtendedKey;
constexpr unsigned kCtrl = kControlHeld;
constexpr unsigned kShift = kShiftHeld;
constexpr unsigned kAlt = kAltHeld;

// Keys without a name, called by their signs on a US keyboard.
constexpr unsigned kBackslash = 0xDC;
constexpr unsigned kMinus = 0xBD;
constexpr unsigned kSlash = 0xBF;

struct Binding {
    unsigned keyIndex;
    unsigned function;
    std::u16string_view text;

    consteval Binding(unsigned index, std::u16string_view name) : keyIndex(index), function(Function(name)) {}
    /// Sends a character, by its octal escape.
    consteval Binding(unsigned index, unsigned code, std::u16string_view escape)
        : keyIndex(index),
          function(code),
          text(escape)
    {
    }
};

// On purpose: End has a default and Home none; Ctrl with the slash is free where Ctrl and Shift with it are bound. Held
// by the known answers of the key tables.
constexpr Binding kDefaults[] = {
    {Key(u"VK_F1"), u"VT_PF1"},
    {Key(u"VK_F2"), u"VT_PF2"},
    {Key(u"VK_F3"), u"VT_PF3"},
    {Key(u"VK_F4"), u"VT_PF4"},
    {kCtrl | Key(u"VK_SPACE"), kFunctionSend, u"\\000"},
    {kCtrl | Key(u"VK_2"), kFunctionSend, u"\\000"},
    {kCtrl | kShift | Key(u"VK_2"), kFunctionSend, u"\\000"},
    {Key(u"VK_BACK"), kFunctionSend, u"\\010"},
    {kShift | Key(u"VK_BACK"), kFunctionSend, u"\\010"},
    {kCtrl | Key(u"VK_BACK"), kFunctionSend, u"\\177"},
    {kCtrl | Key(u"VK_TAB"), u"MENU_TAB_NEXT"},
    {kCtrl | kShift | Key(u"VK_TAB"), u"MENU_TAB_PREV"},
    {kCtrl | Key(u"VK_F4"), u"MENU_TAB_CLOSE"},
    {kAlt | Key(u"VK_RETURN"), u"MENU_TOGGLE_FULL_SCREEN"},
    {kCtrl | kBackslash, kFunctionSend, u"\\034"},
    {kCtrl | Key(u"VK_6"), kFunctionSend, u"\\036"},
    {kCtrl | kShift | Key(u"VK_6"), kFunctionSend, u"\\036"},
    {kCtrl | kMinus, kFunctionSend, u"\\037"},
    {kCtrl | kShift | kMinus, kFunctionSend, u"\\037"},
    {kCtrl | kShift | kSlash, kFunctionSend, u"\\037"},
    {Key(u"VK_PRIOR"), u"SB_PAGE_UP"},
    {Key(u"VK_NEXT"), u"SB_PAGE_DOWN"},
    {kCtrl | Key(u"VK_PRIOR"), u"SB_LINE_UP"},
    {kCtrl | Key(u"VK_NEXT"), u"SB_LINE_DOWN"},
    {Key(u"VK_END"), u"SB_END"},
    {kExtended | Key(u"VK_PRIOR"), u"SB_PAGE_UP"},
    {kExtended | Key(u"VK_NEXT"), u"SB_PAGE_DOWN"},
    {kExtended | kCtrl | Key(u"VK_PRIOR"), u"SB_LINE_UP"},
    {kExtended | kCtrl | Key(u"VK_NEXT"), u"SB_LINE_DOWN"},
    {kExtended | Key(u"VK_END"), u"SB_END"},
    {Key(u"VK_DELETE"), kFunctionSend, u"\\177"},
    {kShift | Key(u"VK_DELETE"), kFunctionSend, u"\\177"},
    {kExtended | Key(u"VK_DELETE"), kFunctionSend, u"\\177"},
    {kExtended | kShift | Key(u"VK_DELETE"), kFunctionSend, u"\\177"},
    {Key(u"VK_LEFT"), u"VT_CURSOR_LEFT"},
    {Key(u"VK_UP"), u"VT_CURSOR_UP"},
    {Key(u"VK_RIGHT"), u"VT_CURSOR_RIGHT"},
    {Key(u"VK_DOWN"), u"VT_CURSOR_DOWN"},
    {kExtended | Key(u"VK_LEFT"), u"VT_CURSOR_LEFT"},
    {kExtended | Key(u"VK_UP"), u"VT_CURSOR_UP"},
    {kExtended | Key(u"VK_RIGHT"), u"VT_CURSOR_RIGHT"},
    {kExtended | Key(u"VK_DOWN"), u"VT_CURSOR_DOWN"},
    {kCtrl | Key(u"VK_PAUSE"), u"TN_BREAK"},
    {kAlt | Key(u"VK_1"), u"MENU_TAB_1"},
    {kAlt | Key(u"VK_2"), u"MENU_TAB_2"},
    {kAlt | Key(u"VK_3"), u"MENU_TAB_3"},
    {kAlt | Key(u"VK_4"), u"MENU_TAB_4"},
    {kAlt | Key(u"VK_5"), u"MENU_TAB_5"},
    {kAlt | Key(u"VK_6"), u"MENU_TAB_6"},
    {kAlt | Key(u"VK_7"), u"MENU_TAB_7"},
    {kAlt | Key(u"VK_8"), u"MENU_TAB_8"},
    {kAlt | Key(u"VK_9"), u"MENU_TAB_9"},
    {kAlt | Key(u"VK_0"), u"MENU_TAB_10"},
};

} // namespace

void InstallDefaultKeymap(IKeymap& keymap)
{
    for (const Binding& binding : kDefaults) {
        keymap.SetFunction(binding.keyIndex, binding.function);
        keymap.SetString(binding.keyIndex, binding.text);
    }
}

} // namespace ostrand
