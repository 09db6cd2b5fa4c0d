#include "config/session/default_directories.h"

#include "config/app_paths/config_path.h"
#include "core/paths/known_folders.h"
#include "core/paths/path_text.h"
#include "core/paths/path_tokens.h"
#include "core/product.h"

namespace ostrand {

VUnicodeString DefaultTransferFolder(VTransferWay way)
{
    const bool isUpload = way == VTransferWay::Upload;
    VUnicodeString folder;
    if (GetKnownFolder(isUpload ? VKnownFolder::Home : VKnownFolder::Downloads, folder))
        return folder;
    if (IsU3Environment())
        return u"%u3doc%";
    if (GetKnownFolder(VKnownFolder::Documents, folder))
        return folder;
    return GetAppConfigPath(VGetAppName().c_str()) + (isUpload ? u"\\upload" : u"\\download");
}

} // namespace ostrand
