// Key map files. First byte: how short the reads are and how the map is written; the rest is the file. What was read is
// written and read again as the same, as far as the encoding holds it.
#include "fuzz/one_file.h"
#include "keymap/keymap_file.h"
#include "platform/error_codes.h"

#include <algorithm>

using namespace ostrand;
using fuzz::Check;

namespace {

/// Whether the encoding, and what a file makes of it, give back the strings of all bindings with a code.
bool IsHeld(const KeyBindings& bindings, VTextEncoding encoding)
{
    for (unsigned index = 0; index < kKeyCount; ++index) {
        if (bindings.Function(index) == 0)
            continue;
        std::u16string text;
        DecodeText(encoding, EncodeText(encoding, bindings.String(index)), text);
        if (text != bindings.String(index).View())
            return false;
    }
    return true;
}

void CheckSame(const Keymap& a, const Keymap& b)
{
    for (unsigned index = 0; index < kKeyCount; ++index) {
        const unsigned code = a.GetFunction(index);
        Check(b.GetFunction(index) == code);
        // A function's line has no place for a string that an earlier line left.
        if (code >= 1 && code <= 3)
            Check(b.GetString(index) == a.GetString(index));
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    if (size == 0)
        return 0;
    fuzz::OneFile input(data, size);
    constexpr auto kPath = fuzz::OneFile::kPath;
    input.files.mostPerRead = 1 + input.choice % 61;

    Keymap keymap;
    VReportMessageParams status;
    const bool isLoaded = keymap.LoadFromFile(kPath, status);
    Check(isLoaded == keymap.HasDefaults() && isLoaded == (status.GetCode() >> 28 != 0xE));

    Keymap whole;
    KeymapFileReader reader(whole, kKeymapCheckErrorLimit);
    Check(reader.Open(kPath) == kErrorSuccess);
    const bool isWhole = reader.Read();
    Check(isWhole || !reader.Errors().empty());
    Check(std::is_sorted(reader.Errors().begin(), reader.Errors().end(),
                         [](const KeymapFileError& a, const KeymapFileError& b) { return a.line < b.line; }));
    if (isWhole)
        Check(isLoaded == (reader.Errors().size() < kKeymapErrorLimit));

    const auto encoding = static_cast<VTextEncoding>(1 + input.choice % 4);
    Check(WriteKeymapFile(whole.OwnBindings(), kPath, encoding) == kErrorSuccess);
    Keymap back;
    KeymapFileReader again(back, kKeymapCheckErrorLimit);
    Check(again.Open(kPath) == kErrorSuccess);
    const bool isReadAgain = again.Read();
    if (IsHeld(whole.OwnBindings(), encoding)) {
        Check(isReadAgain && again.Errors().empty());
        CheckSame(whole, back);
    }
    return 0;
}
