// The host program's way from a session in a store to the changed one, by a user's hands on a real display.
#include "config/global/global_config.h"
#include "config/session/session_access.h"
#include "config/session/session_paths.h"
#include "core/entry.h"
#include "examples/host/application.h"
#include "examples/host/session_command.h"
#include "tests/host/screen_user.h"

#include <QApplication>
#include <QDir>
#include <QTemporaryDir>
#include <QTest>
#include <QThread>
#include <QTimer>

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <optional>

namespace ostrand::test {
namespace {

constexpr auto kEdit = QAccessible::EditableText;
constexpr auto kList = QAccessible::ComboBox;
constexpr auto kEntry = QAccessible::ListItem;
constexpr auto kBox = QAccessible::CheckBox;
constexpr auto kPage = QAccessible::TreeItem;
constexpr auto kButton = QAccessible::Button;

class OnScreen : public testing::Test {
protected:
    OnScreen()
    {
        std::filesystem::copy(OSTRAND_EXAMPLE, folder.path().toStdString(), std::filesystem::copy_options::recursive);
        arguments.config = folder.path().toStdString();
        arguments.modules = OSTRAND_EXAMPLE_PROTOCOLS;
        application.emplace(arguments);
    }

    /// Shows the session's dialog, and what comes behind it, while `acts` use it.
    int Use(const std::string& session, const std::function<void()>& acts)
    {
        arguments.session = session;
        const std::unique_ptr<QThread> thread(QThread::create(acts));
        QTimer rescue;
        rescue.callOnTimeout([&] {
            if (user.hasFailed)
                QApplication::closeAllWindows();
        });
        rescue.start(100);
        thread->start();
        const int code = host::ShowSession(arguments);
        EXPECT_TRUE(QTest::qWaitFor([&] { return thread->isFinished(); }, 60000));
        return code;
    }

    QTemporaryDir folder;
    host::Arguments arguments;
    std::optional<host::Application> application;
    ScreenUser user;
};

TEST_F(OnScreen, AConnectionIsEditedAndSaved)
{
    const int code = Use("Routers\\Core\\Router 1", [&] {
        user.AwaitWindow("Session Options - Router 1");
        user.Click({kEdit, "Name"});
        user.AwaitFocus({kEdit, "Name"});
        user.Press("ctrl+a");
        user.Type("Router 9");
        user.AwaitText({kEdit, "Name"}, "Router 9");
        user.Press("Tab");
        user.AwaitFocus({kList, "Terminal"});
        user.Click({kList, "Terminal"});
        user.Click({kEntry, "Telnet"});
        user.AwaitText({kList, "Terminal"}, "Telnet");
        user.Click({kPage, "Telnet"});
        user.Click({kPage, "Connection"});
        user.Press("alt+e"); // "D&escription"
        user.AwaitFocus({kEdit, "Description"});
        user.Press("ctrl+a");
        user.Type("Rack 9");
        user.Press("Return");
        user.Type("Shelf 2");
        user.AwaitText({kEdit, "Description"}, "Rack 9\nShelf 2");
        user.Click({kPage, "Log File"});
        user.Click({kBox, "Raw log"});
        user.AwaitCheck({kBox, "Raw log"}, true);
        user.Click({kButton, "OK"});
    });
    ASSERT_EQ(code, 0);

    EXPECT_FALSE(SessionExists(u"Routers\\Core\\Router 1"));
    const VUnknownPointer<SessionConfig> saved = SessionFolderAccess(true).OpenSession(u"Routers\\Core\\Router 9");
    ASSERT_TRUE(saved);
    VUnicodeString protocol;
    saved->GetTerminalProtocolName(protocol);
    EXPECT_EQ(protocol, u"Telnet");
    EXPECT_TRUE(saved->rawLog);
    EXPECT_EQ(saved->description.GetText(), u"Rack 9\r\nShelf 2");
    GlobalConfig* global = nullptr;
    ReloadGlobalConfig(global);
    EXPECT_EQ(global->sessionOptionsTreeSelected, u"Terminal > Log File");
}

TEST_F(OnScreen, EscapeLeavesTheStoreAsItWas)
{
    Use("Routers\\Branch\\Switch 1", [&] {
        user.AwaitWindow("Session Options - Switch 1");
        user.Press("ctrl+f");
        user.AwaitFocus({kEdit, "Search"});
        user.Type("raw log");
        user.Press("Return");
        user.AwaitFocus({kBox, "Raw log"});
        user.Press("space");
        user.AwaitCheck({kBox, "Raw log"}, true);
        user.Press("Escape");
    });
    EXPECT_FALSE(SessionFolderAccess(true).OpenSession(u"Routers\\Branch\\Switch 1")->rawLog);
}

TEST_F(OnScreen, ADeletedSessionIsSavedOnlyWhereTheUserWantsIt)
{
    for (const char* const answer : {"No", "Yes"}) {
        Use("Console", [&] {
            user.AwaitWindow("Session Options - Console");
            user.Click({kEdit, "Description"});
            user.Type(answer);
            std::filesystem::remove(arguments.config + "/Sessions/Console.ini");
            user.Press("Tab"); // from a text of several lines Return doesn't end the dialog
            user.Press("Return");
            user.Click({kButton, answer});
        });
        EXPECT_EQ(SessionExists(u"Console"), std::string_view(answer) == "Yes");
        std::filesystem::copy_file(std::string(OSTRAND_EXAMPLE) + "/Sessions/Console.ini",
                                   arguments.config + "/Sessions/Console.ini",
                                   std::filesystem::copy_options::overwrite_existing);
    }
}

} // namespace
} // namespace ostrand::test

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
