// One side of a session over the probe's protocols: "SSH2 Text" and its like are their settings.
#include "core/trace.h"
#include "profile/variant.h"
#include "tests/modules/module_scene.h"

#include <memory>
#include <optional>

namespace ostrand {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

class ProtocolSwitching : public test::ModuleScene {
protected:
    void LoadBoth()
    {
        PutAll();
        Install({"Tessaly", "Orvane"});
        ASSERT_TRUE(Load());
    }
    void LoadTerminal()
    {
        PutAll();
        ASSERT_TRUE(Load());
    }

    VProfileStore open{&store.factory};
    VProfileKey key{open.GetRootKey(), u"Session"};
    CommonConfig common;

    std::unique_ptr<ConnectConfigPtr> Open(int kind = ConnectConfigPtr::kTerminal)
    {
        return std::make_unique<ConnectConfigPtr>(&key, kind, &common);
    }
    static std::string TextOf(const ConnectConfigPtr& side)
    {
        const auto* const text = side.GetActive() ? side.GetActive()->GetMember(0) : nullptr;
        return text ? ToUtf8(dynamic_cast<const VProfileString&>(*text)) : "no settings";
    }
    static void SetText(const ConnectConfigPtr& side, const char16_t* text)
    {
        dynamic_cast<VProfileString&>(*side.GetActive()->GetMember(0)) = VUnicodeString(text);
    }
    std::vector<std::string> SaveNames(ConnectConfigPtr& side)
    {
        store.TakeWrites();
        side.Save(&key, false);
        std::vector<std::string> names;
        for (const std::u16string& write : store.TakeWrites())
            names.push_back(ToUtf8(write.substr(write.find(u'|') + 1)));
        return names;
    }
};

TEST_F(ProtocolSwitching, AStoredNameFindsItsProtocolOrTheFirst)
{
    LoadTerminal();
    platform.environment.variables["TEMP"] = folder.Path();
    TraceLog().Close();
    const struct {
        const char16_t* stored; // null: no value
        int kind;
        const char* name;
        bool isActive;
        bool isWritten; // the name, by the next save
        bool storedEmpty;
    } kCases[] = {
        {nullptr, 0, "SSH2", true, true, false},
        {u"", 0, "SSH2", true, true, true},
        {u"telNET", 0, "telNET", true, false, false},
        {u"Telnet/SSL", 0, "Telnet/SSL", true, false, false},
        {u"Gopher", 0, "SSH2", true, true, false},
        {u"SFTP", 0, "SSH2", true, true, false},   // of the other side
        {u"SSH1", 0, "SSH1", false, false, false}, // known, but there is no row
        {u"None", 0, "None", false, false, false},
        {u"SFTP", 1, "SFTP", false, false, false}, // the other side has no rows at all
        {u"Gopher", 1, "", false, true, false},
    };
    for (const auto& c : kCases) {
        const std::u16string name = c.kind == 0 ? u"Protocol Name" : u"Transfer Protocol Name";
        SCOPED_TRACE(ToUtf8(name) + " = " + (c.stored ? ToUtf8(c.stored) : "nothing"));
        key.DeleteValue(name.c_str());
        if (c.stored)
            key.WriteString(name.c_str(), c.stored);
        const auto side = Open(c.kind);
        EXPECT_EQ(ToUtf8(side->GetProtocolName()), c.name);
        EXPECT_EQ(side->GetActive() != nullptr, c.isActive);
        EXPECT_EQ(side->HasProtocol(), c.isActive);
        EXPECT_EQ(side->IsStoredEmpty(), c.storedEmpty);
        const auto names = SaveNames(*side);
        EXPECT_EQ(std::ranges::count(names, ToUtf8(name)), c.isWritten ? 1 : 0);
    }
    TraceLog().Close();
    VTextFile log;
    VUnicodeString line;
    ASSERT_EQ(log.Open(folder.WidePath("Tessaly.trace.log"), VFileAccess::Read, VFileDisposition::OpenExisting), 0u);
    EXPECT_TRUE(log.ReadLine(line));
    EXPECT_EQ(line, u"Unknown protocol \"Gopher\" using default protocol.");
}

TEST_F(ProtocolSwitching, EverySideHasTheSettingsOfAllItsProtocolsAndWritesTheActiveOnes)
{
    LoadBoth();
    key.WriteString(u"Protocol Name", u"Telnet");
    key.WriteString(u"RLogin Text", u"stored");
    const auto terminal = Open();
    const auto transfer = Open(ConnectConfigPtr::kTransfer);
    for (const char* const name : {"SSH2", "Telnet", "Telnet/SSL", "RLogin", "Serial", "SFTP", "FTP"})
        EXPECT_EQ(Calls(std::string(name) + ".createConfig"), 1) << name;
    EXPECT_EQ(Calls("TAPI.createConfig"), 0);
    EXPECT_THAT(SaveNames(*terminal), ElementsAre("Telnet Text"));
    EXPECT_THAT(SaveNames(*terminal), IsEmpty());
    EXPECT_THAT(SaveNames(*transfer), ElementsAre("Transfer Protocol Name", "SFTP Text"));

    terminal->SetProtocol(u"TAPI");
    EXPECT_EQ(Calls("TAPI.createConfig"), 1);
    terminal->SetProtocol(u"RLogin");
    EXPECT_EQ(TextOf(*terminal), "default") << "taken over from the one before";
    EXPECT_EQ(terminal->GetMember(1), terminal->GetActive());
    EXPECT_EQ(terminal->GetMember(2), nullptr);
}

TEST_F(ProtocolSwitching, SharedValuesPassAndTheFirstObjectIsKept)
{
    LoadTerminal();
    const auto side = Open();
    ConnectConfig* const ssh = side->GetActive();
    SetText(*side, u"changed");
    side->SetProtocol(u"SSH2");
    side->SetProtocol(u"telnet");
    EXPECT_EQ(side->GetActive(), nullptr) << "names are exact here";
    side->SetProtocol(u"Telnet");
    EXPECT_EQ(TextOf(*side), "changed");
    SetText(*side, u"again");
    side->SetProtocol(u"SSH2");
    EXPECT_EQ(side->GetActive(), ssh);
    EXPECT_EQ(TextOf(*side), "again");
    EXPECT_THAT(script.order, ElementsAre("SSH2.LeaveProtocol", "Telnet.EnterProtocol", "Telnet.LeaveProtocol",
                                          "SSH2.EnterProtocol"));
}

TEST_F(ProtocolSwitching, ARevertGoesBackToTheLastAcceptance)
{
    LoadTerminal();
    const auto side = Open();
    side->RevertChanges();
    EXPECT_EQ(side->GetActive(), nullptr) << "nothing was accepted yet";

    const auto accepted = Open();
    accepted->AcceptChanges();
    EXPECT_TRUE(accepted->IsDirty()) << "defaults wait for a write";
    EXPECT_FALSE(accepted->IsModified());
    ConnectConfig* const ssh = accepted->GetActive();
    accepted->SetProtocol(u"Telnet");
    SetText(*accepted, u"changed");
    EXPECT_TRUE(accepted->IsModified());
    accepted->RevertChanges();
    EXPECT_EQ(accepted->GetActive(), ssh);
    EXPECT_EQ(accepted->GetProtocolName(), u"SSH2");
    EXPECT_FALSE(accepted->IsModified());
    accepted->SetProtocol(u"Telnet");
    EXPECT_EQ(TextOf(*accepted), "default");
}

TEST_F(ProtocolSwitching, ASwitchToNoneIsWrittenButNoChange)
{
    LoadBoth();
    const auto side = Open(ConnectConfigPtr::kTransfer);
    side->AcceptChanges();
    side->Save(&key, false);
    side->SetProtocol(u"None");
    EXPECT_TRUE(side->GetActive());
    EXPECT_FALSE(side->HasProtocol());
    EXPECT_FALSE(side->IsModified());
    side->dirty = true;
    EXPECT_THAT(SaveNames(*side), ElementsAre("Transfer Protocol Name"));
    EXPECT_TRUE(side->dirty);
    EXPECT_EQ(Calls("SFTP.Save"), 1);
    side->Save(nullptr, true);
}

TEST_F(ProtocolSwitching, ACopyCarriesTheSwitchAndWhatWasChangedSince)
{
    LoadTerminal();
    const auto stored = Open();
    stored->AcceptChanges();
    for (const char16_t* const protocol : {u"TAPI", u"Telnet", u"Gone"}) {
        SCOPED_TRACE(ToUtf8(protocol));
        CommonConfig otherCommon(common);
        ConnectConfigPtr edited(*stored, &otherCommon);
        edited.SetProtocol(protocol);
        if (edited.GetActive())
            SetText(edited, u"typed");
        stored->CopyValue(edited);
        EXPECT_EQ(ToUtf8(stored->GetProtocolName()), ToUtf8(protocol));
        EXPECT_EQ(TextOf(*stored), edited.GetActive() ? "typed" : "no settings");
        stored->AcceptChanges();
    }
    // Without a switch only what changed comes along.
    stored->SetProtocol(u"Serial");
    stored->AcceptChanges();
    ConnectConfigPtr edited(*stored, &common);
    SetText(edited, u"serial");
    stored->CopyValue(edited);
    EXPECT_EQ(TextOf(*stored), "serial");
}

TEST_F(ProtocolSwitching, ACloneHasSettingsOfItsOwn)
{
    LoadTerminal();
    key.WriteString(u"Protocol Name", u"");
    const auto side = Open();
    side->MarkAsDefault();
    side->SetProtocol(u"Telnet");
    CommonConfig otherCommon(common);
    ConnectConfigPtr clone(*side, &otherCommon);
    EXPECT_TRUE(clone.IsStoredEmpty());
    EXPECT_NE(clone.GetActive(), side->GetActive());
    SetText(clone, u"clone's");
    EXPECT_EQ(TextOf(*side), "default");
    script.order.clear();
    clone.SetProtocol(u"SSH2");
    EXPECT_EQ(TextOf(clone), "clone's");
    EXPECT_EQ(clone.GetActive()->defaultMark, 1);
}

TEST_F(ProtocolSwitching, SettingTheNamesValueSelects)
{
    LoadTerminal();
    const auto side = Open();
    side->AcceptChanges();
    VVariant value;
    value.data = VUnicodeString(u"Serial");
    EXPECT_TRUE(side->SetVariant(&value, report));
    EXPECT_EQ(TextOf(*side), "default");
    EXPECT_TRUE(side->IsModified());
    EXPECT_TRUE(side->GetVariant(&value, report));
    EXPECT_EQ(std::get<VUnicodeString>(value.data), u"Serial");
    EXPECT_THAT(script.order, ElementsAre("SSH2.LeaveProtocol", "Serial.EnterProtocol"));
    EXPECT_EQ(side->name, u"Protocol Name");
}

TEST_F(ProtocolSwitching, WhatAModuleThrowsCostsThatModuleAlone)
{
    LoadTerminal();
    key.WriteString(u"Protocol Name", u"SSH2");
    for (const char* const operation : {"createConfig", "AcceptChanges", "Clone", "IsModified", "CopyValue",
                                        "LeaveProtocol", "EnterProtocol", "RevertChanges", "Save"}) {
        SCOPED_TRACE(operation);
        key.WriteString(u"SSH2 Text", u"stored");
        router.messages.clear();
        script.throwing = {std::string("SSH2.") + operation};
        const auto side = Open();
        side->AcceptChanges();
        if (side->GetActive())
            SetText(*side, u"changed");
        CommonConfig otherCommon(common);
        ConnectConfigPtr clone(*side, &otherCommon);
        const bool isModified = side->IsModified();
        EXPECT_TRUE(isModified || !side->GetActive());
        clone.CopyValue(*side);
        side->Save(&key, false);
        side->Save(&key, true);
        side->SetProtocol(u"Telnet");
        EXPECT_EQ(TextOf(*side) == "no settings", false) << "another module's settings are unharmed";
        side->SetProtocol(u"SSH2");
        side->RevertChanges();
        EXPECT_EQ(side->GetProtocolName(), u"SSH2");
        EXPECT_TRUE(store.Get(u"Session", u"Protocol Name"));
        EXPECT_TRUE(store.Get(u"Session", u"SSH2 Text"));

        ASSERT_EQ(router.messages.size(), 1u) << "one message, however often it fails";
        EXPECT_EQ(router.messages[0].code, kModuleThrew);
        EXPECT_EQ(router.messages[0].arguments[0], u"SSH2");
        EXPECT_EQ(ToUtf8(router.messages[0].arguments[1]), folder.Path("ProtoAlpha.so"));
        EXPECT_EQ(ToUtf8(router.messages[0].arguments[2]), operation);
        EXPECT_EQ(ToUtf8(router.messages[0].arguments[3]), std::string("the probe's SSH2.") + operation);
    }
}

TEST_F(ProtocolSwitching, AProtocolWithoutSettingsIsKeptByName)
{
    LoadTerminal();
    script.refusing = {"SSH2.createConfig"};
    key.WriteString(u"Protocol Name", u"SSH2");
    const auto side = Open();
    EXPECT_EQ(side->GetActive(), nullptr);
    EXPECT_EQ(Calls("SSH2.createConfig"), 1);
    EXPECT_FALSE(side->IsModified());
    side->AcceptChanges();
    EXPECT_THAT(SaveNames(*side), IsEmpty());
    side->SetProtocol(u"Serial");
    side->RevertChanges();
    EXPECT_EQ(side->GetProtocolName(), u"SSH2");
    SetConnectConfigParentWindow(*side, *side, &key);
}

} // namespace
} // namespace ostrand
