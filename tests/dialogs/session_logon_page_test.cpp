// The Logon Actions page: its list, secrets in it, the script, and a protocol's panel.
#include "core/messages.h"
#include "dialogs/session/expect_send_dialog.h"
#include "profile/xor_text.h"
#include "tests/dialogs/session_dialog_scene.h"
#include "tests/support/fake_protection.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace ostrand::test {
namespace {

using P = SessionLogonScriptsPage;
using E = ExpectSendPropertiesDialog;
using testing::HasSubstr;
using testing::Not;

constexpr auto kPanel = layout::Page(u"Panel", layout::Field(u"&Port:", layout::Edit(1)));

/// What a protocol's module may bring, with every fault that it may have.
class TestPanel final : public LogonPanel {
public:
    TestPanel() : LogonPanel(kPanel)
    {
        ++alive;
        ++made;
    }
    ~TestPanel() override { --alive; }

    static inline int alive = 0, made = 0;
    static inline int value = 0;
    static inline bool throwsAtExchange = false, throwsAtWrite = false;

private:
    void DoDataExchange(VDataExchange& dx) override
    {
        if (throwsAtExchange)
            throw std::runtime_error("panel trouble");
        int number = value;
        DDX_Text(dx, 1, number);
        DDV_Range(dx, 1, number, 0, 99);
        dx.ThenWrite([number] {
            if (throwsAtWrite)
                throw 1;
            value = number;
        });
    }
};

class LogonPage : public SessionDialogScene {
protected:
    static LogonActionList Actions(const SessionConfig& session)
    {
        LogonActionList actions;
        session.ReadLogonActions(actions);
        return actions;
    }
    /// The first letters of what is expected.
    static std::string Order(P& page)
    {
        std::string order;
        for (const VReportControl::Row& row : page.At<VReportControl>(P::Actions).GetRows())
            order += ToUtf8(row.cells[0]).substr(0, 1);
        return order;
    }
    /// As stored; the fields are parted by "|".
    static VUnicodeString Script(std::u16string text)
    {
        std::replace(text.begin(), text.end(), u'|', u'\x1F');
        return EncodeXor(text);
    }
    static void GivePanels(std::initializer_list<Row> rows)
    {
        for (const Row row : rows)
            GetConnectProtocolTable()[row].logonPanelFactory = [](VPropertyTreePage*, ISessionConfig*) -> LogonPanel* {
                return new TestPanel;
            };
    }
};

TEST_F(LogonPage, AnEmptyListBeginsWithTheUsualTwo)
{
    const auto session = Session();
    PageDriver<P> page(*session);
    EXPECT_TRUE(page.Leave());
    ASSERT_EQ(Actions(*session).GetCount(), 2u);
    EXPECT_EQ(Actions(*session)[0].expect, u"ogin:");
    EXPECT_TRUE(Actions(*session)[1].hide);
    EXPECT_FALSE(session->useLoginScript);
    session->useLoginScript = true;
    page.Return();
    EXPECT_TRUE(page.At<VCheckControl>(P::Automate).IsChecked()) << "read again each time";
}

TEST_F(LogonPage, WhatCannotBeReadIsKept)
{
    const FakeProtection protection;
    const struct {
        const char* what;
        VUnicodeString stored;
        const char* order;
        bool isWhole;
    } kRows[] = {
        {"another user's", u"CAPI:00112233", "", false},
        {"no digits at all", u"what is this?", "", false},
        {"an action without its end", Script(u"0|a|b|1|c"), "a", false},
        {"another way to say yes", Script(u"yes|a|b"), "a", true},
    };
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.what);
        scene.PutSession(u"Lab\\Router");
        scene.Put(u"Sessions\\Lab\\Router", u"Login Script V2", row.stored);
        scene.Put(u"Sessions\\Lab\\Router", u"Use Login Script", 0u);
        const auto session = scene.Open(u"Lab\\Router");
        PageDriver<P> page(*session);
        EXPECT_EQ(Order(*page), row.order);
        EXPECT_EQ(page[P::Unread].IsVisible(), !row.isWhole);
        page.Click(P::Automate);
        ASSERT_TRUE(page.Leave());
        VReportMessageParams report;
        ASSERT_TRUE(SessionFolderAccess().SaveSession(*session, true, report));
        EXPECT_EQ(scene.Get(u"Lab\\Router", u"Use Login Script"), StoreValue(1u));
        EXPECT_EQ(scene.Get(u"Lab\\Router", u"Login Script V2"), StoreValue(row.stored));

        page.Return();
        for (const int result : {kResultCancel, kResultOk}) {
            EXPECT_EQ(page[P::Unread].IsVisible(), !row.isWhole);
            page.services.ExpectDialog([result](VDialog& dialog) {
                FormDriver(dialog).Type(E::Expect, u"z").Click(result == kResultOk ? E::Ok : E::Cancel);
            });
            page.Click(P::Add);
        }
        EXPECT_FALSE(page[P::Unread].IsVisible());
        ASSERT_TRUE(page.Leave());
        ASSERT_TRUE(SessionFolderAccess().SaveSession(*session, true, report));
        PageDriver<P> again(*scene.Open(u"Lab\\Router"));
        EXPECT_EQ(Order(*again), row.order + std::string("z"));
    }
}

TEST_F(LogonPage, ControlsGoWithTheSelection)
{
    const auto session = Session();
    LogonActionList actions;
    for (const char16_t* const expect : {u"a", u"b", u"c"})
        actions.Append({false, expect, u"x"});
    session->WriteLogonActions(actions);
    PageDriver<P> page(*session);
    const auto enabled = [&] {
        std::string text;
        for (const VControlId id : {P::SendReturn, P::Actions, P::Add, P::Edit, P::Delete, P::Up, P::Down})
            text += page[id].IsEnabled() ? '1' : '0';
        return text;
    };
    EXPECT_EQ(enabled(), "0000000");
    page.Click(P::Automate);
    EXPECT_EQ(enabled(), "1111101");
    page.Rows(P::Actions, {1});
    EXPECT_EQ(enabled(), "1111111");
    page.Rows(P::Actions, {});
    EXPECT_EQ(enabled(), "1110000");
    page.Rows(P::Actions, {2});
    EXPECT_EQ(enabled(), "1111110");

    page.Click(P::Up).Click(P::Up);
    EXPECT_EQ(Order(*page), "cab");
    page.Click(P::Down);
    EXPECT_EQ(Order(*page), "acb");
    EXPECT_EQ(page->GetFocus(), P::Down) << "so that it can be pressed again";
    for (const char* const left : {"ab", "a", ""}) {
        page.Click(P::Delete);
        EXPECT_EQ(Order(*page), left);
    }
    EXPECT_EQ(page->GetFocus(), P::Add);
    EXPECT_EQ(enabled(), "1110000");
    EXPECT_TRUE(page.Leave());
    EXPECT_TRUE(Actions(*session).IsEmpty());
}

TEST_F(LogonPage, SecretsStayHidden)
{
    const auto session = Session();
    PageDriver<P> page(*session);
    page.Click(P::Automate);
    page.services.ExpectDialog([](VDialog& dialog) {
        FormDriver(dialog).Type(E::Expect, u"word:").Type(E::Send, u"visible").Click(E::Hide);
        EXPECT_EQ(dialog.Control(E::Send).GetText(), u"visible") << "hiding keeps the text";
        FormDriver(dialog).Click(E::Hide);
        EXPECT_EQ(dialog.Control(E::Send).GetText(), u"") << "and showing doesn't give it away";
        FormDriver(dialog).Click(E::Hide).Type(E::Send, u"sesame").Key(u"VK_RETURN");
    });
    page.Click(P::Add);
    VReportControl& list = page.At<VReportControl>(P::Actions);
    EXPECT_EQ(list.GetSelected(), 2);
    EXPECT_EQ(list[2].cells, (std::vector<VUnicodeString>{u"word:", u"******", u"Yes"}));
    EXPECT_THAT(ToUtf8(list.Dump()), Not(HasSubstr("sesame")));
    for (const int result : {kResultCancel, kResultOk}) {
        page.services.ExpectDialog([result](VDialog& dialog) {
            EXPECT_EQ(dialog.Control(E::Send).GetText(), u"sesame");
            EXPECT_TRUE(dialog.At<VEditControl>(E::Send).IsMasked());
            FormDriver(dialog).Type(E::Expect, u"pass:").Click(result == kResultOk ? E::Ok : E::Cancel);
        });
        page.DoubleClick(P::Actions, 2);
        EXPECT_EQ(list[2].cells[0], result == kResultOk ? u"pass:" : u"word:");
    }
    EXPECT_EQ(page->GetFocus(), P::Edit);
    EXPECT_TRUE(page.Leave());
    EXPECT_EQ(Actions(*session)[2].send, u"sesame");
    EXPECT_TRUE(Actions(*session)[2].send.IsSensitive());
}

TEST_F(LogonPage, TenThousandActionsAndLongTexts)
{
    const auto session = Session();
    const VUnicodeString text(std::u16string(100000, u'x'));
    LogonActionList actions;
    for (int i = 0; i < 10000; ++i)
        actions.Append({true, u"expect", u"send"});
    actions.Append({true, text, text});
    session->WriteLogonActions(actions);
    PageDriver<P> page(*session);
    page.Click(P::Automate).Rows(P::Actions, {10000}).Click(P::Up).Rows(P::Actions, {0}).Click(P::Delete);
    EXPECT_TRUE(page.Leave());
    EXPECT_EQ(Actions(*session).GetCount(), 10000u);
    EXPECT_EQ(Actions(*session)[9998].send, text);
}

TEST_F(LogonPage, BrowsingForTheScript)
{
    const auto session = Session();
    scene.platform.processes.executablePath = "/opt/apps/Tessaly";
    PageDriver<P> page(*session);
    page.Click(P::UseScript);
    page.services.ExpectCancelled(Call::File);
    page.Click(P::Browse);
    EXPECT_EQ(page.services.files.back().path, u"/opt/apps/login.vbs");
    page.Type(P::ScriptFile, u"/home/%S.vbs");
    page.services.ExpectFile(u"/home/other.vbs");
    page.Click(P::Browse);
    EXPECT_EQ(page.services.files.back().path, u"/home/Router.vbs");
    page.Click(P::UseScript);
    EXPECT_FALSE(page[P::ScriptFile].IsEnabled());
    EXPECT_TRUE(page.Leave());
    EXPECT_EQ(session->scriptFilename.Value(), u"/home/other.vbs");
}

TEST_F(LogonPage, ThePanelGoesWithTheProtocol)
{
    GivePanels({Ssh2, Telnet});
    const auto session = Session();
    const auto dialog = Dialog(*session);
    dialog->Open();
    auto& page = PageOf<P>(*dialog);
    EXPECT_EQ(TestPanel::alive, 0) << "not before the page is seen";
    ASSERT_TRUE(dialog->SelectPage(page));
    auto& place = page.At<VPlaceControl>(P::Panel);
    ASSERT_EQ(TestPanel::alive, 1);
    FormDriver(*place.GetContent()).Type(1, u"100");
    services.ExpectMessage();
    auto& connect = PageOf<SessionConnectPageMultiple>(*dialog);
    EXPECT_FALSE(dialog->SelectPage(connect)) << "a failed check of the panel's is the page's";
    EXPECT_EQ(place.GetContent()->GetFocus(), 1);
    FormDriver(*place.GetContent()).Type(1, u"42");
    ASSERT_TRUE(dialog->SelectPage(connect));
    EXPECT_EQ(TestPanel::value, 42);
    const int before = TestPanel::made;
    ChooseProtocol(connect, SessionConnectPage::Protocol, u"Telnet");
    EXPECT_EQ(TestPanel::made, before + 1);
    EXPECT_EQ(TestPanel::alive, 1);
    ChooseProtocol(connect, SessionConnectPage::Protocol, u"Serial");
    EXPECT_EQ(TestPanel::alive, 0);
    EXPECT_EQ(place.GetContent(), nullptr);
    dialog->Close();
}

TEST_F(LogonPage, APanelThatThrowsCostsNoSetting)
{
    GivePanels({Ssh2, Telnet});
    for (bool* const fault : {&TestPanel::throwsAtExchange, &TestPanel::throwsAtWrite}) {
        const auto session = Session();
        {
            PageDriver<P> page(*session);
            *fault = true;
            page.Click(P::Automate);
            EXPECT_TRUE(page.Leave());
            EXPECT_TRUE(session->useLoginScript);
            EXPECT_EQ(Actions(*session).GetCount(), 2u);
            page.Return();
            EXPECT_EQ(page.At<VPlaceControl>(P::Panel).GetContent() == nullptr, TestPanel::throwsAtExchange)
                << "what can't be shown isn't saved";
        }
        PageDriver<P> again(*session);
        EXPECT_TRUE(again.Leave());
        *fault = false;
        EXPECT_EQ(router.messages.back().code, kModuleThrew);
    }
    using Factory = LogonPanel* (*)(VPropertyTreePage*, ISessionConfig*);
    for (const Factory factory :
         {Factory(
              [](VPropertyTreePage*, ISessionConfig*) -> LogonPanel* { throw std::runtime_error("no panel today"); }),
          Factory([](VPropertyTreePage*, ISessionConfig*) -> LogonPanel* { return nullptr; })}) {
        GetConnectProtocolTable()[Ssh2].logonPanelFactory = factory;
        const auto session = Session();
        PageDriver<P> page(*session);
        EXPECT_EQ(page.At<VPlaceControl>(P::Panel).GetContent(), nullptr);
        EXPECT_EQ(TestPanel::alive, 0);
        EXPECT_TRUE(page.Leave());
    }
}

} // namespace
} // namespace ostrand::test
