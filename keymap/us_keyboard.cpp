#include "keymap/us_keyboard.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace ostrand {

namespace {

struct TypingKey {
    uint8_t scanCode;
    uint8_t virtualKey;
    char16_t plain;
    char16_t shifted;
    char16_t control; ///< with Ctrl alone
};
/// Beside the letters, which follow a rule.
constexpr std::array<TypingKey, 26> kTypingKeys = {{
    {0x02, '1', u'1', u'!', 0},       {0x03, '2', u'2', u'@', 0},        {0x04, '3', u'3', u'#', 0},
    {0x05, '4', u'4', u'$', 0},       {0x06, '5', u'5', u'%', 0},        {0x07, '6', u'6', u'^', 0},
    {0x08, '7', u'7', u'&', 0},       {0x09, '8', u'8', u'*', 0},        {0x0A, '9', u'9', u'(', 0},
    {0x0B, '0', u'0', u')', 0},       {0x0C, 0xBD, u'-', u'_', 0},       {0x0D, 0xBB, u'=', u'+', 0},
    {0x0E, 0x08, u'\b', u'\b', 0x7F}, {0x0F, 0x09, u'\t', u'\t', 0},     {0x1A, 0xDB, u'[', u'{', 0x1B},
    {0x1B, 0xDD, u']', u'}', 0x1D},   {0x1C, 0x0D, u'\r', u'\r', u'\n'}, {0x27, 0xBA, u';', u':', 0},
    {0x28, 0xDE, u'\'', u'"', 0},     {0x29, 0xC0, u'`', u'~', 0},       {0x2B, 0xDC, u'\\', u'|', 0x1C},
    {0x33, 0xBC, u',', u'<', 0},      {0x34, 0xBE, u'.', u'>', 0},       {0x35, 0xBF, u'/', u'?', 0},
    {0x39, 0x20, u' ', u' ', u' '},   {0x01, 0x1B, 0x1B, 0x1B, 0x1B},
}};

struct LetterRow {
    uint8_t scanCode; ///< of the first letter; the others follow
    std::u16string_view letters;
};
constexpr std::array<LetterRow, 3> kLetterRows = {{{0x10, u"QWERTYUIOP"}, {0x1E, u"ASDFGHJKL"}, {0x2C, u"ZXCVBNM"}}};

struct OtherKey {
    uint8_t scanCode;
    bool isExtended;
    uint8_t virtualKey;
};
constexpr std::array<OtherKey, 49> kOtherKeys = {{
    {0x1D, false, 0x11}, {0x2A, false, 0x10}, {0x36, false, 0x10}, {0x37, false, 0x6A}, {0x38, false, 0x12},
    {0x3A, false, 0x14}, {0x45, false, 0x13}, {0x46, false, 0x91}, {0x47, false, 0x24}, {0x48, false, 0x26},
    {0x49, false, 0x21}, {0x4A, false, 0x6D}, {0x4B, false, 0x25}, {0x4C, false, 0x0C}, {0x4D, false, 0x27},
    {0x4E, false, 0x6B}, {0x4F, false, 0x23}, {0x50, false, 0x28}, {0x51, false, 0x22}, {0x52, false, 0x2D},
    {0x53, false, 0x2E}, {0x57, false, 0x7A}, {0x58, false, 0x7B}, {0x3B, false, 0x70}, {0x3C, false, 0x71},
    {0x3D, false, 0x72}, {0x3E, false, 0x73}, {0x3F, false, 0x74}, {0x40, false, 0x75}, {0x41, false, 0x76},
    {0x42, false, 0x77}, {0x43, false, 0x78}, {0x44, false, 0x79}, {0x1C, true, 0x0D},  {0x1D, true, 0x11},
    {0x35, true, 0x6F},  {0x37, true, 0x2C},  {0x38, true, 0x12},  {0x45, true, 0x90},  {0x47, true, 0x24},
    {0x48, true, 0x26},  {0x49, true, 0x21},  {0x4B, true, 0x25},  {0x4D, true, 0x27},  {0x4F, true, 0x23},
    {0x50, true, 0x28},  {0x51, true, 0x22},  {0x52, true, 0x2D},  {0x53, true, 0x2E},
}};

struct PadKey {
    uint8_t virtualKey;
    char16_t text;
};
constexpr std::array<PadKey, 5> kPadKeys = {{{0x6A, u'*'}, {0x6B, u'+'}, {0x6D, u'-'}, {0x6E, u'.'}, {0x6F, u'/'}}};

/// Characters that Ctrl and Shift type together.
constexpr std::array<PadKey, 3> kShiftControl = {{{'2', 0x00}, {'6', 0x1E}, {0xBD, 0x1F}}};

bool IsLetter(unsigned virtualKey) { return virtualKey >= 'A' && virtualKey <= 'Z'; }

VUnicodeString OneCharacter(char16_t c) { return std::u16string_view(&c, 1); }

VUnicodeString ControlText(unsigned virtualKey, bool shift)
{
    if (IsLetter(virtualKey))
        return OneCharacter(static_cast<char16_t>(virtualKey - 'A' + 1));
    if (shift) {
        const auto* const key = std::ranges::find(kShiftControl, virtualKey, &PadKey::virtualKey);
        return key == kShiftControl.end() ? VUnicodeString() : OneCharacter(key->text);
    }
    const auto* const key = std::ranges::find(kTypingKeys, virtualKey, &TypingKey::virtualKey);
    return key == kTypingKeys.end() || key->control == 0 ? VUnicodeString() : OneCharacter(key->control);
}

} // namespace

unsigned UsVirtualKey(unsigned scanCode, bool isExtended)
{
    for (const OtherKey& key : kOtherKeys)
        if (key.scanCode == scanCode && key.isExtended == isExtended)
            return key.virtualKey;
    if (isExtended)
        return 0;
    for (const LetterRow& row : kLetterRows)
        if (scanCode >= row.scanCode && scanCode < row.scanCode + row.letters.size())
            return row.letters[scanCode - row.scanCode];
    const auto* const key = std::ranges::find(kTypingKeys, scanCode, &TypingKey::scanCode);
    return key == kTypingKeys.end() ? 0 : key->virtualKey;
}

VUnicodeString UsKeyText(unsigned virtualKey, bool shift, bool control)
{
    if (control)
        return ControlText(virtualKey, shift);
    if (IsLetter(virtualKey))
        return OneCharacter(static_cast<char16_t>(shift ? virtualKey : virtualKey - 'A' + u'a'));
    const auto* const typing = std::ranges::find(kTypingKeys, virtualKey, &TypingKey::virtualKey);
    if (typing != kTypingKeys.end())
        return OneCharacter(shift ? typing->shifted : typing->plain);
    const auto* const pad = std::ranges::find(kPadKeys, virtualKey, &PadKey::virtualKey);
    return pad == kPadKeys.end() ? VUnicodeString() : OneCharacter(pad->text);
}

} // namespace ostrand
