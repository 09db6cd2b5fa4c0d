// A module that counts its calls and fails where the test's script says so. Its settings are one text, "SSH2 Text".
#include "probe.h"

#include "config/session/plain_connect_config.h"
#include "profile/schema.h"

#include <stdexcept>

namespace ostrand::test {

namespace {

ProbeScript* g_script = nullptr;

/// Of no class that a program outside knows.
struct ForeignFault {};

void Step(const VUnicodeString& protocol, const std::string& operation)
{
    const std::string step = ToUtf8(protocol) + "." + operation;
    ++g_script->calls[step];
    if (operation == "LeaveProtocol" || operation == "EnterProtocol")
        g_script->order.push_back(step);
    if (!g_script->throwing.contains(step))
        return;
    if (operation == "LoadProtocol")
        throw ForeignFault();
    throw std::runtime_error("the probe's " + step);
}

bool Refuses(const VUnicodeString& protocol, const char* operation)
{
    return g_script->refusing.contains(ToUtf8(protocol) + "." + operation);
}

class ProbeConfig final : public PlainConnectConfig {
public:
    ProbeConfig(const VProfileKey* key, const VUnicodeString& protocol) : m_protocol(protocol)
    {
        m_text.SetName(protocol + u" Text");
        m_text.Load(key, VUnicodeString(u"default"));
    }
    ProbeConfig(const ProbeConfig&) = default;
    ~ProbeConfig() override { ++g_script->calls[ToUtf8(m_protocol) + ".destroyed"]; }

    VProfileData* GetMember(int index) override { return index == 0 ? &m_text : nullptr; }
    void Save(VProfileKey* key, bool force) override
    {
        Step(m_protocol, "Save");
        PlainConnectConfig::Save(key, force);
    }
    bool IsModified() const override
    {
        Step(m_protocol, "IsModified");
        return PlainConnectConfig::IsModified();
    }
    void AcceptChanges() override
    {
        Step(m_protocol, "AcceptChanges");
        PlainConnectConfig::AcceptChanges();
    }
    void RevertChanges() override
    {
        Step(m_protocol, "RevertChanges");
        PlainConnectConfig::RevertChanges();
    }
    void CopyValue(const VProfileData& other) override
    {
        Step(m_protocol, "CopyValue");
        PlainConnectConfig::CopyValue(other);
    }
    ConnectConfig* Clone(ICommonConfig*) const override
    {
        Step(m_protocol, "Clone");
        return new ProbeConfig(*this);
    }
    void LeaveProtocol(VSharedProtocolValues& shared) override
    {
        Step(m_protocol, "LeaveProtocol");
        shared.Set(u"Text", m_text);
    }
    void EnterProtocol(const VSharedProtocolValues& shared) override
    {
        Step(m_protocol, "EnterProtocol");
        VUnicodeString text;
        if (shared.Lookup(u"Text", text))
            m_text = text;
    }

private:
    VUnicodeString m_protocol;
    VProfileString m_text;
};

ConnectConfig* CreateProbe(const VProfileKey* key, ICommonConfig*, ConnectProtocolTableElement* element)
{
    Step(element->name, "createConfig");
    return Refuses(element->name, "createConfig") ? nullptr : new ProbeConfig(key, element->name);
}

IGlobalPages* AddNoPages(IPropertyTreeDialog*) { return nullptr; }

} // namespace

OSTRAND_MODULE_EXPORT const uint8_t* GetProtocolGuid()
{
    static VContractId id = kProtocolContract;
    id.back() = PROBE_LAST_BYTE;
    return id.data();
}

OSTRAND_MODULE_EXPORT bool LoadProtocol(VAppFnTable* table, ConnectProtocolTableElement* element,
                                        IReportMessageParams* report)
{
    g_script = static_cast<ProbeTable*>(table)->script;
    const VUnicodeString name = element->name;
    // What a module has no business with stays as it was.
    element->name = u"scribble";
    element->productId = 99;
    element->modulePath = VUnicodeString();
    element->moduleHandle = element;
    element->pagesFactory = nullptr;
    element->hook4 = nullptr;
    Step(name, "LoadProtocol");
    element->createConfig = CreateProbe;
    element->addGlobalPages = AddNoPages;
    return !Refuses(name, "LoadProtocol") || Fail(*report, 0xe1990001);
}

OSTRAND_MODULE_EXPORT void UnloadProtocol(ConnectProtocolTableElement* element)
{
    Step(element->name, "UnloadProtocol");
}

} // namespace ostrand::test
