#include "core/paths/folders.h"

#include "core/format.h"
#include "core/native_path.h"
#include "core/paths/path_text.h"
#include "core/paths/path_tokens.h"
#include "core/prompts.h"
#include "core/report.h"
#include "platform/error_codes.h"
#include "platform/places.h"
#include "platform/platform.h"

namespace ostrand {

namespace {

constexpr std::u16string_view kInvalidDrive = u"Invalid drive specified for creating a local directory.";
constexpr std::u16string_view kInvalidSyntax = u"Invalid path syntax specified for creating a local directory.";
constexpr std::u16string_view kInvalidFolder = u"Invalid directory specified for creation.";
constexpr std::u16string_view kNotCreated = u"Failed to create new directory.";
constexpr std::u16string_view kNoPathPicked = u"Failed to retrieve a valid path.";
constexpr std::u16string_view kAskCreate = u"The directory specified does not exist.\n\nWould you like to create it?";
constexpr std::u16string_view kAskFullPath =
    u"The directory '%1' entered does not specify a full path.\n\nIts equivalent full path is '%2'.\n\n"
    u"Would you like to replace the entry with its full path?";
constexpr std::u16string_view kConfigFolderTitle = u"Select a folder to be used as the configuration folder:";

constexpr size_t kLongestPath = 260;   // characters, the zero behind it included
constexpr unsigned kFolderMode = 0777; // under the process's mask, as any folder that users make
constexpr int kExpansionReport = 101;

/// Tells why not; always false.
bool Refuse(std::u16string_view why)
{
    Prompts().Show(why, VPromptIcon::Warning);
    return false;
}

bool Ask(std::u16string_view question) { return Prompts().AskYesNo(question, VPromptIcon::Warning); }

unsigned LookUp(std::u16string_view path)
{
    std::string native;
    VFileInfo info;
    return ToNativePath(path, native) ? Platform().files->GetInfo(native, info) : kErrorFileNotFound;
}

bool CreateFolder(std::u16string_view path)
{
    std::string native;
    return ToNativePath(path, native) && Platform().files->CreateFolder(native, kFolderMode) == kErrorSuccess;
}

bool NamesDrive(std::u16string_view path)
{
    return IsDriveRoot(path.ends_with(u'/') ? path.substr(0, path.size() - 1) : path);
}

bool EnsureDriveExists(VUnicodeString& drive)
{
    const VUnicodeString root = JoinPath(drive, u"\\");
    if (!kHasDrives || LookUp(root) != kErrorSuccess)
        return Refuse(kInvalidDrive);
    drive = root;
    return true;
}

bool NamesNoFolder(std::u16string_view path) { return path.find_first_of(kHasDrives ? u"\\" : u"\\/") == path.npos; }

/// Empty where there is none.
VUnicodeString FullPathOf(std::u16string_view name)
{
    VUnicodeString folder;
    const bool isKnown = FromUtf8(Platform().processes->CurrentFolder(), folder) && !folder.IsEmpty();
    return isKnown && !name.empty() ? JoinPath(folder, name) : VUnicodeString();
}

bool ReplaceByFullPath(VUnicodeString& name)
{
    const VUnicodeString full = FullPathOf(name);
    if (full.IsEmpty() || full.GetLength() >= kLongestPath)
        return Refuse(kInvalidFolder);
    if (!Ask(Format(kAskFullPath, name, full)))
        return false;
    name = full;
    return true;
}

} // namespace

VUnicodeString GetExeFolder()
{
    VUnicodeString path;
    FromUtf8(Platform().processes->ExecutablePath(), path);
    return GetParentFolder(path);
}

bool IsFile(std::u16string_view path)
{
    std::string native;
    VFileInfo info;
    return ToNativePath(path, native) && Platform().files->GetInfo(native, info) == kErrorSuccess && !info.isFolder;
}

bool HasProgramBeside(std::u16string_view name)
{
    const VUnicodeString path = JoinPath(GetExeFolder(), name);
    return IsFile(path) || IsFile(path + u".exe");
}

VUnicodeString FindExistingFolder(std::u16string_view path)
{
    for (VUnicodeString at = path; !at.IsEmpty(); at = GetParentFolder(at)) {
        // A drive alone would mean its current folder. Elsewhere a name may end in a colon.
        const bool isDrive = at.View().ends_with(u':') && !at.View().starts_with(u'/');
        const VUnicodeString folder = isDrive ? JoinPath(at, u"\\") : at;
        if (LookUp(folder) == kErrorSuccess)
            return folder;
    }
    return {};
}

bool EnsureFolderExists(VUnicodeString& path)
{
    if (NamesDrive(path))
        return EnsureDriveExists(path);
    if (NamesNoFolder(path) && !ReplaceByFullPath(path))
        return false;
    const unsigned code = LookUp(path);
    if (code == kErrorSuccess)
        return true;
    if (code != kErrorFileNotFound)
        return Refuse(kInvalidFolder);
    return Ask(kAskCreate) && (CreateFolder(path) || Refuse(kNotCreated));
}

bool ValidateLocalFolder(VUnicodeString& path)
{
    VReportMessageParams ignored; // a template that doesn't expand is an empty path, which is refused below
    const VUnicodeString expanded = ExpandPathTokens(path, ignored);
    VUnicodeString folder = expanded;
    if (!CheckPathSyntax(folder))
        return Refuse(kInvalidSyntax);
    folder = InNativeSpelling(folder);
    const bool exists = EnsureFolderExists(folder);
    if (!(folder == expanded))
        path = folder;
    return exists;
}

bool BrowseForFolder(std::u16string_view title, VUnicodeString& path)
{
    if (!Prompts().PickFolder(title, path))
        return false;
    return !path.IsEmpty() || Refuse(kNoPathPicked);
}

bool BrowseForConfigFolder(VUnicodeString& path)
{
    VReportMessageParams report;
    VUnicodeString folder = ExpandPathTokens(path, report);
    if (report.GetCode() != 0) {
        VReportMessage(kExpansionReport, report);
        return false;
    }
    folder = FindExistingFolder(folder);
    if (!BrowseForFolder(kConfigFolderTitle, folder) || PathsEqual(path, folder))
        return false;
    path = folder;
    return true;
}

} // namespace ostrand
