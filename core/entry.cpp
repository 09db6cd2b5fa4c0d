#include "core/entry.h"

#include "config/global/global_store.h"
#include "config/session/emulations.h"
#include "core/lock.h"
#include "core/product.h"

namespace ostrand {

VModuleState& ModuleState()
{
    static VModuleState state{{}, VUnknownPointer<ISynchObject>::Adopt(new VCriticalSection), nullptr, nullptr};
    return state;
}

void OstrandUiInit(VReportRouterGetter getter)
{
    SetReportRouterGetter(getter);
    // The migration tool's name, "Migrate", is no product's; it gets the rows of all that aren't Quillo.
    RebuildEmulationTables(GetProductFromAppName(), nullptr);
}

void OstrandUiInitProfileFactory(VProfileStoreFactoryGetter getter) { SetProfileStoreFactoryGetter(getter); }

void OstrandUiInitGUI(VSessionPicker picker, VImageListGetter getter)
{
    ModuleState().sessionPicker = picker;
    ModuleState().imageListGetter = getter;
    GlobalConfig* config = nullptr;
    GetGlobalConfig(config, -1);
    RebuildEmulationTables(GetProductFromAppName(), config);
}

void GetGlobalConfig(GlobalConfig*& config, int productId)
{
    VUnknownPointer<GlobalConfig>& held = ModuleState().globalConfig;
    if (!held) {
        const int product = productId == -1 ? GetProductFromAppName() : productId;
        held = ReadGlobalConfig(product == kProductOrvane);
        RebuildEmulationTables(GetProductFromAppName(), held.Get());
    }
    config = held.Get();
}

void ResetGlobalConfig(GlobalConfig*& config)
{
    const VGlobalConfigLock lock;
    ModuleState().globalConfig.Reset();
    config = nullptr;
}

void ReloadGlobalConfig(GlobalConfig*& config)
{
    const VGlobalConfigLock lock;
    ModuleState().globalConfig.Reset();
    GetGlobalConfig(config, -1);
}

bool SaveGlobalConfig(bool force, IReportMessageParams* report)
{
    VReportMessageParams own;
    return WriteGlobalConfig(*ModuleState().globalConfig, force, report ? *report : own);
}

void MergeGlobalConfig(const VProfileKey& key) { ModuleState().globalConfig->Merge(&key); }

VGlobalConfigLock::VGlobalConfigLock()
    : m_config(VUnknownPointer<GlobalConfig>::Share(ModuleState().globalConfig.Get()))
{
    if (m_config)
        m_config->Lock();
}

VGlobalConfigLock::~VGlobalConfigLock()
{
    if (m_config)
        m_config->Unlock();
}

} // namespace ostrand
