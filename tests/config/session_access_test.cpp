// Sessions on their way to and from the store: what is there, what comes into being, and what one edit does to others.
#include "config/session/folder_data.h"
#include "config/session/logon_actions.h"
#include "profile/blowfish_value.h"
#include "tests/config/session_scene.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace ostrand::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

VUnicodeString SummaryOf(const SessionConfig& session)
{
    VUnicodeString text = u"not touched";
    session.GetConnectionSummary(text);
    return text;
}

std::vector<std::u16string> NamesOf(const VStringArray& list)
{
    std::vector<std::u16string> names;
    for (const VUnicodeString& name : list)
        names.emplace_back(name.View());
    return names;
}

TEST(SessionAccess, TheDefaultSessionComesIntoBeingByBeingAskedFor)
{
    SessionScene scene;
    const auto session = scene.Open(u"Default");
    ASSERT_TRUE(session);
    EXPECT_TRUE(session->IsDefaultSession());
    EXPECT_EQ(scene.Get(u"Default", u"Is Session"), StoreValue(1u));
    EXPECT_EQ(scene.Get(u"Default", u"Idle Timeout"), StoreValue(300u));
    EXPECT_NE(session->GetTerminalConnectConfig()->defaultMark, 0);
    EXPECT_NE(session->GetTransferConnectConfig()->defaultMark, 0);

    scene.store.TakeWrites();
    EXPECT_TRUE(scene.Open(u"Default"));
    EXPECT_THAT(scene.store.TakeWrites(), IsEmpty());
}

TEST(SessionAccess, TheDefaultIsWhoHasBothNames)
{
    SessionScene scene;
    const auto session = scene.Open(u"Default");
    session->defaultMarker = true;
    session->SetPathName(u"Default");
    EXPECT_FALSE(session->IsNotMarked());
    session->SetPathName(u"Lab\\Default");
    EXPECT_TRUE(session->IsNotMarked());
    EXPECT_FALSE(session->IsDefaultSession());
    session->SetPathName(u"default");
    EXPECT_FALSE(session->IsDefaultSession());
}

TEST(SessionAccess, AnEmptyProtocolOfTheDefaultSessionIsNone)
{
    SessionScene scene;
    for (const char16_t* path : {u"Default", u"Lab\\Default", u"Other"}) {
        scene.PutSession(path);
        scene.Put(std::u16string(BuildSessionKeyPath(path).View()), u"Protocol Name", VUnicodeString());
    }
    EXPECT_FALSE(scene.Open(u"Default")->HasTerminalProtocol());
    EXPECT_FALSE(scene.Open(u"Lab\\Default")->HasTerminalProtocol()) << "the rule goes by the last name alone";
    EXPECT_TRUE(scene.Open(u"Other")->HasTerminalProtocol());
    EXPECT_TRUE(scene.Open(u"Default")->HasTransferProtocol());
}

TEST(SessionAccess, WhatIsNoSessionDoesNotOpen)
{
    SessionScene scene;
    scene.PutSession(u"Lab\\Router1");
    for (const char16_t* path : {u"Lab", u"Lab\\Router2", u"", u"Lab\\", u"\\", u"Lab\\Router1\\x"})
        EXPECT_FALSE(scene.Open(path)) << ToUtf8(path);
    const auto session = scene.Open(u"lab\\ROUTER1");
    ASSERT_TRUE(session);
    EXPECT_EQ(session->GetPathName(), u"lab\\ROUTER1");
    EXPECT_EQ(session->GetSessionName(), u"ROUTER1");
    VProfileStore store;
    store.GetRootKey()->DeleteKey(u"Sessions\\Lab\\Router1");
    EXPECT_FALSE(scene.Open(u"Lab\\Router1")) << "somebody deleted it meanwhile";
}

TEST(SessionAccess, ASaveWritesWhatChangedAndPendsAndNothingTwice)
{
    SessionScene scene;
    scene.PutSession(u"S");
    const auto session = scene.Open(u"S");
    VReportMessageParams report;
    ASSERT_TRUE(SessionFolderAccess().SaveSession(*session, true, report));
    EXPECT_EQ(scene.Get(u"S", u"Is Session"), StoreValue(1u));
    EXPECT_EQ(scene.Get(u"S", u"Scrollback"), StoreValue(500u)) << "defaults reach the store";
    scene.store.TakeWrites();
    ASSERT_TRUE(SessionFolderAccess().SaveSession(*session, true, report)) << "an existing key is never forced";
    EXPECT_THAT(scene.store.TakeWrites(), IsEmpty());
    session->terminal.scrollback = 9000;
    ASSERT_TRUE(SessionFolderAccess().SaveSession(*session, false, report));
    EXPECT_THAT(scene.store.TakeWrites(), ElementsAre(u"Sessions\\S|Scrollback"));

    session->terminal.scrollback = 1;
    scene.store.factory.SetReadOnly(true);
    EXPECT_FALSE(SessionFolderAccess().SaveSession(*session, false, report));
    EXPECT_NE(report.GetCode(), 0u);
}

TEST(SessionAccess, ANewSessionIsWrittenWholeAndListedOnceAtTheEnd)
{
    SessionScene scene;
    scene.PutSession(u"Lab\\Router1");
    const auto session = scene.Open(u"Lab\\Router1");
    VReportMessageParams report;
    const SessionFolderAccess access(false);
    ASSERT_TRUE(access.SaveNewSession(u"Lab", u"Router2", *session, report));
    session->SetPathName(u"Lab\\A third");
    ASSERT_TRUE(access.SaveSession(*session, false, report));
    EXPECT_EQ(session->GetPathName(), u"Lab\\A third");
    EXPECT_EQ(session->GetSessionName(), u"Router1");
    EXPECT_EQ(scene.Get(u"Lab\\Router2", u"SSH2 Host"), StoreValue(VUnicodeString(u"h")));
    EXPECT_THAT(NamesOf(ProfileFolderData(u"Lab", false).orderedSessions),
                ElementsAre(u"Router1", u"Router2", u"A third"));
    EXPECT_EQ(scene.store.Get(u"Sessions\\Lab\\__FolderData__", u"Session List"),
              StoreValue(VUnicodeString(u"Router1:Router2:A third:")));
}

TEST(SessionAccess, ASummaryTellsTheHostByWhatItsProtocolCallsIt)
{
    SessionScene scene;
    scene.PutSession(u"S", u"router");
    const auto session = scene.Open(u"S");
    EXPECT_EQ(SummaryOf(*session), u"Hostname: router");
    session->description.SetText(u"Rack 7\nleft");
    EXPECT_EQ(SummaryOf(*session), u"Hostname: router\nRack 7\r\nleft");
    session->description.SetText(u"");
    for (const auto& [protocol, label] : {std::pair(u"Serial", u"Port: "), std::pair(u"TAPI", u"Phone number: ")}) {
        session->SetTerminalProtocol(protocol);
        EXPECT_EQ(SummaryOf(*session), label);
    }
    session->SetTerminalProtocol(u"no such protocol");
    dynamic_cast<FakeConnect&>(*session->GetTransferConnectConfig()).host = u"files";
    EXPECT_EQ(SummaryOf(*session), u"Hostname: files");
    session->SetTransferProtocol(u"neither");
    EXPECT_EQ(SummaryOf(*session), u"S");
}

TEST(SessionAccess, TheActiveSideIsTheApplications)
{
    SessionScene scene;
    scene.PutSession(u"S", u"a:b");
    const auto session = scene.Open(u"S");
    dynamic_cast<FakeConnect&>(*session->GetTransferConnectConfig()).host = u"files";
    VReportMessageParams report;
    VUnicodeString text;
    EXPECT_TRUE(session->ExpandLogFileName(text, u"%S-%H.log", report));
    EXPECT_EQ(text, u"S-a_b.log");
    EXPECT_TRUE(session->IsLogFileName(u"%S-%H.log", u"s-A_B.log"));
    EXPECT_TRUE(session->IsTerminalConnectable(nullptr));
    session->GetTransferStatusText(text);
    EXPECT_EQ(text, u"to files");

    SetAppNameFunction([] { return VUnicodeString(u"Orvane"); });
    EXPECT_TRUE(session->ExpandLogFileName(text, u"%S-%H.log", report));
    EXPECT_EQ(text, u"S-files.log");
    session->protocolNote = u"why";
    session->SetActiveProtocol(kNoProtocol);
    EXPECT_TRUE(session->protocolNote.IsEmpty());
    session->GetActiveProtocolName(text);
    EXPECT_EQ(text, kNoProtocol);
    EXPECT_FALSE(session->IsTransferConnectable(nullptr));
    EXPECT_TRUE(session->HasTerminalProtocol());
    session->GetTransferStatusText(text);
    EXPECT_TRUE(text.IsEmpty());
    EXPECT_FALSE(session->ExpandLogFileName(text, u"%q", report));
}

TEST(SessionAccess, ACopyIsWholeAndItsOwn)
{
    SessionScene scene;
    scene.PutSession(u"S");
    const auto session = scene.Open(u"S");
    session->AcceptChanges();
    session->secondMarker = true;
    session->SetCallerText(u"mine");
    session->protocolNote = u"note";
    TerminalSide(*session).host = u"changed";
    const auto copy = VUnknownPointer<SessionConfig>::Adopt(session->Clone());
    EXPECT_TRUE(copy->secondMarker);
    EXPECT_TRUE(copy->IsModified());
    EXPECT_EQ(TerminalSide(*copy).host, u"changed");
    VUnicodeString text = u"not touched";
    copy->GetCallerText(text);
    EXPECT_TRUE(text.IsEmpty());
    EXPECT_TRUE(copy->protocolNote.IsEmpty());
    copy->RevertChanges();
    TerminalSide(*copy).host = u"of the copy";
    EXPECT_EQ(TerminalSide(*session).host, u"changed");
}

TEST(SessionAccess, TwoEditorsOfDifferentValuesDoNotUndoEachOther)
{
    SessionScene scene;
    scene.PutSession(u"S");
    const auto session = scene.Open(u"S");
    session->AcceptChanges();
    const auto first = VUnknownPointer<SessionConfig>::Adopt(session->Clone());
    const auto second = VUnknownPointer<SessionConfig>::Adopt(session->Clone());
    first->terminal.scrollback = 9000;
    first->printerSerial.baudRate = 300;
    second->titleBar = u"second";
    TerminalSide(*second).port = 2222;
    session->CopyFrom(first.Get());
    session->CopyFrom(second.Get());
    session->CopyFrom(nullptr);
    EXPECT_EQ(session->terminal.scrollback, 9000);
    EXPECT_EQ(session->printerSerial.baudRate, 300);
    EXPECT_EQ(session->titleBar, u"second");
    EXPECT_EQ(TerminalSide(*session).port, 2222);
}

TEST(SessionAccess, OldFormsAreTakenOverAndStayInTheKey)
{
    SessionScene scene;
    const std::u16string key = u"Sessions\\Old";
    scene.Put(u"Global", u"Line Send Delay", 9u);
    scene.Put(u"Global", u"RemoteFrame Window Size", StoreBlock(44, 7));
    scene.Put(u"Global", u"Remote ListView State", VUnicodeString(u"1,1,1,0,2,10,1,0,20,1,1"));
    VProfileEncodedString script;
    // Flags: the first row hidden, bit 2 the carriage return; then "login:" and "ann" in 8 bits, both zero-terminated.
    script = u"00000000846c6f67696e3a00616e6e00";
    VUnicodeString encoded;
    ASSERT_TRUE(script.Encode(encoded));
    const std::vector<StoreEntry> stored = {
        {key, u"Is Session", 0u},
        {key, u"Login Script", encoded},
        {key, u"Emulation", VUnicodeString(u"SCO-ANSI")},
        {key, u"Enable 80/132 Column Switching", 0u},
        {key, u"Printer Font", StoreBlock(64, 0)},
        {key, u"XModem Send Packet Size", 128u},
        {key, u"Idle Timeout", 60u},
        {key, u"Max Transfer Buffers", 9u},
        {key, u"Use Raw Mode", 1u},
        {key, u"Use Printer Port", 1u},
        {key, u"Of a later version", VUnicodeString(u"stays")},
    };
    scene.store.factory.Fill(stored);
    VReportMessageParams report;
    ASSERT_TRUE(SessionFolderAccess().SaveSession(*scene.Open(u"Old"), false, report));

    const auto again = scene.Open(u"Old");
    LogonActionList actions;
    again->ReadLogonActions(actions);
    ASSERT_EQ(actions.GetCount(), 1u);
    EXPECT_TRUE(actions[0].hide);
    EXPECT_EQ(actions[0].expect, u"login:");
    EXPECT_EQ(actions[0].send, u"ann");
    EXPECT_TRUE(again->sendInitialCarriageReturn);
    EXPECT_TRUE(again->idleCheck);
    EXPECT_FALSE(again->IsModified());
    const std::pair<const char16_t*, StoreValue> expected[] = {
        {u"Is Session", 1u},
        {u"Emulation", VUnicodeString(u"SCOANSI")},
        {u"Enable 80-132 Column Switching", 0u},
        {u"Enable 80/132 Column Switching", 0u},
        {u"Printer Font", StoreBlock(64, 0)},
        {u"XModem Send Packet Size", 0u},
        {u"Idle Timeout", 60u},
        {u"Idle Check", 1u},
        {u"Max Transfer Buffers", 4u},
        {u"Use Raw Mode", 1u},
        {u"Use Printer Port", 0u},
        {u"Line Send Delay", 9u},
        {u"RemoteFrame Window Placement", StoreBlock(44, 7)},
        {u"Remote ListView State", VUnicodeString(u"1,1,1,0,2,10,1,0,20,1,1")},
        {u"Of a later version", VUnicodeString(u"stays")},
        {u"Login Script", encoded},
    };
    for (const auto& [name, value] : expected)
        EXPECT_EQ(scene.Get(u"Old", name), value) << ToUtf8(name);
    // Nothing else differs from a session that had nothing but its mark.
    scene.Put(u"Sessions\\Plain", u"Is Session", 1u);
    ASSERT_TRUE(SessionFolderAccess().SaveSession(*scene.Open(u"Plain"), false, report));
    std::vector<std::u16string> others;
    for (const std::u16string& name : scene.store.NamesIn(key))
        if (scene.Get(u"Old", name) != scene.Get(u"Plain", name))
            others.push_back(name);
    EXPECT_THAT(others, testing::UnorderedElementsAre(
                            u"Login Script", u"Login Script V2", u"Emulation", u"ANSI Color",
                            u"Enable 80/132 Column Switching", u"Enable 80-132 Column Switching", u"Printer Font",
                            u"Idle Timeout", u"Idle Check", u"Use Raw Mode", u"Of a later version"));
    EXPECT_EQ(scene.Get(u"Old", u"Printer Font v2"), std::nullopt) << "the old font counts as stored until it changes";

    scene.store.TakeWrites();
    ASSERT_TRUE(SessionFolderAccess().SaveSession(*again, false, report));
    EXPECT_THAT(scene.store.TakeWrites(), IsEmpty()) << "what was taken over is taken over once";
}

TEST(SessionAccess, AFreshSessionHasALayoutOfItsOwn)
{
    SessionScene scene;
    scene.Put(u"Global", u"Remote ExplorerFrame State", VUnicodeString(u"0,5,6"));
    scene.Put(u"Global", u"Remote ListView State", VUnicodeString(u"1,1,1,0,4,1,0,0,1,0,1,1,0,2,1,1,3"));
    const auto session = VUnknownPointer<SessionConfig>::Adopt(new SessionConfig(u"S", nullptr));
    EXPECT_TRUE(session->remoteExplorerFrameState.first);
    EXPECT_EQ(session->remoteExplorerFrameState.third, -1);
    std::vector<bool> visible;
    for (const auto& column : session->remoteListViewState.columns)
        visible.push_back(column.visible);
    EXPECT_THAT(visible, ElementsAre(true, true, true, false)) << "columns that there are, and no more";
    EXPECT_EQ(session->lineSendDelay, 5);
    EXPECT_FALSE(session->idleCheck);
}

TEST(SessionAccess, ApplyToAllCountsWhatIsThereAndGoesOn)
{
    SessionScene scene;
    for (const char16_t* path : {u"A", u"Lab\\B", u"Lab\\Deep\\C", u"_@@TMP@@_", u"Default"})
        scene.PutSession(path, path);
    scene.Put(u"Sessions\\Lab\\__FolderData__", u"Is Session", 1u); // never a session
    const auto source = scene.Open(u"Default");
    source->AcceptChanges();
    source->terminal.scrollback = 9000;
    SessionCounts counts;
    VReportMessageParams report;
    EXPECT_TRUE(SessionFolderAccess().ApplyToAllSessions(*source, counts, report));
    EXPECT_EQ(counts.updated, 5u);
    EXPECT_EQ(counts.total, 5u);
    EXPECT_EQ(scene.Get(u"Lab\\Deep\\C", u"Scrollback"), StoreValue(9000u));
    EXPECT_EQ(scene.Get(u"Lab\\B", u"SSH2 Host"), StoreValue(VUnicodeString(u"Lab\\B")));
    EXPECT_EQ(scene.Get(u"A", u"Idle Timeout"), StoreValue(300u)) << "by force";

    source->AcceptChanges();
    scene.store.factory.FailWrites(5);
    EXPECT_FALSE(SessionFolderAccess().ApplyToAllSessions(*source, counts, report));
    EXPECT_EQ(counts.updated, 5u) << "one that fails doesn't stop the walk";
    scene.store.factory.FailWrites(0);
    scene.store.factory.SetReadOnly(true);
    EXPECT_TRUE(SessionFolderAccess().ApplyToAllSessions(*source, counts, report));
    EXPECT_EQ(counts.updated, 0u);
    EXPECT_EQ(counts.total, 5u);
}

} // namespace
} // namespace ostrand::test
