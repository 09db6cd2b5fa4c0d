#include "config/app_paths/config_path.h"

#include "core/fold.h"
#include "core/messages.h"
#include "core/native_path.h"
#include "core/paths/path_text.h"
#include "core/product.h"
#include "platform/error_codes.h"
#include "platform/places.h"
#include "platform/platform.h"
#include "profile/hives.h"
#include "profile/schema.h"

#include <algorithm>

namespace ostrand {

namespace {

constexpr const char16_t* kConfigPath = u"Config Path";
constexpr const char16_t* kCommonKey = u"Global";
constexpr const char16_t* kPortableFolder = u"Config";
constexpr const char16_t* kPortableMark = u"global.ini";

bool WriteConfigPath(const char16_t* application, const char16_t* path, IReportMessageParams& report)
{
    VProfileStore store(&DefaultRegistryFactory());
    VProfileKey key(store.GetRootKey(), application);
    VProfileString value;
    value.SetName(kConfigPath);
    value.Load(&key, VUnicodeString());
    value = VUnicodeString(path);
    value.Save(&key, false);
    return key.Flush(report);
}

bool IsFolder(std::u16string_view path)
{
    std::string native;
    VFileInfo info;
    return ToNativePath(path, native) && Platform().files->GetInfo(native, info) == kErrorSuccess && info.isFolder;
}

} // namespace

VUnicodeString GetAppConfigPath(const char16_t* application)
{
    VRegistryStoreFactory& factory = DefaultRegistryFactory();
    factory.hive = VHive::CurrentUser;
    factory.path = kRegistryBase;
    const VProfileStore store(true, &factory);
    const VProfileKey key(store.GetRootKey(), application);
    VProfileString value;
    value.SetName(kConfigPath);
    value.Load(&key, VUnicodeString());
    return value.Value();
}

VUnicodeString GetAppConfigPathAlpha()
{
    const VUnicodeString path = GetAppConfigPath(kCommonKey);
    if (!path.IsEmpty())
        SaveAppConfigPath(path.c_str(), false);
    return path;
}

bool SaveAppConfigPath(const char16_t* path, bool force, IReportMessageParams* report)
{
    VReportMessageParams ignored;
    IReportMessageParams& outcome = report ? *report : ignored;
    bool isSaved = WriteConfigPath(VGetAppName().c_str(), path, outcome);
    VUnicodeString other;
    if (IsIntegrated(other) && (force || GetAppConfigPath(other.c_str()).IsEmpty()))
        isSaved = WriteConfigPath(other.c_str(), path, isSaved ? outcome : ignored) && isSaved;
    return isSaved;
}

VUnicodeString GetAppConfigPathUnderExe(const char16_t* folder)
{
    VUnicodeString config = JoinPath(folder ? folder : u"", kPortableFolder);
    std::string native;
    std::vector<VFolderEntry> entries;
    const bool isMarked = ToNativePath(config, native) &&
                          Platform().files->ListFolder(native, entries) == kErrorSuccess &&
                          std::any_of(entries.begin(), entries.end(), [](const VFolderEntry& entry) {
                              VUnicodeString name;
                              return !entry.isFolder && FromUtf8(entry.name, name) && EqualNoCase(name, kPortableMark);
                          });
    return isMarked ? config : VUnicodeString();
}

bool CheckAppConfigPathCommandLine(const char16_t* path, VUnicodeString& result, IReportMessageParams& report)
{
    result = path;
    // A lone "/" is the root of all folders.
    const size_t least = kHasDrives ? 0 : 1;
    const std::u16string_view separators = kHasDrives ? u"\\" : u"\\/";
    for (size_t end = result.GetLength(); end > least && separators.find(result[end - 1]) != separators.npos; --end)
        result.SetAt(end - 1, u'\0');
    if (IsFolder(result.View().substr(0, result.Find(std::u16string_view(u"\0", 1)))))
        return true;
    return Fail(report, kCommandLineFolderInvalid, path);
}

} // namespace ostrand
