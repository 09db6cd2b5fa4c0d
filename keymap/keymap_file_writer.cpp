#include "keymap/function_names.h"
#include "keymap/keymap_file.h"
#include "keymap/virtual_keys.h"
#include "platform/error_codes.h"

#include <string>

namespace ostrand {

namespace {

constexpr size_t kKeyColumn = 20;

/// In the order in which they are written.
struct Letter {
    unsigned mask;
    char16_t letter;
};
constexpr Letter kLetters[] = {
    {kAltHeld, u'A'},
    {kControlHeld, u'C'},
    {kShiftHeld, u'S'},
    {kExtendedKey, u'E'},
};

void PutKey(unsigned keyIndex, std::u16string& out)
{
    for (const Letter& row : kLetters)
        if (keyIndex & row.mask)
            out += row.letter;
    if ((keyIndex & ~kVirtualKeyMask) == 0)
        out += u'N';
    out += u'\t';
    const VUnicodeString name = VirtualKeyName(keyIndex & kVirtualKeyMask);
    out += name.View();
    out.append(kKeyColumn > name.GetLength() ? kKeyColumn - name.GetLength() : 0, u' ');
    out += u'\t';
}

void PutString(std::u16string_view text, std::u16string& out)
{
    out += u'"';
    for (const char16_t c : text)
        if (c == u'\r' || c == u'\n')
            out += c == u'\r' ? u"\\015" : u"\\012";
        else
            out += c;
    out += u'"';
}

void PutAction(uint32_t code, std::u16string_view text, std::u16string& out)
{
    if (code == kFunctionSend)
        return PutString(text, out);
    out += FunctionNameOf(code);
    if (code != kFunctionRun && code != kFunctionLaunch)
        return;
    out += u'(';
    PutString(text, out);
    out += u')';
}

} // namespace

unsigned WriteKeymapFile(const KeyBindings& bindings, std::u16string_view path, VTextEncoding encoding)
{
    // The text is made first and written at once, so that the old file is gone for as short a time as may be.
    std::u16string text;
    for (unsigned index = 0; index < kKeyCount; ++index) {
        const uint32_t code = bindings.Function(index);
        if (code == kFunctionNone)
            continue;
        PutKey(index, text);
        PutAction(code, bindings.String(index), text);
        text += u"\r\n";
    }
    VTextFile file(encoding);
    const unsigned result = file.Open(path, VFileAccess::Write, VFileDisposition::CreateAlways);
    return result == kErrorSuccess ? file.WriteText(text) : result;
}

} // namespace ostrand
