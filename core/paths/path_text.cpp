#include "core/paths/path_text.h"

#include "core/fold.h"

#include <algorithm>
#include <iterator>

namespace ostrand {

namespace {

constexpr std::u16string_view kSeparators = u"\\/";
constexpr std::u16string_view kRefused = u"\"*:<>?|";
constexpr std::u16string_view kRefusedInNames = u"\\/:*?\"<>|";
constexpr std::u16string_view kLiteralPrefix = u"\\\\?";

constexpr std::u16string_view kDeviceNames[] = {
    u"CON",  u"PRN",  u"AUX",  u"NUL",  u"COM1", u"COM2", u"COM3", u"COM4", u"COM5", u"COM6", u"COM7",   u"COM8",
    u"COM9", u"LPT1", u"LPT2", u"LPT3", u"LPT4", u"LPT5", u"LPT6", u"LPT7", u"LPT8", u"LPT9", u"CLOCK$",
};

bool IsSeparator(char16_t c) { return c == u'\\' || c == u'/'; }

bool IsLetter(char16_t c) { return FoldCase(c) >= u'a' && FoldCase(c) <= u'z'; }

/// Characters in front that may hold a colon or a question mark.
size_t PrefixLength(std::u16string_view path)
{
    if (path.starts_with(kLiteralPrefix))
        return kLiteralPrefix.size();
    return path.size() > 1 && path[1] == u':' && IsLetter(path[0]) ? 2 : 0;
}

} // namespace

VUnicodeString JoinPath(std::u16string_view a, std::u16string_view b)
{
    const bool isNative = a.starts_with(u'/');
    const std::u16string_view separators = isNative ? kSeparators : kSeparators.substr(0, 1);
    const bool endsInOne = a.find_last_of(separators) + 1 == a.size() && !a.empty();
    const bool beginsWithOne = b.find_first_of(separators) == 0;
    VUnicodeString path(a);
    if (!endsInOne && !beginsWithOne)
        path += isNative ? u"/" : u"\\";
    path += endsInOne && beginsWithOne ? b.substr(1) : b;
    return path;
}

VUnicodeString SplitPath(std::u16string_view path, VUnicodeString& fileName)
{
    if (IsDriveRoot(path) || (path.size() == 1 && IsSeparator(path[0]))) {
        fileName.Clear();
        return {};
    }
    while (path.size() > 1 && IsSeparator(path.back()))
        path.remove_suffix(1);
    const size_t last = path.find_last_of(kSeparators);
    VUnicodeString folder;
    if (last != path.npos)
        folder = path.substr(0, std::max<size_t>(last, 1));
    fileName = VUnicodeString(path.substr(last + 1)); // npos + 1 is the beginning
    return folder;
}

VUnicodeString GetParentFolder(std::u16string_view path)
{
    VUnicodeString fileName;
    return SplitPath(path, fileName);
}

bool IsDriveRoot(std::u16string_view path, char16_t* letter)
{
    const bool isRoot = path.find(u':') == 1 && (path.size() == 2 || (path.size() == 3 && path[2] == u'\\'));
    if (letter)
        *letter = isRoot ? path[0] : u'\0';
    return isRoot;
}

bool CheckPathSyntax(VUnicodeString& path, int* badIndex)
{
    const std::u16string_view text = path;
    const auto* const bad = std::find_if(text.begin() + PrefixLength(text), text.end(),
                                         [](char16_t c) { return c < u' ' || kRefused.find(c) != kRefused.npos; });
    const bool isGood = bad == text.end();
    if (badIndex)
        *badIndex = isGood ? -1 : static_cast<int>(bad - text.begin());
    if (!isGood)
        return false;
    for (size_t at = text.find(u'/'); at != text.npos; at = path.Find(u"/", at))
        path.SetAt(at, u'\\');
    return true;
}

bool HasIllegalNameCharacter(std::u16string_view name, char16_t* found)
{
    const auto* const first = std::find_if(kRefusedInNames.begin(), kRefusedInNames.end(),
                                           [name](char16_t refused) { return name.find(refused) != name.npos; });
    const bool isFound = first != kRefusedInNames.end();
    if (found)
        *found = isFound ? *first : u'\0';
    return isFound;
}

bool IsReservedDeviceName(std::u16string_view name)
{
    return std::any_of(std::begin(kDeviceNames), std::end(kDeviceNames),
                       [name](std::u16string_view device) { return EqualNoCase(name, device); });
}

} // namespace ostrand
