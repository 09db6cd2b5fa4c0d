#include "config/session/connect_config_ptr.h"

#include "config/session/module_guard.h"
#include "core/fold.h"
#include "core/product.h"
#include "core/trace.h"

#include <algorithm>
#include <array>
#include <span>

namespace ostrand {

namespace {

constexpr std::array<std::u16string_view, 8> kTerminalProtocols = {u"SSH2",   u"SSH1",   u"Telnet", u"Telnet/SSL",
                                                                   u"RLogin", u"Serial", u"TAPI",   kNoProtocol};
constexpr std::array<std::u16string_view, 5> kTransferProtocols = {u"SFTP", u"FTP", u"FTP/SSL (implicit)",
                                                                   u"FTP/SSL (explicit)", kNoProtocol};
/// Looks for a modem when it is made, so it is only made where it is selected.
constexpr std::u16string_view kMadeWhenSelected = u"TAPI";

bool IsKnown(std::u16string_view name, int kind)
{
    const auto isName = [name](std::u16string_view known) { return EqualNoCase(name, known); };
    return kind == ConnectConfigPtr::kTerminal ? std::ranges::any_of(kTerminalProtocols, isName)
                                               : std::ranges::any_of(kTransferProtocols, isName);
}

bool IsOfKind(const ConnectProtocolTableElement& row, int kind)
{
    return kind == ConnectConfigPtr::kTerminal ? row.productId == kProductTessaly || row.productId == kProductQuillo
                                               : row.productId == kProductOrvane;
}

/// Of the first row that fits; the table's count without one.
template <class Fits>
size_t FindRow(Fits fits)
{
    const ConnectProtocolTable& table = GetConnectProtocolTable();
    return static_cast<size_t>(std::find_if(table.begin(), table.end(), fits) - table.begin());
}

ConnectProtocolTableElement& RowAt(size_t index) { return GetConnectProtocolTable()[index]; }

const VUnicodeString& NameOfName(int kind)
{
    static const auto& terminal = *new VUnicodeString(VUnicodeString::Immortal(u"Protocol Name"));
    static const auto& transfer = *new VUnicodeString(VUnicodeString::Immortal(u"Transfer Protocol Name"));
    return kind == ConnectConfigPtr::kTerminal ? terminal : transfer;
}

void GiveWindow(const ConnectConfigPtr& side, void* window)
{
    IParentWindow* const parent = side.HasProtocol() ? side.GetActive()->GetParentWindow() : nullptr;
    if (!parent)
        return;
    parent->SetParentWindow(window);
    if (const auto firewall = VUnknownPointer<FirewallConfig>::Adopt(side.GetActive()->GetFirewall()))
        firewall->SetParent(parent);
}

} // namespace

ConnectConfigPtr::ConnectConfigPtr(const VProfileKey* key, int kind, CommonConfig* common)
    : m_kind(kind),
      m_common(common)
{
    ReadName(key);
    m_configs.SetSize(GetConnectProtocolTable().GetCount());
    const size_t first = FindRow([kind](const auto& row) { return IsOfKind(row, kind); });
    if (first == m_configs.GetCount())
        return;
    if (protocolName.IsEmpty())
        protocolName = RowAt(first).name;
    CreateConfigs(key);
}

ConnectConfigPtr::ConnectConfigPtr(const ConnectConfigPtr& other, CommonConfig* common)
    : VProfileData(other),
      protocolName(other.protocolName),
      m_activeIndex(other.m_activeIndex),
      m_savedIndex(other.m_savedIndex),
      m_kind(other.m_kind),
      m_storedEmpty(other.m_storedEmpty),
      m_common(common)
{
    m_configs.SetSize(other.m_configs.GetCount());
    for (size_t i = 0; i < m_configs.GetCount(); ++i)
        if (const Config& original = other.m_configs[i])
            GuardModule(RowAt(i), u"Clone", [&] { m_configs[i] = Config::Adopt(original->Clone(common)); });
}

void ConnectConfigPtr::ReadName(const VProfileKey* key)
{
    SetName(NameOfName(m_kind));
    protocolName.SetName(name);
    protocolName.Load(key, VUnicodeString());
    m_storedEmpty = !protocolName.dirty && protocolName.IsEmpty();
    if (protocolName.IsEmpty() || IsKnown(protocolName, m_kind))
        return;
    VTrace(u"Unknown protocol \"%1!hs!\" using default protocol.\n", protocolName.Value());
    protocolName = VUnicodeString();
}

void ConnectConfigPtr::CreateConfigs(const VProfileKey* key)
{
    const auto isSelected = [this](const auto& row) {
        return IsOfKind(row, m_kind) && EqualNoCase(row.name, protocolName);
    };
    // The selected one first, so that it is the one to make what all protocols share.
    if (const size_t selected = FindRow(isSelected); selected < m_configs.GetCount()) {
        m_activeIndex = static_cast<int>(selected);
        Create(selected, key);
    }
    for (size_t i = 0; i < m_configs.GetCount(); ++i)
        if (!m_configs[i] && IsOfKind(RowAt(i), m_kind) && RowAt(i).name != kMadeWhenSelected &&
            static_cast<int>(i) != m_activeIndex)
            Create(i, key);
}

void ConnectConfigPtr::Create(size_t row, const VProfileKey* key)
{
    ConnectProtocolTableElement& element = RowAt(row);
    if (!element.createConfig)
        return;
    Config& config = m_configs[row];
    GuardModule(element, u"createConfig",
                [&] { config = Config::Adopt(element.createConfig(key, m_common, &element)); });
    if (config)
        GuardModule(element, u"AcceptChanges", [&] { config->AcceptChanges(); });
}

ConnectConfig* ConnectConfigPtr::GetActive() const
{
    return m_activeIndex < 0 ? nullptr : m_configs[static_cast<size_t>(m_activeIndex)].Get();
}

const ConnectProtocolTableElement* ConnectConfigPtr::GetActiveRow() const
{
    return m_activeIndex < 0 ? nullptr : &RowAt(static_cast<size_t>(m_activeIndex));
}

void ConnectConfigPtr::SetProtocol(const VUnicodeString& protocol)
{
    if (protocolName.Value() == protocol)
        return;
    protocolName = protocol;
    if (ConnectConfig* const left = GetActive())
        GuardModule(RowAt(static_cast<size_t>(m_activeIndex)), u"LeaveProtocol",
                    [&] { left->LeaveProtocol(m_sharedState); });
    m_activeIndex = -1;
    const size_t row = FindRow([&](const auto& r) { return r.name == protocol; });
    if (row >= m_configs.GetCount())
        return;
    m_activeIndex = static_cast<int>(row);
    if (!m_configs[row])
        Create(row, nullptr);
    if (ConnectConfig* const entered = GetActive())
        GuardModule(RowAt(row), u"EnterProtocol", [&] { entered->EnterProtocol(m_sharedState); });
}

void ConnectConfigPtr::MarkAsDefault()
{
    if (ConnectConfig* const active = GetActive())
        active->defaultMark = 1;
}

template <class Set>
bool ConnectConfigPtr::SelectBy(Set set)
{
    const VUnicodeString before = protocolName.Value();
    if (!set())
        return false;
    const VUnicodeString chosen = protocolName.Value();
    protocolName = before;
    SetProtocol(chosen);
    return true;
}

bool ConnectConfigPtr::Parse(const VUnicodeString& text, IProfileValueParser* parser, IReportMessageParams& report)
{
    if (!SelectBy([&] { return protocolName.Parse(text, parser, report); }))
        return false;
    m_savedIndex = m_activeIndex;
    return true;
}

bool ConnectConfigPtr::GetVariant(VVariant* out, IReportMessageParams& report)
{
    return protocolName.GetVariant(out, report);
}

bool ConnectConfigPtr::SetVariant(const VVariant* in, IReportMessageParams& report)
{
    return SelectBy([&] { return protocolName.SetVariant(in, report); });
}

void ConnectConfigPtr::Save(VProfileKey* key, bool force)
{
    if (!key)
        return;
    protocolName.Save(key, force);
    if (m_activeIndex < 0 || protocolName.Value() == kNoProtocol)
        return;
    ConnectConfig* const active = GetActive();
    if (!active || GuardModule(RowAt(static_cast<size_t>(m_activeIndex)), u"Save", [&] { active->Save(key, force); }))
        dirty = false;
}

bool ConnectConfigPtr::IsModified() const
{
    if (m_activeIndex < 0 || protocolName.Value() == kNoProtocol)
        return false;
    if (protocolName.IsModified())
        return true;
    const ConnectConfig* const active = GetActive();
    bool isModified = true; // where the settings can't tell: a needless save loses nothing
    return active && (!GuardModule(RowAt(static_cast<size_t>(m_activeIndex)), u"IsModified", [&] {
               isModified = active->IsModified();
           }) || isModified);
}

void ConnectConfigPtr::AcceptChanges()
{
    protocolName.AcceptChanges();
    m_savedIndex = m_activeIndex;
    dirty = dirty || protocolName.IsDirty();
    for (size_t i = 0; i < m_configs.GetCount(); ++i)
        if (const Config& config = m_configs[i])
            GuardModule(RowAt(i), u"AcceptChanges", [&] {
                config->AcceptChanges();
                dirty = dirty || config->IsDirty();
            });
}

void ConnectConfigPtr::RevertChanges()
{
    protocolName.RevertChanges();
    m_activeIndex = m_savedIndex;
    for (size_t i = 0; i < m_configs.GetCount(); ++i)
        if (const Config& config = m_configs[i])
            GuardModule(RowAt(i), u"RevertChanges", [&] { config->RevertChanges(); });
}

void ConnectConfigPtr::CopyConfig(size_t row, const ConnectConfigPtr& other)
{
    if (row < m_configs.GetCount() && row < other.m_configs.GetCount() && m_configs[row] && other.m_configs[row])
        GuardModule(RowAt(row), u"CopyValue", [&] { m_configs[row]->CopyValue(*other.m_configs[row]); });
}

void ConnectConfigPtr::CopyValue(const VProfileData& data)
{
    const auto& other = dynamic_cast<const ConnectConfigPtr&>(data);
    for (size_t i = 0; i < m_configs.GetCount(); ++i)
        CopyConfig(i, other);
    if (other.m_activeIndex == other.m_savedIndex)
        return;
    SetProtocol(other.protocolName);
    // Once more: the selected one may be new here, or may just have taken over what the other's user has changed since.
    if (m_activeIndex >= 0)
        CopyConfig(static_cast<size_t>(m_activeIndex), other);
}

VProfileData* ConnectConfigPtr::GetMember(int index)
{
    if (index == 0)
        return &protocolName;
    return index == 1 ? GetActive() : nullptr;
}

void SetConnectConfigParentWindow(ConnectConfigPtr& terminal, ConnectConfigPtr& transfer, void* window)
{
    for (const ConnectConfigPtr* const side : {&terminal, &transfer})
        GiveWindow(*side, window);
}

} // namespace ostrand
