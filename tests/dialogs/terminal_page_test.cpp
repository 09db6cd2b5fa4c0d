// The Terminal page.
#include "dialogs/session/terminal_page.h"

#include "core/messages.h"
#include "tests/config/session_scene.h"
#include "tests/support/page_driver.h"
#include "tests/support/temp_folder.h"

#include <gtest/gtest.h>

namespace ostrand::test {
namespace {

using P = SessionTerminalPage;

class ThrowingConnect final : public FakeConnect {
public:
    using FakeConnect::FakeConnect;
    bool SupportsNoOp() const override { throw std::runtime_error("not asked before"); }
};

class TerminalPage : public testing::Test {
protected:
    TerminalPage()
    {
        scene.platform.processes.executablePath = folder.Path("Tessaly");
        scene.PutSession(u"Router1");
        session = scene.Open(u"Router1");
        session->SetTerminalProtocol(u"SSH2");
    }

    SessionScene scene;
    TempFolder folder;
    VUnknownPointer<SessionConfig> session;
};

TEST_F(TerminalPage, ChecksInTheirOrder)
{
    session->minimizeToTray = VTriState::True;
    PageDriver<P> page(*session);
    page.Click(P::SendString).Type(P::StringSeconds, u"9");
    page.Click(P::SendNoOp).Type(P::NoOpSeconds, u"10000000");
    page.Click(P::AudioBell);

    EXPECT_EQ(page.RefusedLeave(), kComponentNotInstalled);
    EXPECT_EQ(page.services.messages.back().text.Find(u"The Tessaly Sentrel"), 0U);
    EXPECT_EQ(page.RefusedLeave(), kAntiIdleStringEmpty) << "the tray's box is clear now";
    EXPECT_EQ(page->GetFocus(), P::IdleString);
    page.Type(P::IdleString, u"x");
    for (const auto& [edit, other] : {std::pair{P::StringSeconds, u"10"}, std::pair{P::NoOpSeconds, u"9999999"}}) {
        for (const char16_t* const text : {u"9", u"10000000", u""}) {
            page.Type(edit, text);
            EXPECT_EQ(page.RefusalText(), u"Please enter a value between 10 and 9999999.");
            EXPECT_EQ(page->GetFocus(), edit);
        }
        page.Type(edit, other);
    }
    EXPECT_TRUE(session->terminal.audioBell) << "nothing is written before all checks have passed";
    EXPECT_TRUE(page.Leave());
    EXPECT_FALSE(session->terminal.audioBell);
    EXPECT_EQ(session->minimizeToTray.value, VTriState::False);
    EXPECT_EQ(session->idleNoOpTimeout.value, 9999999);

    folder.Write("Sentrel.exe", "");
    session->minimizeToTray = VTriState::True;
    PageDriver<P> installed(*session);
    EXPECT_TRUE(installed.Leave());
    EXPECT_EQ(session->minimizeToTray.value, VTriState::True);
}

TEST_F(TerminalPage, NoOpIsOfferedByTheProtocol)
{
    session->idleNoOpCheck = true;
    PageDriver<P> page(*session);
    EXPECT_TRUE(page[P::SendNoOp].IsEnabled());
    EXPECT_TRUE(page[P::NoOpSeconds].IsEnabled());
    page.Click(P::SendNoOp);
    EXPECT_FALSE(page[P::NoOpSeconds].IsEnabled());
    page.Click(P::SendNoOp).Type(P::NoOpSeconds, u"5");
    for (const char16_t* const other : {u"None", u"Gone"}) {
        session->SetTerminalProtocol(other);
        page->Refresh();
        EXPECT_FALSE(page[P::SendNoOp].IsEnabled());
        EXPECT_FALSE(page[P::NoOpSeconds].IsEnabled());
        page.RefusedLeave(); // the box counts, though it can't be reached
    }

    GetConnectProtocolTable()[0].createConfig = [](const VProfileKey* key, ICommonConfig*,
                                                   ConnectProtocolTableElement* element) -> ConnectConfig* {
        return new ThrowingConnect(key, element->name);
    };
    const auto other = scene.Open(u"Router1");
    other->SetTerminalProtocol(u"SSH2");
    PageDriver<P> careful(*other);
    EXPECT_FALSE(careful[P::SendNoOp].IsEnabled()) << "a protocol that throws has none";
}

} // namespace
} // namespace ostrand::test
