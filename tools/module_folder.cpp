#include "tools/module_folder.h"

#include "config/session/protocol_list.h"
#include "config/session/protocol_modules.h"
#include "core/fold.h"
#include "core/product.h"
#include "platform/error_codes.h"
#include "platform/platform.h"
#include "tools/output.h"

#include <algorithm>

namespace ostrand::tool {

namespace {

constexpr const char* kVariable = "OSTRAND_MODULES";
constexpr const char* kFolderBesideTool = "/protocols";

std::string UsualFolder()
{
    std::string folder;
    if (Platform().environment->Get(kVariable, folder) && !folder.empty())
        return folder;
    const std::string tool = Platform().processes->ExecutablePath();
    return tool.substr(0, tool.rfind('/')) + kFolderBesideTool;
}

bool IsFolder(const std::string& path)
{
    VFileInfo info;
    return Platform().files->GetInfo(path, info) == kErrorSuccess && info.isFolder;
}

const char16_t* ApplicationName()
{
    static const auto& name = *new VUnicodeString(VGetAppName());
    return name.c_str();
}

bool LoadProduct(VAppFnTable& table, int product, const VUnicodeString& folder)
{
    VReportMessageParams report;
    bool offersDownload = false;
    return LoadSingleProductConnectionProtocolDlls(table, product, folder.c_str(), nullptr, offersDownload, report);
}

void AddNone(VAppFnTable& table, int product)
{
    VReportMessageParams report;
    int index = 0;
    LoadOneProtocol(nullptr, {}, kNoProtocol, product, table, report, index);
}

bool IsOnSide(int product, Side side)
{
    return side == Side::Transfer ? product == kProductOrvane : product == kProductTessaly || product == kProductQuillo;
}

} // namespace

ModuleFolder::~ModuleFolder() { UnloadConnectionProtocolDlls(); }

Exit ModuleFolder::Load(const Request& request)
{
    m_path = request.modules.empty() ? UsualFolder() : request.modules;
    if (!request.modules.empty() && !IsFolder(m_path))
        return Fail(Exit::Failed, m_path + ": there is no such folder");
    VUnicodeString folder;
    if (!FromUtf8(m_path, folder))
        return Fail(Exit::Failed, Cited(m_path));
    static VAppFnTable table;
    table.getProductName = ApplicationName;
    const int product = GetProductFromAppName();
    const bool isLoaded = LoadProduct(table, product, folder);
    if (product == kProductQuillo)
        return Exit::Done;
    const int sibling = product == kProductTessaly ? kProductOrvane : kProductTessaly;
    if (LoadProduct(table, sibling, folder) && isLoaded) {
        AddNone(table, product);
        AddNone(table, sibling);
    }
    return Exit::Done;
}

std::vector<std::string> ProtocolNames(Side side)
{
    std::vector<std::string> names;
    const auto add = [&names](std::u16string_view name) {
        if (std::ranges::count(names, Lossless(name)) == 0)
            names.push_back(Lossless(name));
    };
    for (const VProtocolListRow& row : GetProtocolList())
        if (IsOnSide(row.productId, side))
            add(row.name);
    add(kNoProtocol);
    return names;
}

bool IsProtocolLoaded(Side side, std::u16string_view name)
{
    return std::ranges::any_of(GetConnectProtocolTable(), [&](const ConnectProtocolTableElement& row) {
        return IsOnSide(row.productId, side) && EqualNoCase(row.name, name);
    });
}

std::string WhyProtocolIsMissing(Side side, std::u16string_view name)
{
    if (name.empty() || EqualNoCase(name, kNoProtocol) || IsProtocolLoaded(side, name))
        return {};
    for (const VProtocolRecord& record : GetProtocolRecords())
        if (IsOnSide(record.productId, side) && EqualNoCase(record.name, name) && !record.reason.IsEmpty() &&
            record.state == VProtocolState::Failed)
            return Lossless(record.reason);
    return "the module of " + Cited(Lossless(name)) + " isn't loaded; see --modules and protocol list";
}

} // namespace ostrand::tool
