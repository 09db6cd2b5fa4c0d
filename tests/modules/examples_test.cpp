// The example protocols as modules of this build: what they keep in a session, and what they share.
#include "tests/modules/module_scene.h"

#include "config/global/firewall_list.h"
#include "core/entry.h"
#include "dialogs/session/connect_page.h"
#include "dialogs/session/logon_scripts_page.h"
#include "dialogs/session/session_options_dialog.h"
#include "tests/support/page_driver.h"

namespace ostrand {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::Not;

class ExampleProtocols : public testing::Test {
protected:
    /// Loaded once and never given back: the names of their values belong to the process.
    static void SetUpTestSuite()
    {
        static VAppFnTable table;
        bool offer = false;
        VReportMessageParams report;
        const VUnicodeString folder(std::filesystem::path(OSTRAND_EXAMPLE_PROTOCOLS).u16string());
        for (const int product : {kProductTessaly, kProductOrvane})
            ASSERT_TRUE(LoadSingleProductConnectionProtocolDlls(table, product, folder.c_str(), nullptr, offer, report))
                << ToUtf8(GetProtocolRecords().back().reason);
        int index = 0;
        LoadOneProtocol(nullptr, VUnicodeString(), u"None", kProductTessaly, table, report, index);
    }

    static void TearDownTestSuite() { GetConnectProtocolTable().RemoveAll(); }

    std::string HostOf(const ConnectConfigPtr& side)
    {
        VUnicodeStringI host;
        side.GetActive()->GetHostName(&host);
        return ToUtf8(host);
    }
    std::vector<std::string> SavedNames(ConnectConfigPtr& side)
    {
        store.TakeWrites();
        side.Save(&key, true);
        std::vector<std::string> names;
        for (const std::u16string& write : store.TakeWrites())
            names.push_back(ToUtf8(write.substr(write.find(u'|') + 1)));
        return names;
    }

    test::DefaultMemoryStore store;
    VProfileStore open{&store.factory};
    VProfileKey key{open.GetRootKey(), u"Session"};
    CommonConfig common;
};

TEST_F(ExampleProtocols, EachWritesItsOwnValuesAndTheHosts)
{
    ConnectConfigPtr terminal(&key, ConnectConfigPtr::kTerminal, &common);
    EXPECT_THAT(SavedNames(terminal),
                ElementsAre("Protocol Name", "Hostname", "Firewall Name", "Username", "SSH2 Port",
                            "SSH2 Authentications", "SSH2 Key File", "SSH2 Compression", "SSH2 Agent Forwarding"));
    terminal.SetProtocol(u"Serial");
    EXPECT_THAT(SavedNames(terminal), testing::AllOf(Contains("Serial Baud Rate"), Not(Contains("Hostname"))));

    ConnectConfigPtr transfer(&key, ConnectConfigPtr::kTransfer, &common);
    for (const char16_t* const name : {u"FTP/SSL (implicit)", u"FTP/SSL (explicit)"}) {
        transfer.SetProtocol(name);
        transfer.Save(&key, true);
        EXPECT_TRUE(transfer.GetActive()->SupportsNoOp());
    }
    EXPECT_EQ(store.Get(u"Session", u"FTP Implicit Port"), StoreValue(990u));
    EXPECT_EQ(store.Get(u"Session", u"FTP Explicit Port"), StoreValue(21u));
}

TEST_F(ExampleProtocols, HostAndUserPassFromProtocolToProtocol)
{
    key.WriteString(u"Hostname", u"router");
    ConnectConfigPtr side(&key, ConnectConfigPtr::kTerminal, &common);
    EXPECT_EQ(HostOf(side), "router");
    EXPECT_EQ(side.GetActive()->IsConnectable(nullptr), 1);
    side.SetProtocol(u"Serial");
    EXPECT_EQ(side.GetActive()->IsConnectable(nullptr), 0);
    EXPECT_FALSE(side.GetActive()->SupportsNoOp());
    side.SetProtocol(u"Telnet");
    EXPECT_EQ(HostOf(side), "router");

    CommonConfig otherCommon(common);
    ConnectConfigPtr copy(side, &otherCommon);
    dynamic_cast<VProfileString&>(*copy.GetActive()->GetMember(0)) = VUnicodeString(u"other");
    EXPECT_EQ(HostOf(side), "router") << "a copy of a session has a host of its own";
    side.CopyValue(copy);
    EXPECT_EQ(HostOf(side), "other");
}

TEST_F(ExampleProtocols, TheFirewallAsksBelowTheSessionsWindow)
{
    test::RecordingPrompts prompts;
    {
        FirewallConfig definition(u"Gate", nullptr);
        definition.firewallType = VUnicodeString(u"SOCKSv5_USERPASS");
        VReportMessageParams report;
        ASSERT_TRUE(SaveFirewall(definition, true, report));
    }
    key.WriteString(u"Firewall Name", u"Gate");
    ConnectConfigPtr terminal(&key, ConnectConfigPtr::kTerminal, &common);
    key.WriteString(u"Transfer Protocol Name", u"None");
    ConnectConfigPtr transfer(&key, ConnectConfigPtr::kTransfer, &common);
    int window = 0;
    SetConnectConfigParentWindow(terminal, transfer, &window);
    EXPECT_EQ(terminal.GetActive()->GetParentWindow()->GetParentWindow(), &window);
    VUnicodeStringI user;
    VUnknownPointer<FirewallConfig>::Adopt(terminal.GetActive()->GetFirewall())->GetUsername(&user);
    EXPECT_EQ(prompts.lastParent, terminal.GetActive()->GetParentWindow());
}

TEST_F(ExampleProtocols, TheirPagesEditOneHostAndTheirOwnValues)
{
    using C = SessionConnectPage;
    constexpr VControlId kHost = 1;
    constexpr VControlId kPort = 3;
    test::ScriptedServices services;
    SetTessalyInstalled(true);
    SetOrvaneInstalled(true);
    {
        SessionConfig session(u"Router", &key);
        GlobalConfig* global = nullptr;
        GetGlobalConfig(global, -1);
        SessionOptionsDialog dialog(*global, session, {}, services);
        dialog.Open();
        VPropertyTreePage& connect = *dialog.GetActivePage();
        const auto show = [&](std::u16string_view label) {
            for (VPropertyTreePage* const page : dialog.GetVisiblePages())
                if (page->GetTreeLabel() == label && dialog.SelectPage(*page))
                    return page;
            return static_cast<VPropertyTreePage*>(nullptr);
        };
        const auto choose = [&](VControlId list, std::u16string_view protocol) {
            ASSERT_EQ(show(u"Connection"), &connect);
            test::FormDriver(connect).Choose(list, connect.At<VListControl>(list).Find(protocol));
        };
        for (const ConnectProtocolTableElement& row : GetConnectProtocolTable()) {
            const bool isTransfer = row.productId == kProductOrvane;
            if (isTransfer)
                choose(C::Protocol, u"SSH2"); // a line of one's own carries no files
            choose(isTransfer ? C::FileTransfer : C::Protocol, row.name);
            const bool hasPage = row.name != kNoProtocol && row.name != u"SFTP"; // SSH2's page serves both
            EXPECT_TRUE(!hasPage || show(row.name)) << ToUtf8(row.name);
        }
        choose(C::Protocol, u"SSH2");
        VPropertyTreePage* const ssh = show(u"SSH2");
        ASSERT_NE(ssh, nullptr);
        test::FormDriver(*ssh).Type(kHost, u"router").Type(kPort, u"70000");
        services.ExpectMessage();
        EXPECT_EQ(show(u"Connection"), nullptr) << "the bound of the schema's row";
        test::FormDriver(*ssh).Type(kPort, u"2222");
        EXPECT_NE(dynamic_cast<SessionLogonScriptsPage&>(*show(u"Logon Actions"))
                      .At<VPlaceControl>(SessionLogonScriptsPage::Panel)
                      .GetContent(),
                  nullptr);

        choose(C::Protocol, u"Telnet");
        EXPECT_EQ(show(u"SSH2"), nullptr);
        VPropertyTreePage* const telnet = show(u"Telnet");
        ASSERT_NE(telnet, nullptr);
        EXPECT_EQ(telnet->Control(kHost).GetText(), u"router");
        test::FormDriver(*telnet).Type(kHost, u"switch");
        choose(C::Protocol, u"SSH2");
        ASSERT_EQ(show(u"SSH2"), ssh);
        EXPECT_EQ(ssh->Control(kHost).GetText(), u"switch") << "one host for all";
        test::FormDriver(dialog).Click(VPropertyTreeDialog::Ok);
        EXPECT_EQ(dialog.Close(), kResultOk);
        session.terminalProtocol.Save(&key, true);
        ResetGlobalConfig(global);
    }
    EXPECT_EQ(store.Get(u"Session", u"SSH2 Port"), StoreValue(2222u));
    EXPECT_EQ(store.Get(u"Session", u"Hostname"), StoreValue(VUnicodeString(u"switch")));
    SetTessalyInstalled(false);
    SetOrvaneInstalled(false);
}

} // namespace
} // namespace ostrand
