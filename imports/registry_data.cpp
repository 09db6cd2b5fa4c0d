#include "imports/registry_data.h"

#include "imports/import_text.h"

#include <algorithm>

namespace ostrand {

namespace {

/// All of the bytes, zeros included.
VUnicodeString Decode(const RegistryBytes& bytes, RegistryTexts texts)
{
    const std::string narrow(bytes.begin(), bytes.end());
    if (texts == RegistryTexts::Narrow)
        return DecodeNarrow(narrow);
    VUnicodeString text;
    DecodeFile("\xFF\xFE" + narrow, text); // half a unit at the end is dropped
    return text;
}

VUnicodeString UpToZero(std::u16string_view text) { return text.substr(0, text.find(u'\0')); }

VStringArray ListOf(std::u16string_view text)
{
    VStringArray list;
    while (!text.empty() && text[0] != 0) {
        list.Append(UpToZero(text));
        text.remove_prefix(std::min(list[list.GetCount() - 1].GetLength() + 1, text.size()));
    }
    return list;
}

} // namespace

RegistryData TypedRegistryData(uint32_t kind, RegistryBytes bytes, RegistryTexts texts)
{
    if (kind == kRegistryText || kind == kRegistryExpandText)
        return UpToZero(Decode(bytes, texts));
    if (kind == kRegistryTextList)
        return ListOf(Decode(bytes, texts));
    if (kind == kRegistryNumber && bytes.size() == 4)
        return bytes[0] | uint32_t{bytes[1]} << 8 | uint32_t{bytes[2]} << 16 | uint32_t{bytes[3]} << 24;
    return bytes;
}

} // namespace ostrand
