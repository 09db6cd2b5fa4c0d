#include "core/native_path.h"

#include "platform/places.h"

#include <algorithm>

namespace ostrand {

bool ToNativePath(std::u16string_view path, std::string& out)
{
    if (path.find(u'\0') != std::u16string_view::npos || !ToUtf8(path, out))
        return false;
    std::replace(out.begin(), out.end(), '\\', '/');
    return true;
}

VUnicodeString InNativeSpelling(std::u16string_view path)
{
    std::u16string text(path);
    if (!kHasDrives)
        std::replace(text.begin(), text.end(), u'\\', u'/');
    return VUnicodeString(text);
}

std::string_view BaseName(std::string_view path) { return path.substr(path.find_last_of("\\/") + 1); }

} // namespace ostrand
