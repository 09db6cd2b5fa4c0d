#include "config/session/module_loader.h"

#include "config/session/module_guard.h"
#include "config/session/protocol_list.h"
#include "core/fold.h"
#include "core/messages.h"
#include "core/native_path.h"
#include "core/paths/folders.h"
#include "core/paths/path_text.h"
#include "core/prompts.h"
#include "platform/platform.h"

#include <algorithm>
#include <vector>

namespace ostrand {

namespace {

struct LinkedModule {
    VUnicodeString file; // its name on this platform
    VModuleExports exports;
};

std::vector<LinkedModule>& LinkedModules()
{
    static auto& modules = *new std::vector<LinkedModule>;
    return modules;
}

const LinkedModule* FindLinkedModule(std::u16string_view path)
{
    VUnicodeString file;
    SplitPath(path, file);
    for (const LinkedModule& module : LinkedModules())
        if (EqualNoCase(module.file, file))
            return &module;
    return nullptr;
}

bool LoadFile(ConnectProtocolTableElement& row, VReportMessageParams& report)
{
    if (row.moduleHandle)
        return true;
    std::string path;
    if (row.modulePath.IsEmpty() || !ToNativePath(row.modulePath, path) || !IsFile(row.modulePath))
        return Fail(report, kModuleMissing);
    const VWaitCursor wait;
    std::string reason;
    row.moduleHandle = Platform().modules->Load(path, reason);
    VUnicodeString text;
    FromUtf8(reason, text);
    return row.moduleHandle || Fail(report, kModuleNotLoaded, row.modulePath, text);
}

template <class Function>
Function Export(const ConnectProtocolTableElement& row, const char* name)
{
    return reinterpret_cast<Function>(Platform().modules->Find(row.moduleHandle, name));
}

bool FindExports(ConnectProtocolTableElement& row, VReportMessageParams& report, VModuleExports& exports)
{
    if (const LinkedModule* const linked = FindLinkedModule(row.modulePath)) {
        exports = linked->exports;
        return true;
    }
    if (!LoadFile(row, report))
        return false;
    exports = {Export<VGetProtocolGuid>(row, "GetProtocolGuid"), Export<VLoadProtocol>(row, "LoadProtocol"),
               Export<VUnloadProtocol>(row, "UnloadProtocol")};
    return true;
}

template <class Call>
bool GuardLoading(const ConnectProtocolTableElement& row, const char16_t* operation, VReportMessageParams& report,
                  Call call)
{
    return CatchAll(call, [&](const char* what) {
        Fail(report, kModuleThrew, row.name, row.modulePath, operation);
        report.AddArgumentA(what);
    });
}

bool HasContract(const ConnectProtocolTableElement& row, VGetProtocolGuid getIdentifier, VReportMessageParams& report,
                 VContractId& identifier)
{
    const uint8_t* bytes = nullptr;
    if (!GuardLoading(row, u"GetProtocolGuid", report, [&] { bytes = getIdentifier(); }))
        return false;
    if (bytes)
        std::copy_n(bytes, identifier.size(), identifier.begin());
    return (bytes && identifier == kProtocolContract) || Fail(report, kModuleContractDiffers, row.modulePath);
}

bool FillRow(ConnectProtocolTableElement& row, VAppFnTable& table, VReportMessageParams& report)
{
    // The module fills the functions; what the row is was decided here.
    const ConnectProtocolTableElement identity = row;
    bool isFilled = false;
    const bool hasReturned =
        GuardLoading(row, u"LoadProtocol", report, [&] { isFilled = identity.loadProtocol(&table, &row, &report); });
    row.name = identity.name;
    row.productId = identity.productId;
    row.modulePath = identity.modulePath;
    row.moduleHandle = identity.moduleHandle;
    row.loadProtocol = identity.loadProtocol;
    row.unloadProtocol = identity.unloadProtocol;
    row.FillGaps();
    return hasReturned && isFilled;
}

} // namespace

void RegisterLinkedModule(std::u16string_view moduleFile, const VModuleExports& exports)
{
    std::vector<LinkedModule>& modules = LinkedModules();
    const VUnicodeString file = ModuleFileName(moduleFile);
    std::erase_if(modules, [&file](const LinkedModule& module) { return module.file == file; });
    if (exports.getProtocolGuid)
        modules.push_back({file, exports});
}

bool LoadModule(ConnectProtocolTableElement& row, VAppFnTable& table, VReportMessageParams& report,
                VContractId& identifier)
{
    VModuleExports exports;
    if (!FindExports(row, report, exports))
        return false;
    if (!exports.getProtocolGuid)
        return Fail(report, kModuleNotLoaded, row.modulePath, u"GetProtocolGuid");
    if (!HasContract(row, exports.getProtocolGuid, report, identifier))
        return false;
    row.loadProtocol = exports.loadProtocol;
    row.unloadProtocol = exports.unloadProtocol;
    if (!row.loadProtocol)
        return Fail(report, kModuleNotLoaded, row.modulePath, u"LoadProtocol");
    return FillRow(row, table, report);
}

void UnloadModule(ConnectProtocolTableElement& row)
{
    row.loadProtocol = nullptr;
    row.unloadProtocol = nullptr;
    if (void* const module = std::exchange(row.moduleHandle, nullptr)) {
        const VWaitCursor wait;
        Platform().modules->Unload(module);
    }
}

} // namespace ostrand
