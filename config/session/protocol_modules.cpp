#include "config/session/protocol_modules.h"

#include "config/session/module_failure.h"
#include "config/session/module_guard.h"
#include "config/session/module_loader.h"
#include "config/session/none_config.h"
#include "config/session/protocol_list.h"
#include "core/fold.h"
#include "core/messages.h"
#include "core/paths/folders.h"
#include "core/paths/path_text.h"
#include "core/product.h"
#include "platform/error_codes.h"
#include "platform/platform.h"
#include "profile/policy.h"

#include <algorithm>
#include <array>
#include <optional>

namespace ostrand {

namespace {

struct State {
    std::vector<VProtocolRecord> records;
    ConnectProtocolTableElement::AddGlobalPages globalPages = nullptr;
    VContractId lastContract{}; // of the module that was tried last
};

State& TheState()
{
    static auto& state = *new State;
    return state;
}

constexpr std::u16string_view kNeedsMarker = u"SSH1";
constexpr std::u16string_view kMarkerFile = u"SSH1.enable";
/// Their cryptography isn't approved.
constexpr std::array<std::u16string_view, 4> kRefusedByPolicy = {kNeedsMarker, u"Telnet/SSL", u"FTP/SSL (implicit)",
                                                                 u"FTP/SSL (explicit)"};

bool IsEnabled(const char16_t* policy)
{
    unsigned value = 0;
    return ReadPolicyDword(policy, &value) && value != 0;
}

/// Why the protocol isn't even tried.
std::optional<VProtocolState> Refusal(std::u16string_view name, const char16_t* directory)
{
    if (std::ranges::count(kRefusedByPolicy, name) != 0 && IsEnabled(u"Enable FIPS Mode"))
        return VProtocolState::RefusedByPolicy;
    if (name == kNeedsMarker && !IsFile(JoinPath(directory, kMarkerFile)))
        return VProtocolState::NotEnabled;
    return std::nullopt;
}

void Note(const ConnectProtocolTableElement& row, VProtocolState state, VUnicodeString reason = {})
{
    TheState().records.push_back({row.name, row.productId, row.modulePath, state, std::move(reason)});
}

void NoteFailure(const ConnectProtocolTableElement& row, VReportMessageParams& local)
{
    switch (local.GetCode()) {
    case kModuleMissing:
        return Note(row, VProtocolState::FileMissing);
    case kModuleNotLoaded:
        return Note(row, VProtocolState::NotLoadable, local.GetArgumentCount() > 1 ? local.GetArguments()[1] : u"");
    case kModuleContractDiffers:
        return Note(row, VProtocolState::OtherContract);
    default:
        return Note(row, VProtocolState::Failed, local.GetTextOneLine());
    }
}

bool Append(ConnectProtocolTableElement row, int& index)
{
    Note(row, VProtocolState::Loaded);
    ConnectProtocolTable& table = GetConnectProtocolTable();
    index = static_cast<int>(table.GetCount());
    table.Append(std::move(row));
    return true;
}

VUnicodeString ApplicationName(const VAppFnTable& table)
{
    return table.getProductName ? VUnicodeString(table.getProductName()) : VGetAppName();
}

/// The report for the caller, from the local one.
void TellFailure(const ConnectProtocolTableElement& row, const VAppFnTable& table, VReportMessageParams& local,
                 VReportMessageParams& report)
{
    if (local.GetCode() == kModuleMissing)
        return;
    const VUnicodeString product = GetProductName(row.productId);
    if (local.GetCode() == kModuleContractDiffers && ApplicationName(table) == product)
        report = local;
    else
        Fail(report, kModuleFailed, row.modulePath, product, row.name, local.GetText());
}

/// The arguments that all protocols of one load share.
struct Load {
    VAppFnTable& table;
    const char16_t* directory;
    VModuleProgress progress;
    bool& offerDownload;
    VReportMessageParams& report;
};

bool IsStopped(const Load& load, int productId, const VUnicodeString& path)
{
    bool exit = false;
    HandleModuleFailure(load.report, {productId, path, TheState().lastContract, ApplicationName(load.table)}, exit,
                        load.offerDownload);
    return exit;
}

bool LoadProductProtocols(int productId, const Load& load)
{
    int count = 0;
    for (const VProtocolListRow& row : GetProtocolList()) {
        if (row.productId != productId)
            continue;
        const VUnicodeString path = JoinPath(load.directory, ModuleFileName(row.moduleFile));
        const uint64_t begun = Platform().clock->FileTime();
        int index = -1;
        if (LoadOneProtocol(load.directory, path, row.name, productId, load.table, load.report, index))
            ++count;
        else if (load.offerDownload && IsStopped(load, productId, path))
            return Fail(load.report, kModuleLoadingStopped);
        if (load.progress)
            load.progress(begun, row.name);
    }
    return count > 0 || Fail(load.report, kNoModuleLoaded, load.directory, ApplicationName(load.table));
}

void AppendNone(int productId, const Load& load)
{
    int index = -1;
    LoadOneProtocol(nullptr, VUnicodeString(), kNoProtocol, productId, load.table, load.report, index);
}

/// An absent directory finds nothing, as an empty one does.
const char16_t* OrEmpty(const char16_t* directory) { return directory ? directory : u""; }

} // namespace

bool LoadOneProtocol(const char16_t* directory, const VUnicodeString& path, const char16_t* name, int productId,
                     VAppFnTable& table, VReportMessageParams& report, int& index)
{
    report.SetMessage(kErrorSuccess);
    index = -1;
    TheState().lastContract = {};
    ConnectProtocolTableElement row;
    row.productId = productId;
    if (!directory) {
        row.name = kNoProtocol;
        row.createConfig = [](const VProfileKey*, ICommonConfig*, ConnectProtocolTableElement*) -> ConnectConfig* {
            return new NoneConfig;
        };
        return Append(std::move(row), index);
    }

    row.name = name;
    row.modulePath = path;
    if (const std::optional<VProtocolState> refusal = Refusal(row.name, directory)) {
        Note(row, *refusal);
        return false;
    }
    VReportMessageParams local;
    if (!LoadModule(row, table, local, TheState().lastContract)) {
        TellFailure(row, table, local, report);
        NoteFailure(row, local);
        UnloadModule(row);
        return false;
    }
    if (EqualNoCase(row.name, u"SSH2") || EqualNoCase(row.name, u"SFTP"))
        TheState().globalPages = row.addGlobalPages;
    return Append(std::move(row), index);
}

bool LoadConnectionProtocolDlls(VAppFnTable& table, int productId, const char16_t* directory, VModuleProgress progress,
                                bool& offerDownload, VReportMessageParams& report)
{
    OstrandUiInitClientApplications(directory);
    const Load load{table, OrEmpty(directory), progress, offerDownload, report};
    if (!LoadProductProtocols(productId, load))
        return false;
    if (productId != kProductTessaly && productId != kProductOrvane)
        return true;
    const bool isTessaly = productId == kProductTessaly;
    if (isTessaly ? !IsOrvaneInstalled() : !IsTessalyInstalled())
        return true;
    const int sibling = isTessaly ? kProductOrvane : kProductTessaly;
    if (!LoadProductProtocols(sibling, load)) {
        if (report.GetCode() == kModuleLoadingStopped)
            return false;
        (isTessaly ? SetOrvaneInstalled : SetTessalyInstalled)(false);
        return true;
    }
    AppendNone(productId, load);
    AppendNone(sibling, load);
    return true;
}

bool LoadSingleProductConnectionProtocolDlls(VAppFnTable& table, int productId, const char16_t* directory,
                                             VModuleProgress, bool& offerDownload, VReportMessageParams& report)
{
    return LoadProductProtocols(productId, {table, OrEmpty(directory), nullptr, offerDownload, report});
}

void UnloadConnectionProtocolDlls()
{
    ConnectProtocolTable& table = GetConnectProtocolTable();
    for (size_t i = table.GetCount(); i-- > 0;) {
        ConnectProtocolTableElement& row = table[i];
        if (row.unloadProtocol)
            GuardModule(row, u"UnloadProtocol", [&row] { row.unloadProtocol(&row); });
        UnloadModule(row);
    }
    table.RemoveAll();
    TheState() = {};
}

ConnectProtocolTableElement::AddGlobalPages GetGlobalPagesHook() { return TheState().globalPages; }

const std::vector<VProtocolRecord>& GetProtocolRecords() { return TheState().records; }

} // namespace ostrand
