#include "config/global/global_store.h"

#include <algorithm>

namespace ostrand {

namespace {

constexpr const char16_t* kGlobalKey = u"Global";
constexpr const char16_t* kButtonBarKey = u"ButtonBar";
constexpr const char16_t* kDefaultBar = u"Default";

} // namespace

VUnknownPointer<GlobalConfig> ReadGlobalConfig(bool isOrvane)
{
    VProfileStore store(true);
    const VProfileKey key(store.GetRootKey(), kGlobalKey);
    return VUnknownPointer<GlobalConfig>::Adopt(new GlobalConfig(&key, isOrvane));
}

bool WriteGlobalConfig(GlobalConfig& config, bool force, IReportMessageParams& report)
{
    config.UndoOverrides();
    VProfileStore store;
    VProfileKey key(store.GetRootKey(), kGlobalKey);
    // The three frames go first and unforced; a forced save writes them once more at their place in the table.
    config.localExplorerFrameState.Save(&key, false);
    config.remoteExplorerFrameState.Save(&key, false);
    config.synchronizeExplorerFrameState.Save(&key, false);
    config.Save(&key, force);
    return key.Flush(report);
}

void GetButtonBarNames(VStringArray& out)
{
    VProfileStore store(true);
    const VProfileKey key(store.GetRootKey(), kButtonBarKey);
    VProfileKeyIterator values(&key, true);
    VUnicodeString name;
    int type = 0;
    while (values.NextValue(name, &type))
        if (type == static_cast<int>(VProfileValueType::MultiSz))
            out.Append(name);
    if (std::find(out.begin(), out.end(), kDefaultBar) == out.end())
        out.Append(kDefaultBar);
}

} // namespace ostrand
