// The dialog of a session's options: its tree, the pages of protocols, what a damaged session or module does to it.
#include "core/messages.h"
#include "dialogs/message/optional_message_box.h"
#include "tests/dialogs/session_dialog_scene.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace ostrand::test {
namespace {

using C = SessionConnectPage;
using D = VPropertyTreeDialog;
using testing::HasSubstr;
using testing::IsEmpty;

class SessionOptions : public SessionDialogScene {};

TEST_F(SessionOptions, TheTreeFollowsApplicationsAndProtocols)
{
    const std::string head = "Connection | Connection > Logon Actions | Connection > Protocol";
    const std::string terminal = " | Terminal | Terminal > Emulation | Terminal > Emulation > Modes | "
                                 "Terminal > Emulation > Emacs | Terminal > Log File";
    const struct {
        bool hasTerminal, hasTransfer;
        const char16_t *terminal, *transfer;
        std::string tree;
        const char* log;
    } kRows[] = {
        {true, true, u"SSH2", u"SFTP", head + terminal, "make SSH2, show SSH2, "},
        {true, true, u"ssh2", u"FTP", head + " | Connection > Protocol" + terminal,
         "make SSH2, show SSH2, make FTP, show FTP, "},
        {true, true, u"None", u"SFTP", "Connection | Connection > Protocol", "make SFTP, show SFTP, "},
        {true, false, u"SSH2", u"None", head + terminal, "make SSH2, show SSH2, "},
        {false, true, u"TAPI", u"FTP", head, "make FTP, show FTP, "},
        {true, true, u"Gone", u"Gone too", "Connection", ""},
    };
    for (const auto& row : kRows) {
        SCOPED_TRACE(ToUtf8(row.terminal) + " " + ToUtf8(row.transfer));
        const auto session = Session(row.terminal, row.transfer);
        Install(row.hasTerminal, row.hasTransfer);
        const auto dialog = Dialog(*session);
        dialog->Open();
        EXPECT_EQ(TreeOf(*dialog), row.tree);
        EXPECT_EQ(Take(), row.log);
        EXPECT_EQ(dynamic_cast<SessionConnectPageMultiple*>(dialog->GetActivePage()) != nullptr,
                  row.hasTerminal && row.hasTransfer);
        dialog->Close();
        Take();
    }
}

TEST_F(SessionOptions, PagesComeAndGoWithTheProtocols)
{
    const auto session = Session();
    auto dialog = Dialog(*session);
    dialog->Open();
    auto& page = PageOf<SessionConnectPageMultiple>(*dialog);
    auto& transfers = page.At<VListControl>(C::FileTransfer);
    Take();
    const struct {
        VControlId list;
        const char16_t* protocol;
        const char *log, *terminal, *transfer;
        bool canTransfer;
    } kSteps[] = {
        {C::FileTransfer, u"FTP", "make FTP, show FTP, show SSH2, ", "SSH2", "FTP", true},
        {C::Protocol, u"Serial", "hide SSH2, make Serial, show Serial, hide FTP, ", "Serial", "FTP", false},
        {C::Protocol, u"SSH2", "hide Serial, show SSH2, ", "SSH2", "FTP", true},
        {C::FileTransfer, u"FTP", "show FTP, show SSH2, ", "SSH2", "FTP", true},
        {C::FileTransfer, u"SFTP", "hide FTP, ", "SSH2", "SFTP", true},
        {C::Protocol, u"Telnet", "hide SSH2, make Telnet, show Telnet, make SFTP, show SFTP, ", "Telnet", "SFTP", true},
        {C::Protocol, u"SSH2", "hide Telnet, show SSH2, hide SFTP, ", "SSH2", "SFTP", true},
        {C::Protocol, u"None", "hide SSH2, show SFTP, ", "None", "SFTP", true},
    };
    for (const auto& step : kSteps) {
        SCOPED_TRACE(ToUtf8(step.protocol));
        ChooseProtocol(page, step.list, step.protocol);
        EXPECT_EQ(Take(), step.log);
        VUnicodeString name;
        session->GetTerminalProtocolName(name);
        EXPECT_EQ(ToUtf8(name), step.terminal);
        session->GetTransferProtocolName(name);
        EXPECT_EQ(ToUtf8(name), step.transfer) << "a forced None reaches the session when the page is left";
        EXPECT_EQ(transfers.IsEnabled(), step.canTransfer);
        EXPECT_EQ(dialog->GetActivePage(), &page);
        EXPECT_TRUE(step.canTransfer || transfers.GetSelectedText() == u"None");
    }
    EXPECT_EQ(TreeOf(*dialog), "Connection | Connection > Protocol");
    dialog->Close();
    dialog.reset();
    EXPECT_EQ(Take(), "remove SSH2, release SSH2, remove Telnet, release Telnet, remove Serial, release Serial, "
                      "remove SFTP, release SFTP, remove FTP, release FTP, ");
}

TEST_F(SessionOptions, ModulesFailAlone)
{
    const auto session = Session(u"Telnet", u"FTP");
    static int asked = 0;
    asked = 0;
    GetConnectProtocolTable()[Ftp].pagesFactory = [](auto...) -> IProtocolPages* { return ++asked, nullptr; };
    throwing = "show Telnet";
    auto dialog = Dialog(*session);
    dialog->Open();
    EXPECT_EQ(router.messages.size(), 1u);
    EXPECT_EQ(router.messages.back().code, kModuleThrew);
    auto& page = PageOf<SessionConnectPageMultiple>(*dialog);
    for (const char16_t* const protocol : {u"SFTP", u"FTP"})
        ChooseProtocol(page, C::FileTransfer, protocol);
    EXPECT_EQ(asked, 2) << "a row without pages is asked each time";
    throwing = "make SSH2";
    ChooseProtocol(page, C::Protocol, u"SSH2");
    EXPECT_EQ(router.messages.size(), 2u);
    const std::string tree = TreeOf(*dialog);
    for (const int row : {-1, 100}) {
        EXPECT_THROW(dialog->ShowSessionProtocolPages(row), VArray<ProtocolPageSet::Pages>::OutOfRange);
        EXPECT_THROW(dialog->UpdateSessionProtocolPages(-1, row, -1), VArray<ProtocolPageSet::Pages>::OutOfRange);
    }
    dialog->HidePage(&page);
    EXPECT_NE(dialog->GetActivePage(), &page) << "the tree's choice no longer waits for anything";
    dialog->ShowPage(&page);
    EXPECT_EQ(TreeOf(*dialog), tree);
    Take();
    throwing = "remove Telnet";
    dialog->Close();
    EXPECT_THAT(Take(), HasSubstr("release Telnet, "));
}

TEST_F(SessionOptions, WhoMayOnlyReadIsToldOnce)
{
    const auto session = Session();
    services.ExpectDialog([](VDialog& shown) {
        EXPECT_EQ(shown.GetTitle(), u"Session Options - Router (Read Only)");
        EXPECT_FALSE(shown.Control(D::Ok).IsEnabled());
        FormDriver(shown).Key(u"VK_RETURN");
        EXPECT_TRUE(shown.IsRunning());
        EXPECT_EQ(Global().suppressReadOnlySessionOptionsWarning, 1);
        FormDriver(shown).Key(u"VK_ESCAPE");
    });
    services.Expect({.call = Call::Dialog, .text = {}, .drive = [](VDialog& box) {
                         EXPECT_THAT(ToUtf8(box.Control(OptionalMessageBox::Text).GetText()),
                                     HasSubstr("locked session.  You will not"));
                         EXPECT_FALSE(box.Control(OptionalMessageBox::Second).IsVisible());
                         FormDriver(box).Click(OptionalMessageBox::NeverAgain).Key(u"VK_RETURN");
                     }});
    EXPECT_EQ(Dialog(*session, {.mode = kModeReadOnly})->DoModal(), kResultCancel);
    services.ExpectDialog([](VDialog& shown) { FormDriver(shown).Key(u"VK_ESCAPE"); });
    EXPECT_EQ(Dialog(*session, {.mode = kModeReadOnly})->DoModal(), kResultCancel) << "and no prompt comes";
    EXPECT_EQ(Dialog(*session, {.mode = kModeSeveralSessions})->GetTitle(), u"Session Options - multiple");
}

TEST_F(SessionOptions, TheEntryPointRunsTheDialog)
{
    SetDialogServices(&services);
    const auto session = Session();
    EXPECT_EQ(ShowSessionOptionsDialog(nullptr, nullptr, nullptr, 0, false, false, 0, false, 0, false, nullptr),
              kResultCancel);
    services.ExpectDialog([](VDialog& shown) {
        auto& dialog = dynamic_cast<SessionOptionsDialog&>(shown);
        auto& page = PageOf<SessionLogFilePage>(dialog);
        ASSERT_TRUE(dialog.SelectPage(page));
        FormDriver(page).Click(SessionLogFilePage::Raw);
        FormDriver(dialog).Click(D::Ok);
    });
    EXPECT_EQ(ShowSessionOptionsDialog(nullptr, session.Get(), nullptr, 0, false, true, 0, false, 0, false, nullptr),
              kResultOk);
    EXPECT_TRUE(session->rawLog);
    const auto dialog = Dialog(*session);
    dialog->Open();
    EXPECT_EQ(dialog->GetActivePage(), &PageOf<SessionLogFilePage>(*dialog)) << "the next dialog begins there";
    dialog->Close();
    const auto fresh = Dialog(*session, {.isNewSession = true});
    fresh->Open();
    EXPECT_EQ(fresh->GetActivePage()->GetFocus(), C::Name);
    fresh->Close();
    SetDialogServices(nullptr);
}

TEST_F(SessionOptions, PagesThatWereNeverSeenDecideNothing)
{
    const auto session = Session();
    session->newLogFileAtMidnight = true; // without the day in the log's name
    session->AcceptChanges();
    auto dialog = Dialog(*session);
    dialog->Open();
    FormDriver(*dialog).Click(D::Ok);
    EXPECT_EQ(dialog->Close(), kResultOk);
    EXPECT_THAT(Modified(*session), IsEmpty());

    dialog = Dialog(*session);
    dialog->Open();
    auto& logFile = PageOf<SessionLogFilePage>(*dialog);
    ASSERT_TRUE(dialog->SelectPage(logFile));
    FormDriver(logFile).Click(SessionLogFilePage::Raw);
    services.ExpectMessage();
    FormDriver(*dialog).Click(D::Ok);
    EXPECT_EQ(services.messages.back().code, kMidnightLogNeedsDay);
    EXPECT_EQ(logFile.GetFocus(), SessionLogFilePage::FileName);
    EXPECT_THAT(Modified(*session), IsEmpty());
    FormDriver(*dialog).Click(D::Cancel);
    EXPECT_EQ(dialog->Close(), kResultCancel);

    session->newLogFileAtMidnight = false;
    session->SetTransferProtocol(u"Gone");
    session->AcceptChanges();
    dialog = Dialog(*session);
    dialog->Open();
    ASSERT_NE(dynamic_cast<SessionLogFilePage*>(dialog->GetActivePage()), nullptr) << "remembered";
    FormDriver(*dialog).Click(D::Ok);
    EXPECT_EQ(dialog->Close(), kResultOk);
    EXPECT_THAT(Modified(*session), IsEmpty());
    EXPECT_EQ(session->transferProtocol.GetProtocolName(), u"Gone");
}

TEST_F(SessionOptions, WithoutAnyProtocol)
{
    const auto session = Session();
    GetConnectProtocolTable().RemoveAll();
    const auto dialog = Dialog(*session);
    dialog->Open();
    EXPECT_EQ(TreeOf(*dialog), "Connection");
    FormDriver(*dialog).Click(D::Ok);
    EXPECT_EQ(dialog->Close(), kResultOk);
    EXPECT_THAT(Modified(*session), IsEmpty());
}

} // namespace
} // namespace ostrand::test
