// What tests of sessions stand on: a default store in memory, its global record, and protocols whose modules are these
// tests.
#pragma once

#include "config/session/plain_connect_config.h"
#include "config/session/protocol_table.h"
#include "config/session/session_access.h"
#include "config/session/session_paths.h"
#include "core/entry.h"
#include "core/product.h"
#include "profile/schema.h"
#include "tests/support/default_store.h"
#include "tests/support/fake_platform.h"

#include <string>

namespace ostrand::test {

/// A protocol with a host and a port, named after it so that those of several protocols stand side by side in a key.
class FakeConnect : public PlainConnectConfig {
public:
    FakeConnect(const VProfileKey* key, std::u16string_view protocol)
    {
        host.SetName(protocol + VUnicodeString(u" Host"));
        host.Load(key, VUnicodeString());
        port.SetName(protocol + VUnicodeString(u" Port"));
        port.Load(key, 22);
    }
    FakeConnect(const FakeConnect&) = default;

    ConnectConfig* Clone(ICommonConfig*) const override { return new FakeConnect(*this); }
    bool SupportsNoOp() const override { return true; }
    int IsConnectable(IReportMessageParams*) override { return host.IsEmpty() ? 0 : 1; }
    void GetHostName(IString* out) const override { out->Set(host.c_str(), false); }
    void GetTransferStatusText(IString* out) const override
    {
        out->Set((VUnicodeString(u"to ") + host).c_str(), false);
    }
    VProfileData* GetMember(int index) override
    {
        return index == 0 ? static_cast<VProfileData*>(&host) : index == 1 ? &port : nullptr;
    }

    VProfileString host;
    VProfile<int> port;
};

/// Both applications are installed, so there are rows "None". The store is filled before the first session is opened.
class SessionScene {
public:
    SessionScene()
    {
        AddRow(kProductTessaly, u"SSH2");
        AddRow(kProductTessaly, u"Telnet");
        AddRow(kProductTessaly, u"TAPI");
        AddRow(kProductTessaly, u"Serial");
        AddRow(kProductOrvane, u"SFTP");
        AddRow(kProductTessaly, kNoProtocol);
        AddRow(kProductOrvane, kNoProtocol);
        SetAppNameFunction([] { return VUnicodeString(u"Tessaly"); });
    }
    ~SessionScene()
    {
        GetConnectProtocolTable().RemoveAll();
        GlobalConfig* config = nullptr;
        ResetGlobalConfig(config);
        SetAppNameFunction(nullptr);
    }
    SessionScene(const SessionScene&) = delete;
    SessionScene& operator=(const SessionScene&) = delete;

    void Put(std::u16string key, std::u16string name, StoreValue value)
    {
        store.factory.Fill({{std::move(key), std::move(name), std::move(value)}});
    }
    /// A session that has nothing but its mark and a host.
    void PutSession(std::u16string_view path, std::u16string_view host = u"h")
    {
        const std::u16string key(BuildSessionKeyPath(path).View());
        Put(key, u"Is Session", 1u);
        Put(key, u"SSH2 Host", VUnicodeString(host));
    }
    std::optional<StoreValue> Get(std::u16string_view path, std::u16string_view name) const
    {
        return store.Get(BuildSessionKeyPath(path), name);
    }
    VUnknownPointer<SessionConfig> Open(std::u16string_view path) const
    {
        return SessionFolderAccess().OpenSession(path);
    }

    FakePlatform platform;
    DefaultMemoryStore store;

private:
    static void AddRow(int productId, const char16_t* name)
    {
        ConnectProtocolTableElement row;
        row.productId = productId;
        row.name = name;
        row.createConfig = [](const VProfileKey* key, ICommonConfig*,
                              ConnectProtocolTableElement* element) -> ConnectConfig* {
            return new FakeConnect(key, element->name);
        };
        GetConnectProtocolTable().Append(row);
    }
};

inline FakeConnect& TerminalSide(SessionConfig& session)
{
    return dynamic_cast<FakeConnect&>(*session.GetTerminalConnectConfig());
}

} // namespace ostrand::test
