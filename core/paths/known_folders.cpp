#include "core/paths/known_folders.h"

#include "core/paths/environment.h"
#include "platform/error_codes.h"
#include "platform/platform.h"

#include <optional>

namespace ostrand {

namespace {

/// Where a folder lies: the environment may name it, then the user's list of folders, else it has its usual place below
/// the home folder. After the XDG Base Directory Specification and xdg-user-dirs.
struct Place {
    const char* variable; // null: none
    const char* listed;
    const char* belowHome;
};

/// In the order of VKnownFolder.
constexpr Place kPlaces[] = {
    {nullptr, nullptr, ""},
    {"XDG_CONFIG_HOME", nullptr, "/.config"},
    {nullptr, "XDG_DOWNLOAD_DIR", "/Downloads"},
    {nullptr, "XDG_DOCUMENTS_DIR", "/Documents"},
};

constexpr const char* kListFile = "/user-dirs.dirs"; // in the folder of the settings
constexpr size_t kLargestList = size_t{1} << 16;
constexpr std::string_view kHomeMark = "$HOME";

/// An absolute path that the environment holds; others don't count.
std::optional<std::string> FolderFromEnvironment(const char* variable)
{
    std::string folder;
    if (!variable || !Platform().environment->Get(variable, folder) || !folder.starts_with('/'))
        return std::nullopt;
    return folder;
}

std::string_view WithoutBlanksInFront(std::string_view text)
{
    return text.substr(std::min(text.find_first_not_of(" \t"), text.size()));
}

/// What stands in the double quotes, where a backslash lets the next character stand for itself.
std::optional<std::string> Unquoted(std::string_view text)
{
    if (!text.starts_with('"'))
        return std::nullopt;
    std::string out;
    for (size_t i = 1; i < text.size(); ++i) {
        if (text[i] == '"')
            return out;
        if (text[i] == '\\')
            ++i;
        if (i < text.size())
            out += text[i];
    }
    return std::nullopt;
}

/// The folder of a line `NAME="$HOME/folder"` or `NAME="/folder"`; none for any other line.
std::optional<std::string> FolderOfLine(std::string_view line, std::string_view name, const std::string& home)
{
    line = WithoutBlanksInFront(line);
    if (!line.starts_with(name))
        return std::nullopt;
    line = WithoutBlanksInFront(line.substr(name.size()));
    if (!line.starts_with('='))
        return std::nullopt;
    std::optional<std::string> folder = Unquoted(WithoutBlanksInFront(line.substr(1)));
    if (folder && (*folder + "/").starts_with("$HOME/"))
        folder->replace(0, kHomeMark.size(), home);
    return folder && folder->starts_with('/') ? folder : std::nullopt;
}

std::optional<std::string> Find(VKnownFolder folder);

std::optional<std::string> FolderFromList(const char* name, const std::string& home)
{
    const std::optional<std::string> config = Find(VKnownFolder::Config);
    std::string text;
    VFileInfo info;
    if (!config || Platform().files->ReadWhole(*config + kListFile, kLargestList, text, info) != kErrorSuccess)
        return std::nullopt;
    std::optional<std::string> folder;
    for (std::string_view rest = text; !rest.empty();) {
        const size_t end = std::min(rest.find('\n'), rest.size() - 1);
        if (auto found = FolderOfLine(rest.substr(0, end + 1), name, home))
            folder = std::move(found); // the last one counts, as in a shell
        rest.remove_prefix(end + 1);
    }
    return folder;
}

std::optional<std::string> Find(VKnownFolder folder)
{
    const Place& place = kPlaces[static_cast<size_t>(folder)];
    if (auto found = FolderFromEnvironment(place.variable))
        return found;
    const std::optional<std::string> home = FolderFromEnvironment("HOME");
    if (!home)
        return std::nullopt;
    if (place.listed)
        if (auto listed = FolderFromList(place.listed, *home))
            return listed;
    return *home + place.belowHome;
}

} // namespace

bool GetKnownFolder(VKnownFolder folder, VUnicodeString& path)
{
    const std::optional<std::string> found = Find(folder);
    VUnicodeString text;
    if (!found || !FromUtf8(*found, text))
        return false;
    path = text;
    return true;
}

} // namespace ostrand
