// The dialogs that users see, in every look and at the width of a small screen.
#include "tests/dialogs/session_dialog_scene.h"
#include "tests/qt/layout_checks.h"
#include "tests/qt/look.h"

#include "dialogs/download/offer_download_dialog.h"
#include "dialogs/message/optional_message_box.h"
#include "dialogs/prompts/firewall_credential_dialog.h"
#include "dialogs/session/expect_send_dialog.h"
#include "dialogs/session/logon_panel.h"
#include "platform/qt/metrics.h"

#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QSplitter>

namespace ostrand::test {
namespace {

using D = VPropertyTreeDialog;

constexpr int kFewestOnScreen = 44; // characters side by side, that a dialog with a tree can be shown whole

constexpr auto kPanel =
    layout::Page(u"Panel", layout::Group(u"Modem", layout::Field(u"&Dialling prefix:", layout::Edit(1, layout::Grow)),
                                         layout::Field(u"&Line:", layout::DropList(2, layout::Item(u"First"))),
                                         layout::Check(3, u"&Redial")));

class ModemPanel final : public LogonPanel {
public:
    ModemPanel() : LogonPanel(kPanel) {}
};

class QtDialogs : public SessionDialogScene {
protected:
    QtDialogs()
    {
        GetConnectProtocolTable()[Ssh2].logonPanelFactory = [](VPropertyTreePage*, ISessionConfig*) -> LogonPanel* {
            return new ModemPanel;
        };
    }
    static void Check(VDialog& dialog, const QString& name)
    {
        SCOPED_TRACE(name.toStdString());
        ShownDialog shown(dialog);
        CheckControls(dialog);
        CheckTexts(shown.window);
        shown.Save(name);
    }
};

QString PictureName(const VPropertyTreePage& page, const Look::Of& look)
{
    return qt::ToQt(page.GetPath()).remove(' ') + QStringLiteral("-%1").arg(QLatin1String(look.name));
}

TEST_F(QtDialogs, PagesOfASessionAreWholeInWidth)
{
    for (const Look::Of& of : kLooks) {
        SCOPED_TRACE(of.name);
        const Look look(of);
        const auto session = Session();
        const auto dialog = Dialog(*session);
        ShownDialog shown(*dialog);
        const QSize screen = shown.window.screen()->availableSize();
        const QScrollArea& area = *shown.window.findChild<QScrollArea*>();
        for (VPropertyTreePage* const page : dialog->GetVisiblePages()) {
            SCOPED_TRACE(ToUtf8(page->GetPath()));
            ASSERT_TRUE(dialog->SelectPage(*page));
            ShownDialog::Settle();
            CheckControls(*page);
            CheckTexts(shown.window);
            if (screen.width() >= qt::CharactersWidth(shown.window, kFewestOnScreen)) {
                EXPECT_LE(shown.window.width(), screen.width());
                EXPECT_LE(shown.window.height(), screen.height());
            }
            const bool hasRoom = screen.width() >= 800 && of.scale < 2 && !of.isPseudo;
            EXPECT_FALSE(hasRoom && area.horizontalScrollBar()->isVisible());
            const QSplitter& splitter = *shown.window.findChild<QSplitter*>();
            if (area.horizontalScrollBar()->isVisible()) {
                EXPECT_GE(shown.window.width(), screen.width() - 1) << "it scrolls only where the screen ends";
                EXPECT_LE(splitter.widget(0)->width(), splitter.widget(0)->minimumSizeHint().width());
            }
            shown.Save(PictureName(*page, of));
        }
    }
}

TEST_F(QtDialogs, ASearchInEveryLook)
{
    for (const Look::Of& of : kLooks) {
        const Look look(of);
        const auto session = Session();
        const auto dialog = Dialog(*session);
        ShownDialog shown(*dialog);
        FormDriver(*dialog).Type(D::SearchText, u"log").Key(u"VK_DOWN");
        ShownDialog::Settle();
        CheckControls(*dialog);
        CheckTexts(shown.window);
        shown.Save(QStringLiteral("found-%1").arg(QLatin1String(of.name)));
        for (const QPalette& palette : {QApplication::palette(), QPalette(Qt::yellow), QPalette(Qt::darkBlue)})
            EXPECT_GE(qt::Contrast(qt::MarkColor(palette), palette.color(QPalette::Window)), 3);
    }
}

TEST_F(QtDialogs, BoxesAndQuestions)
{
    for (const Look::Of& of : kLooks) {
        const Look look(of);
        const auto name = [&of](const char* dialog) {
            return QStringLiteral("%1-%2").arg(QLatin1String(dialog), QLatin1String(of.name));
        };
        LogonAction action{true, u"assword:", u"secret"};
        VForm owner(kProtocolPage);
        ExpectSendPropertiesDialog expectSend(owner, action);
        Check(expectSend, name("expect-send"));
        VUnicodeString user = u"ann";
        bool isSaved = true;
        FirewallCredentialDialog credential(VFirewallCredential::UserName, user, isSaved, services, nullptr);
        Check(credential, name("firewall-user"));
        VProfile<int> value;
        OptionalMessageBox box(
            {.text = u"The session is in use by another window.  Do you want to close it all the same?",
             .firstButton = u"&Yes",
             .hasSecondButton = true,
             .icon = VIcon::Question},
            value, services);
        Check(box, name("optional-message"));
        OfferDownloadDialog offer({u"Tessaly", u"Orvane 3.1", u"Tessaly", u"file transfer", {}}, services);
        Check(offer, name("offer-download"));
        SetOrvaneInstalled(false);
        const auto session = Session();
        const auto single = Dialog(*session);
        Check(*single, name("connection-single"));
        SetOrvaneInstalled(true);
    }
}

} // namespace
} // namespace ostrand::test
