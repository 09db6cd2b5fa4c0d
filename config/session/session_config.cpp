#include "config/session/session_config.h"

#include "config/global/firewall_list.h"
#include "config/global/global_config.h"
#include "config/session/module_guard.h"
#include "config/session/session_paths.h"
#include "core/entry.h"
#include "core/fold.h"
#include "core/paths/path_tokens.h"
#include "core/product.h"

namespace ostrand {

namespace {

VUnknownPointer<GlobalConfig> TheGlobalConfig()
{
    GlobalConfig* config = nullptr;
    GetGlobalConfig(config, -1);
    return VUnknownPointer<GlobalConfig>::Share(config);
}

/// A text that the side's active settings give; empty without them.
VUnicodeString Ask(const ConnectConfigPtr& side, void (ConnectConfig::*question)(IString*) const,
                   const char16_t* operation)
{
    VUnicodeStringI text;
    if (const ConnectConfig* const active = side.GetActive())
        GuardModule(*side.GetActiveRow(), operation, [&] { (active->*question)(&text); });
    return text;
}

VUnicodeString HostOf(const ConnectConfigPtr& side) { return Ask(side, &ConnectConfig::GetHostName, u"GetHostName"); }

bool IsConnectable(const ConnectConfigPtr& side, IReportMessageParams* report)
{
    int answer = 0;
    if (side.HasProtocol())
        GuardModule(*side.GetActiveRow(), u"IsConnectable", [&] { answer = side.GetActive()->IsConnectable(report); });
    return answer != 0;
}

bool WorksOnTransfers() { return GetProductFromAppName() == kProductOrvane; }

/// What the first line of a summary calls the host of a protocol.
const char16_t* HostLabel(const VUnicodeString& protocol)
{
    return protocol == u"TAPI" ? u"Phone number:" : protocol == u"Serial" ? u"Port:" : u"Hostname:";
}

} // namespace

SessionConfig::SessionConfig(std::u16string_view sessionName, const VProfileKey* key)
    : SessionConfig(sessionName, key, *TheGlobalConfig())
{
    if (key || m_sessionName != kDefaultSession || SessionExists(kDefaultSession))
        return;
    VProfileStore store;
    VProfileKey own(store.GetRootKey(), BuildSessionKeyPath(kDefaultSession).c_str());
    Save(&own, true);
}

SessionConfig::SessionConfig(std::u16string_view sessionName, const VProfileKey* key, const GlobalConfig& global)
    : SessionValues(key, global, !key || sessionName == kDefaultSession),
      terminalProtocol(key, ConnectConfigPtr::kTerminal, &commonConfig),
      transferProtocol(key, ConnectConfigPtr::kTransfer, &commonConfig),
      m_pathName(sessionName),
      m_sessionName(sessionName)
{
    if (m_sessionName == kDefaultSession)
        BeTheDefault();
}

SessionConfig::SessionConfig(const SessionConfig& other)
    : VUnknown<ISessionConfig>(other),
      VProfileRecord(other),
      SessionValues(other),
      defaultMarker(other.defaultMarker),
      secondMarker(other.secondMarker),
      commonConfig(other.commonConfig),
      terminalProtocol(other.terminalProtocol, &commonConfig),
      transferProtocol(other.transferProtocol, &commonConfig),
      m_pathName(other.m_pathName),
      m_sessionName(other.m_sessionName)
{
}

void SessionConfig::BeTheDefault()
{
    for (ConnectConfigPtr* const side : {&terminalProtocol, &transferProtocol})
        side->MarkAsDefault();
    if (terminalProtocol.IsStoredEmpty())
        SetTerminalProtocol(kNoProtocol);
    if (transferProtocol.IsStoredEmpty())
        SetTransferProtocol(kNoProtocol);
}

VProfileData* SessionConfig::GetMember(int index)
{
    const auto& schema = SessionValues::Schema();
    switch (index) {
    case 0:
        return schema.GetMember(*this, 0);
    case 1:
        return &terminalProtocol;
    case 2:
        return &transferProtocol;
    case 3:
        return &terminal;
    default:
        return schema.GetMember(*this, index - 3);
    }
}

VProfileData* SessionConfig::FindValue(const VUnicodeString& valueName)
{
    for (ConnectConfigPtr* const side : {&terminalProtocol, &transferProtocol})
        if (EqualNoCase(side->protocolName.name, valueName))
            return side;
    const auto& schema = SessionValues::Schema();
    return schema.GetMember(*this, schema.FindMember(valueName, false));
}

void SessionConfig::CopyFrom(const ISessionConfig* other)
{
    if (const auto* const session = dynamic_cast<const SessionConfig*>(other))
        CopyValue(*session);
}

void SessionConfig::SetPathName(const VUnicodeString& path)
{
    m_pathName = path;
    if (!IsDefaultSession())
        defaultMarker = false;
}

bool SessionConfig::IsDefaultSession() const
{
    return m_pathName == kDefaultSession && m_sessionName == kDefaultSession;
}

void SessionConfig::GetConnectionSummary(VUnicodeString& out) const
{
    if (!terminalProtocol.GetActive() && !transferProtocol.GetActive()) {
        out = m_sessionName;
        return;
    }
    VUnicodeString host = HostOf(terminalProtocol);
    if (host.IsEmpty())
        host = HostOf(transferProtocol);
    out = HostLabel(terminalProtocol.GetProtocolName());
    out += u" ";
    out += host;
    if (const VUnicodeString notes = description.GetText(); !notes.IsEmpty()) {
        out += u"\n";
        out += notes;
    }
}

bool SessionConfig::IsTerminalConnectable(IReportMessageParams* report) const
{
    return IsConnectable(terminalProtocol, report);
}

bool SessionConfig::IsTransferConnectable(IReportMessageParams* report) const
{
    return IsConnectable(transferProtocol, report);
}

void SessionConfig::SetTerminalProtocol(const VUnicodeString& protocol)
{
    protocolNote = u"";
    terminalProtocol.SetProtocol(protocol);
}

void SessionConfig::SetTransferProtocol(const VUnicodeString& protocol)
{
    protocolNote = u"";
    transferProtocol.SetProtocol(protocol);
}

void SessionConfig::SetActiveProtocol(const VUnicodeString& protocol)
{
    WorksOnTransfers() ? SetTransferProtocol(protocol) : SetTerminalProtocol(protocol);
}

void SessionConfig::GetActiveProtocolName(VUnicodeString& out) const
{
    WorksOnTransfers() ? GetTransferProtocolName(out) : GetTerminalProtocolName(out);
}

void SessionConfig::GetTransferFirewallName(IString* out) const
{
    if (transferProtocol.GetActive())
        out->Set(Ask(transferProtocol, &ConnectConfig::GetFirewallName, u"GetFirewallName").c_str(), false);
}

void SessionConfig::GetTransferStatusText(VUnicodeString& out) const
{
    out.Clear();
    if (HasTransferProtocol())
        out = Ask(transferProtocol, &ConnectConfig::GetTransferStatusText, u"GetTransferStatusText");
}

void SessionConfig::EnumerateFirewalls(VStringArray& out) const { ListFirewalls(out); }

VUnicodeString SessionConfig::ActiveHost() const
{
    return HostOf(WorksOnTransfers() ? transferProtocol : terminalProtocol);
}

bool SessionConfig::ExpandLogFileName(VUnicodeString& out, std::u16string_view text, IReportMessageParams& report) const
{
    out = ExpandPathTokens(text, report, ActiveHost().c_str(), m_sessionName.c_str());
    return report.GetCode() == 0;
}

bool SessionConfig::IsLogFileName(std::u16string_view text, std::u16string_view file) const
{
    return PathsEqual(text, file, ActiveHost().c_str(), m_sessionName.c_str());
}

void SessionConfig::ReadLogonActions(LogonActionList& list) const
{
    list.RemoveAll();
    ostrand::ReadLogonActions(loginScript, list);
}

void SessionConfig::WriteLogonActions(const LogonActionList& list) { loginScript = ostrand::WriteLogonActions(list); }

void SetConnectConfigParentWindow(SessionConfig& session, void* window)
{
    SetConnectConfigParentWindow(session.terminalProtocol, session.transferProtocol, window);
}

} // namespace ostrand
