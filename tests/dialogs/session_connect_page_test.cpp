// The Connection page: names, protocols that are not there, and what is written when.
#include "core/messages.h"
#include "tests/dialogs/session_dialog_scene.h"

#include <gtest/gtest.h>

namespace ostrand::test {
namespace {

using P = SessionConnectPage;

class ConnectPage : public SessionDialogScene {};

TEST_F(ConnectPage, NamesAreCheckedWhenThePageIsLeft)
{
    scene.PutSession(u"Lab\\Taken");
    const auto session = Session();
    PageDriver<SessionConnectPageMultiple> page(*session, SessionOptionsSetup{});
    const struct {
        const char16_t* name;
        const char16_t* refusal;
    } kRows[] = {
        {u" \t ", u"The name must be specified"},
        {u"a*b:c", u"The name contains an illegal character: ' : '"},
        {u"clock$", u"clock$ is a reserved device name on Windows and cannot be used as a name."},
        {u"TAKEN", u"'TAKEN' is already in use."},
    };
    for (const auto& [name, refusal] : kRows) {
        page.Type(P::Name, name);
        EXPECT_EQ(page.RefusalText(), refusal);
        EXPECT_EQ(page->GetFocus(), P::Name);
        EXPECT_EQ(session->GetSessionName(), u"Router");
    }
    EXPECT_EQ(page.services.messages.back().code, kNameInUse);
    EXPECT_EQ(page.services.messages.back().icon, VIcon::Warning);
    SetTextHook([](std::u16string_view text) { return VUnicodeString(text) + u"~"; });
    page.Type(P::Name, u"nul");
    EXPECT_EQ(page.RefusalText(), u"nul is a reserved device name on Windows and cannot be used as a name.~");
    SetTextHook(nullptr);
    for (const char16_t* const name : {u"ROUTER", u"  COM10 ", u"Foo.", u"M\u00fcller"}) {
        page.Type(P::Name, name);
        ASSERT_TRUE(page.Leave());
        EXPECT_EQ(session->GetSessionName(), VUnicodeString(name).Trimmed());
        page.Return();
        EXPECT_TRUE(page.Leave()) << "a name that was taken on is the session's own";
        page.Return();
    }
    page.Type(P::Name, u"");
    EXPECT_TRUE(page->UpdateData(VDataExchange::Save)) << "only leaving checks";
    EXPECT_EQ(session->GetPathName(), u"Lab\\Router") << "moving a session is its application's business";
}

TEST_F(ConnectPage, NewFixedAndReadOnlyNames)
{
    scene.PutSession(u"Lab\\Taken");
    SessionConfig fresh(u"New", nullptr);
    fresh.SetPathName(u"Lab");
    {
        PageDriver<SessionConnectPageSingle> page(fresh, SessionOptionsSetup{.isNewSession = true});
        page.Type(P::Name, u"Taken");
        EXPECT_EQ(page.RefusedLeave(), kNameInUse);
        page.Type(P::Name, u"Free");
        EXPECT_TRUE(page.Leave());
    }
    fresh.SetSessionName(u"con");
    fresh.SetTerminalProtocol(u"Gone");
    PageDriver<SessionConnectPageSingle> fixed(fresh, SessionOptionsSetup{.lockName = true});
    EXPECT_FALSE(fixed[P::Name].IsEnabled());
    EXPECT_EQ(fixed.RefusedLeave(), kProtocolNotAvailable) << "the name isn't looked at";
    EXPECT_EQ(fixed->GetFocus(), P::Protocol);
    PageDriver<SessionConnectPageSingle> readOnly(fresh, SessionOptionsSetup{.mode = kModeReadOnly});
    EXPECT_FALSE(readOnly[P::Name].IsEnabled());
    EXPECT_FALSE(readOnly[P::Protocol].IsEnabled());
    EXPECT_TRUE(readOnly.Leave()) << "nobody is held by what can't be mended";
}

TEST_F(ConnectPage, AMissingProtocolMustBeReplaced)
{
    const auto session = Session(u"Gone", u"Lost");
    PageDriver<SessionConnectPageMultiple> page(*session, SessionOptionsSetup{});
    VListControl& list = page.At<VListControl>(P::Protocol);
    EXPECT_EQ(list.GetSelectedText(), u"Gone");
    page.Type(P::Name, u"");
    EXPECT_EQ(page.RefusalText(), u"The name must be specified") << "the first of several faults speaks";
    page.Type(P::Name, u"Router");
    EXPECT_EQ(page.RefusedLeave(), kProtocolNotAvailable);
    EXPECT_EQ(page->GetFocus(), P::Protocol);
    ChooseProtocol(*page, P::Protocol, u"Telnet");
    EXPECT_EQ(page.RefusedLeave(), kProtocolNotAvailable);
    EXPECT_EQ(page->GetFocus(), P::FileTransfer);
    ChooseProtocol(*page, P::FileTransfer, u"SFTP");
    page.services.ExpectMessage();
    ChooseProtocol(*page, P::Protocol, u"Gone");
    EXPECT_EQ(page.services.messages.back().code, kProtocolNotAvailable);
    EXPECT_EQ(list.GetSelectedText(), u"Telnet") << "once left, it can't be taken up again";
    EXPECT_EQ(session->terminalProtocol.GetProtocolName(), u"Telnet");

    ChooseProtocol(*page, P::Protocol, u"None");
    ChooseProtocol(*page, P::FileTransfer, u"None");
    EXPECT_EQ(page.RefusalText(), u"Both selected protocols cannot be 'None'.");
    EXPECT_EQ(page->GetFocus(), P::Protocol);
    ChooseProtocol(*page, P::Protocol, u"Serial");
    EXPECT_TRUE(page.Leave());
}

TEST_F(ConnectPage, NoProtocolsAndLongTexts)
{
    GetConnectProtocolTable().RemoveAll();
    SessionConfig session(u"Old", nullptr);
    session.description.SetText(std::u16string(100000, u'x').c_str());
    PageDriver<SessionConnectPageSingle> page(session, SessionOptionsSetup{});
    EXPECT_EQ(page.At<VListControl>(P::Protocol).GetCount(), 0);
    page.Type(P::Name, std::u16string(100000, u'n'));
    EXPECT_TRUE(page.Leave()) << "where nothing can be chosen, nothing is asked for";
    EXPECT_EQ(session.description.GetText().GetLength(), 100000u);
    EXPECT_EQ(session.GetSessionName().GetLength(), 100000u);
}

} // namespace
} // namespace ostrand::test
