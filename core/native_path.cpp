#include "core/native_path.h"

#include <algorithm>

namespace ostrand {

bool ToNativePath(std::u16string_view path, std::string& out)
{
    if (path.find(u'\0') != std::u16string_view::npos || !ToUtf8(path, out))
        return false;
    std::replace(out.begin(), out.end(), '\\', '/');
    return true;
}

VUnicodeString NameInFolder(std::u16string_view folder, std::u16string_view name)
{
    const bool isNative = folder.starts_with(u'/');
    const std::u16string_view separators = isNative ? u"\\/" : u"\\";
    VUnicodeString path(folder.substr(0, folder.find_last_not_of(separators) + 1));
    path += isNative ? u"/" : u"\\";
    path += name.substr(std::min(name.find_first_not_of(separators), name.size()));
    return path;
}

std::string_view BaseName(std::string_view path) { return path.substr(path.find_last_of("\\/") + 1); }

} // namespace ostrand
