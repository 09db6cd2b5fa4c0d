#include "config/session/module_failure.h"

#include "core/messages.h"
#include "core/native_path.h"
#include "core/product.h"
#include "core/prompts.h"
#include "platform/error_codes.h"
#include "platform/platform.h"

namespace ostrand {

VUnicodeString FormatContractId(const VContractId& id)
{
    // Numbers of 4, 2 and 2 bytes, little-endian, then bytes.
    static constexpr int kOrder[] = {3, 2, 1, 0, -1, 5, 4, -1, 7, 6, -1, 8, 9, -1, 10, 11, 12, 13, 14, 15};
    VUnicodeString text;
    for (const int place : kOrder)
        text += place < 0 ? VUnicodeString(u"-") : Format(u"%1!02x!", id[static_cast<size_t>(place)]);
    return text;
}

void HandleModuleFailure(VReportMessageParams& report, const VModuleFailure& failure, bool& exit, bool& integration)
{
    if (report.GetCode() == kModuleFailed)
        Prompts().Show(report.GetText(), VPromptIcon::Warning);
    if (report.GetCode() == kModuleFailed || report.GetCode() == kErrorSuccess)
        return;

    std::string modulePath;
    VFileInfo module;
    VFileInfo program;
    IFiles& files = *Platform().files;
    if (!ToNativePath(failure.modulePath, modulePath) || files.GetInfo(modulePath, module) != kErrorSuccess ||
        files.GetInfo(Platform().processes->ExecutablePath(), program) != kErrorSuccess)
        return;

    const VUnicodeString product = GetProductName(failure.productId);
    const bool isModuleNewer = module.changed > program.changed;
    VDownloadOffer offer;
    offer.title = failure.application;
    offer.integratedProduct = product;
    offer.productToUpgrade = isModuleNewer ? failure.application : product;
    offer.kind = failure.productId == kProductOrvane ? u"file transfer" : u"terminal emulation";
    offer.identifier = FormatContractId(isModuleNewer ? failure.moduleContract : failure.applicationContract);
    if (Prompts().OfferDownload(offer) == VDownloadAnswer::Continue)
        integration = false;
    else
        exit = true;
}

} // namespace ostrand
