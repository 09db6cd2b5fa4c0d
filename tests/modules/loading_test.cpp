#include "config/session/module_failure.h"
#include "config/session/protocol_list.h"
#include "tests/modules/module_scene.h"

namespace ostrand {
namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::HasSubstr;
using Loading = test::ModuleScene;

std::vector<std::string> TerminalRows()
{
    return {"3 SSH2", "3 Telnet", "3 Telnet/SSL", "3 RLogin", "3 Serial", "3 TAPI"};
}

TEST_F(Loading, RowsStandInTheListsOrderAndNoneBehindBothSides)
{
    PutAll();
    folder.Write("SSH1.enable", "");
    Install({"Tessaly", "Orvane"});
    EXPECT_TRUE(Load(kProductOrvane));
    EXPECT_THAT(Rows(),
                ElementsAre("6 SFTP", "6 FTP", "6 FTP/SSL (implicit)", "6 FTP/SSL (explicit)", "3 SSH2", "3 SSH1",
                            "3 Telnet", "3 Telnet/SSL", "3 RLogin", "3 Serial", "3 TAPI", "6 None", "3 None"));
    EXPECT_EQ(progress.size(), 11u);
    EXPECT_EQ(progress.back(), "TAPI");
    EXPECT_EQ(report.GetCode(), kErrorSuccess);
    EXPECT_TRUE(GetGlobalPagesHook());
    const ConnectProtocolTableElement& row = GetConnectProtocolTable()[0];
    EXPECT_EQ(row.modulePath, folder.WidePath("ProtoTheta.so"));
    EXPECT_FALSE(row.pagesFactory(nullptr, 0, nullptr, nullptr, nullptr)) << "what a module takes away comes back";
    EXPECT_FALSE(row.hook4());
    EXPECT_THROW(GetConnectProtocolTable()[13], ConnectProtocolTable::OutOfRange);

    UnloadConnectionProtocolDlls();
    EXPECT_EQ(Calls("SFTP.UnloadProtocol"), 1);
    EXPECT_TRUE(Rows().empty());
    EXPECT_FALSE(GetGlobalPagesHook());
    bool flag = false;
    EXPECT_TRUE(LoadSingleProductConnectionProtocolDlls(
        table, kProductQuillo, VUnicodeString(folder.WidePath()).c_str(), nullptr, flag, report));
    EXPECT_THAT(Rows(), ElementsAre("1 Telnet", "1 RLogin", "1 Serial", "1 TAPI"));
}

TEST_F(Loading, NoneStandsOnlyWhereBothSidesHaveProtocols)
{
    PutAll();
    EXPECT_TRUE(Load());
    EXPECT_THAT(Rows(), ElementsAreArray(TerminalRows())) << "the sibling isn't installed";

    UnloadConnectionProtocolDlls();
    Install({"Tessaly", "Orvane"});
    for (const char* const file : {"ProtoTheta.so", "ProtoIota.so", "ProtoBeta.so"})
        std::filesystem::remove(folder.Path(file));
    EXPECT_TRUE(Load());
    EXPECT_THAT(Rows(), ElementsAreArray(TerminalRows())) << "the sibling has no protocols";
    EXPECT_FALSE(IsOrvaneInstalled());

    UnloadConnectionProtocolDlls();
    EXPECT_FALSE(Load(kProductOrvane)) << "not one of its own";
    EXPECT_EQ(report.GetCode(), kNoModuleLoaded);
    EXPECT_EQ(report.GetArguments()[0], folder.WidePath());
    EXPECT_EQ(report.GetArguments()[1], std::u16string(u"Tessaly"));
    EXPECT_FALSE(LoadConnectionProtocolDlls(table, kProductTessaly, nullptr, nullptr, offer, report)) << "no folder";
}

TEST_F(Loading, PolicyAndMarkerKeepProtocolsOutWithoutAWord)
{
    PutAll();
    Install({"Tessaly", "Orvane"});
    folder.Write("SSH1.enable", "");
    hives.Write("machine/Software/Policies/Hollowmere.ini", "Enable FIPS Mode = 1\n");
    offer = true;
    EXPECT_TRUE(Load());
    EXPECT_THAT(Rows(), ElementsAre("3 SSH2", "3 Telnet", "3 RLogin", "3 Serial", "3 TAPI", "6 SFTP", "6 FTP", "3 None",
                                    "6 None"));
    EXPECT_THAT(prompts.texts, testing::IsEmpty());
    EXPECT_EQ(GetProtocolRecords()[1].state, VProtocolState::RefusedByPolicy);

    UnloadConnectionProtocolDlls();
    hives.Write("machine/Software/Policies/Hollowmere.ini", "Enable FIPS Mode = 0\n");
    std::filesystem::remove(folder.Path("SSH1.enable"));
    EXPECT_TRUE(Load());
    EXPECT_EQ(GetProtocolRecords()[1].state, VProtocolState::NotEnabled);
    EXPECT_EQ(Calls("SSH1.LoadProtocol"), 0);
    EXPECT_THAT(Rows(), testing::Contains("3 Telnet/SSL"));
}

TEST_F(Loading, EachFaultOfAModuleHasItsCodeAndLeavesNothingLoaded)
{
    const auto wrongProduct = [] { return u"Orvane"; };
    const struct {
        const char* probe; // null: no file, "": a file that is no module
        const char* throwing;
        const char* refusing;
        const char16_t* (*application)();
        unsigned code;
        VProtocolState state;
        const char* reason; // of the record
        const char* text;   // of the report
    } kCases[] = {
        {nullptr, "", "", nullptr, 0, VProtocolState::FileMissing, "", ""},
        {"", "", "", nullptr, kModuleFailed, VProtocolState::NotLoadable, "ProtoDelta.so", "e1370004"},
        {"probe_without_contract", "", "", nullptr, kModuleFailed, VProtocolState::NotLoadable, "GetProtocolGuid",
         "e1370004"},
        {"probe_without_load", "", "", nullptr, kModuleFailed, VProtocolState::NotLoadable, "LoadProtocol", "e1370004"},
        {"probe_other_contract", "", "", nullptr, kModuleContractDiffers, VProtocolState::OtherContract, "", ""},
        {"probe_other_contract", "", "", wrongProduct, kModuleFailed, VProtocolState::OtherContract, "", "e1370006"},
        {"probe", "", "Telnet.LoadProtocol", nullptr, kModuleFailed, VProtocolState::Failed, "e1990001", "e1990001"},
        {"probe", "Telnet.LoadProtocol", "", nullptr, kModuleFailed, VProtocolState::Failed, "unknown class",
         "unknown class"},
    };
    const VUnicodeString path(folder.WidePath("ProtoDelta.so"));
    for (const auto& c : kCases) {
        SCOPED_TRACE(std::string(c.probe ? c.probe : "no file") + c.throwing + c.refusing);
        std::filesystem::remove(folder.Path("ProtoDelta.so"));
        if (c.probe && *c.probe)
            Put("ProtoDelta", c.probe);
        else if (c.probe)
            folder.Write("ProtoDelta.so", "no module");
        script.throwing = {c.throwing};
        script.refusing = {c.refusing};
        table.getProductName = c.application ? c.application : [] { return u"Tessaly"; };
        int index = 7;
        EXPECT_FALSE(LoadOneProtocol(VUnicodeString(folder.WidePath()).c_str(), path, u"Telnet", kProductTessaly, table,
                                     report, index));
        EXPECT_EQ(index, -1);
        EXPECT_EQ(report.GetCode(), c.code);
        EXPECT_EQ(GetProtocolRecords().back().state, c.state);
        EXPECT_THAT(ToUtf8(GetProtocolRecords().back().reason), HasSubstr(c.reason));
        EXPECT_EQ(modules.loads, modules.unloads);
        EXPECT_TRUE(Rows().empty());
        if (c.code != kModuleFailed)
            continue;
        ASSERT_EQ(report.GetArgumentCount(), 4);
        EXPECT_EQ(report.GetArguments()[0], path.View());
        EXPECT_EQ(report.GetArguments()[1], std::u16string(u"Tessaly"));
        EXPECT_EQ(report.GetArguments()[2], std::u16string(u"Telnet"));
        EXPECT_THAT(ToUtf8(report.GetArguments()[3]), HasSubstr(c.text));
    }
}

TEST_F(Loading, TheUserMayStopOrGoOnWhereAModuleDoesNotFit)
{
    PutAll();
    Put("ProtoAlpha", "probe_other_contract");
    folder.Write("Tessaly", "");
    EXPECT_TRUE(Load());
    EXPECT_TRUE(prompts.offers.empty()) << "nobody wants to know";
    UnloadConnectionProtocolDlls();

    offer = true;
    EXPECT_FALSE(Load());
    EXPECT_EQ(report.GetCode(), kModuleLoadingStopped);
    EXPECT_TRUE(progress.empty());
    UnloadConnectionProtocolDlls();

    prompts.downloadAnswer = VDownloadAnswer::Continue;
    Put("ProtoDelta", "probe_other_contract");
    EXPECT_TRUE(Load());
    EXPECT_FALSE(offer) << "one answer does for all";
    EXPECT_EQ(prompts.offers.size(), 2u);
    EXPECT_THAT(Rows(), ElementsAre("3 Telnet/SSL", "3 RLogin", "3 Serial", "3 TAPI"));
}

TEST_F(Loading, TheOlderOfModuleAndProgramIsToBeUpgraded)
{
    folder.Write("Tessaly", "");
    folder.Write("ProtoTheta.so", "");
    VModuleFailure failure{kProductOrvane, VUnicodeString(folder.WidePath("ProtoTheta.so")), {}, u"Tessaly"};
    const auto modulesAge = [this](int hours) {
        const auto program = std::filesystem::last_write_time(folder.Path("Tessaly"));
        std::filesystem::last_write_time(folder.Path("ProtoTheta.so"), program + std::chrono::hours(hours));
    };
    bool exit = false;
    bool integration = true;
    const auto handle = [&](unsigned code) {
        report.SetMessage(code);
        HandleModuleFailure(report, failure, exit, integration);
    };

    handle(0);
    EXPECT_TRUE(prompts.texts.empty());
    handle(kModuleFailed);
    EXPECT_EQ(prompts.texts.size(), 1u);
    EXPECT_EQ(prompts.lastIcon, VPromptIcon::Warning);
    EXPECT_TRUE(prompts.offers.empty());

    modulesAge(1);
    handle(kModuleContractDiffers);
    EXPECT_TRUE(exit);
    EXPECT_TRUE(integration);
    EXPECT_EQ(prompts.offers.back().productToUpgrade, u"Tessaly");
    EXPECT_EQ(prompts.offers.back().integratedProduct, u"Orvane");
    EXPECT_EQ(prompts.offers.back().kind, u"file transfer");
    EXPECT_EQ(prompts.offers.back().identifier, u"00000000-0000-0000-0000-000000000000");

    modulesAge(-1);
    exit = false;
    prompts.downloadAnswer = VDownloadAnswer::Continue;
    handle(kModuleContractDiffers);
    EXPECT_FALSE(exit);
    EXPECT_FALSE(integration);
    EXPECT_EQ(prompts.offers.back().productToUpgrade, u"Orvane");
    EXPECT_EQ(prompts.offers.back().identifier, u"507e5bdd-b419-4f34-a246-551c31bf800a");

    failure.modulePath = folder.WidePath("missing");
    handle(kModuleContractDiffers);
    EXPECT_EQ(prompts.offers.size(), 2u) << "no file, no question";
}

TEST_F(Loading, LinkedFunctionsTakeThePlaceOfAFile)
{
    static ConnectConfig* (*const none)(const VProfileKey*, ICommonConfig*, ConnectProtocolTableElement*) =
        [](const VProfileKey*, ICommonConfig*, ConnectProtocolTableElement*) -> ConnectConfig* { return nullptr; };
    RegisterLinkedModule(u"ProtoEpsilon.dll",
                         {[] { return kProtocolContract.data(); },
                          [](VAppFnTable*, ConnectProtocolTableElement* row, IReportMessageParams*) {
                              row->createConfig = none;
                              return true;
                          },
                          nullptr});
    RegisterLinkedModule(u"ProtoZeta.dll", {[] { return kProtocolContract.data(); }, nullptr, nullptr});
    EXPECT_TRUE(Load());
    EXPECT_THAT(Rows(), ElementsAre("3 RLogin"));
    EXPECT_EQ(modules.loads, 0);
    EXPECT_EQ(GetProtocolRecords()[5].reason, u"LoadProtocol");

    RegisterLinkedModule(u"ProtoEpsilon.dll", {});
    RegisterLinkedModule(u"ProtoZeta.dll", {});
    EXPECT_FALSE(Load()) << "and give it back";
}

} // namespace
} // namespace ostrand
