// Windows of dialogs: their loop, their end, their size; pages and panels that die; marks; services.
#include "tests/qt/kit_scene.h"
#include "tests/qt/shown_dialog.h"

#include "core/product.h"
#include "platform/qt/choosers.h"

#include <QAccessible>
#include <QColorDialog>
#include <QFileDialog>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <QTest>
#include <QTimer>
#include <QToolTip>

#include <gtest/gtest.h>

namespace ostrand::test {
namespace {

using D = VPropertyTreeDialog;
using P = KitPage;

constexpr auto kAsk = layout::Page(
    u"Ask", layout::Row(layout::Icon(1, VIcon::Question), layout::Label(2, u"")), layout::Check(3, u"&Never again"),
    layout::Row(layout::Stretch(), layout::EndButton(4, u"&Yes", 1, layout::Default), layout::EndButton(5, u"&No", 2)));

class Ask : public VDialog {
public:
    explicit Ask(IDialogServices& services) : VDialog(kAsk, services) {}
    using VForm::On;
};

constexpr auto kLongText = u"In order for the integration to work, a compatible version must be installed.  You can "
                           u"either upgrade or continue, with the integration temporarily disabled.";

TEST(QtWindow, RunsToItsEnd)
{
    InstallQtView();
    Ask ask(DialogServices());
    ask.ResizeElements(2, kLongText);
    QString seen;
    ask.PostToSelf([&] {
        seen += "posted ";
        ask.PostToSelf([&] { // ... and the user closes the window when that has come
            seen += "again ";
            QTimer::singleShot(0, [] { QApplication::activeModalWidget()->close(); });
        });
    });
    EXPECT_EQ(ask.DoModal(), kResultCancel);
    EXPECT_EQ(seen, "posted again ");

    ask.On({3}, VEventKind::Clicked, [&] {
        seen += "nested ";
        Ask inner(ask.Services());
        inner.PostToSelf([&] { inner.EndDialog(kResultAbort); });
        EXPECT_EQ(inner.DoModal(), kResultAbort);
        throw VArray<int>::OutOfRange();
    });
    ask.PostToSelf([&] {
        auto* const window = dynamic_cast<qt::DialogWindow*>(QApplication::activeModalWidget());
        QTimer::singleShot(0, window, [window, &seen] {
            QTest::mouseClick(window->Contents().OfId(3)->FocusWidget(), Qt::LeftButton, {}, QPoint(8, 8));
            seen += "alive ";
            window->Contents().OfId(4)->FocusWidget()->setFocus();
            QTest::keyClick(window->focusWidget(), Qt::Key_Return);
        });
    });
    EXPECT_EQ(ask.DoModal(), kResultOk);
    EXPECT_EQ(seen, "posted again nested alive ");
    RemoveQtView();
}

TEST(QtWindow, GrowsWithItsTextAndKeepsItsSize)
{
    ScriptedServices services;
    qt::RememberedSizes sizes;
    Ask ask(services);
    QSize before;
    {
        ShownDialog shown(ask, &sizes);
        before = shown.window.size();
        ask.ResizeElements(2, kLongText);
        ShownDialog::Settle();
        const QWidget& label = *shown.window.Contents().OfId(2)->Widget();
        EXPECT_GE(label.height(), label.heightForWidth(label.width()));
        EXPECT_GT(shown.window.height(), before.height());
        shown.Save(QStringLiteral("ask"));
        ask.ResizeElements(2, u"Yes?");
        ShownDialog::Settle();
        const QRect screen = shown.window.screen()->availableGeometry();
        shown.window.resize(shown.window.minimumSizeHint());
        shown.window.move(screen.right() - shown.window.width(), screen.bottom() - shown.window.height());
        ask.ResizeElements(2, kLongText);
        ShownDialog::Settle();
        EXPECT_TRUE(screen.contains(shown.window.frameGeometry())) << "it grows into the screen";
        shown.window.resize(700, 500);
    }
    {
        const ShownDialog again(ask, &sizes);
        const QSize screen = again.window.screen()->availableSize();
        EXPECT_EQ(again.window.size(), QSize(700, 500).boundedTo(screen).expandedTo(again.window.minimumSizeHint()));
    }
    sizes.Save(typeid(Ask).name(), {1, 100000});
    ShownDialog shown(ask, &sizes);
    EXPECT_GE(shown.window.width(), before.width()) << "never too small for what it shows";
    EXPECT_LT(shown.window.height(), 100000) << "never larger than the screen";
}

TEST(QtWindow, PagesAndPanelsMayDieWhileTheyAreShown)
{
    KitScene scene;
    auto page = std::make_unique<KitPage>(scene.record);
    auto panel = std::make_unique<KitPanel>();
    page->Put(P::Panel, panel.get());
    scene.dialog.AddPage(page.get());
    ShownDialog shown(scene.dialog);
    scene.dialog.SelectPage(*page);
    ASSERT_NE(panel->GetView(), nullptr);
    page->On({P::AddRow}, VEventKind::Clicked, [&] {
        page->Put(P::Panel, nullptr);
        EXPECT_EQ(panel->GetView(), nullptr);
        page->Put(P::Panel, panel.get());
        panel.reset();
        scene.dialog.PostToSelf([&] { page.reset(); });
    });
    QTest::mouseClick(&shown.Of(*page, P::AddRow), Qt::LeftButton);
    ShownDialog::Settle();
    EXPECT_EQ(page, nullptr);
    EXPECT_EQ(scene.dialog.GetActivePage(), &scene.kit) << "what is left is shown";
    scene.dialog.RemovePage(&scene.kit);
    EXPECT_EQ(scene.kit.GetView(), nullptr);
    scene.dialog.AddPage(&scene.kit);
    EXPECT_TRUE(scene.dialog.SelectPage(scene.kit));
    EXPECT_NE(scene.kit.GetView(), nullptr);
}

TEST(QtWindow, MarksTellAndGoBack)
{
    KitScene scene("Retry Count = 2\n");
    ShownDialog shown(scene.dialog);
    auto& host = shown.Of<QLineEdit>(scene.kit, P::Host);
    EXPECT_EQ(host.accessibleDescription(), "Differs from the default.");
    host.setFocus();
    QTest::keyClicks(&host, "2");
    EXPECT_EQ(host.accessibleDescription(), "Changed since the dialog opened. Differs from the default.");
    QWidget& retries = shown.Of(scene.kit, P::Retries);
    EXPECT_FALSE(retries.isEnabled());
    EXPECT_EQ(retries.accessibleDescription(), "Locked by an administrator.");
    shown.Save(QStringLiteral("marks"));

    const auto choose = [&](QWidget& widget, const char* text) {
        QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(1, 1), widget.mapToGlobal(QPoint(1, 1)));
        QApplication::sendEvent(&widget, &event);
        auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        ASSERT_NE(menu, nullptr);
        for (QAction* const action : menu->actions())
            if (action->text().remove('&') == text) {
                EXPECT_TRUE(action->isEnabled());
                action->trigger();
            }
        menu->close();
        ShownDialog::Settle();
    };
    choose(host, "Undo this change");
    EXPECT_EQ(host.text(), "router.lab");
    choose(host, "Reset to default");
    EXPECT_EQ(host.text(), "");
    EXPECT_EQ(scene.kit.Control(P::Host).GetText(), u"");

    QHelpEvent help(QEvent::ToolTip, QPoint(1, 1), retries.mapToGlobal(QPoint(1, 1)));
    QApplication::sendEvent(&retries, &help);
    EXPECT_TRUE(QToolTip::text().contains("Locked by an administrator")) << QToolTip::text().toStdString();
    QToolTip::hideText();
}

/// Walks what a screen reader sees.
void CheckAccessible(QAccessibleInterface& node, int& controls)
{
    const bool isShown = !node.state().invisible;
    if (isShown && node.state().focusable && node.role() != QAccessible::Cell && node.role() != QAccessible::TreeItem) {
        ++controls;
        const QString name = node.text(QAccessible::Name);
        EXPECT_FALSE(name.isEmpty()) << qPrintable(node.object()->metaObject()->className());
        EXPECT_FALSE(name.contains('&')) << qPrintable(name);
    }
    for (int i = 0; i < node.childCount(); ++i)
        if (QAccessibleInterface* const child = node.child(i))
            CheckAccessible(*child, controls);
}

TEST(QtWindow, EverythingHasANameForScreenReaders)
{
    KitScene scene;
    ShownDialog shown(scene.dialog);
    int controls = 0;
    CheckAccessible(*QAccessible::queryAccessibleInterface(&shown.window), controls);
    EXPECT_GE(controls, 20);
    const auto roleOf = [&](VControlId id) {
        return QAccessible::queryAccessibleInterface(&shown.Of(scene.kit, id))->role();
    };
    EXPECT_EQ(roleOf(P::Scrollbar), QAccessible::CheckBox);
    EXPECT_EQ(roleOf(P::Transfer), QAccessible::RadioButton);
    EXPECT_EQ(roleOf(P::Parity), QAccessible::ComboBox);
    EXPECT_TRUE(QAccessible::queryAccessibleInterface(&shown.Of(scene.kit, P::Password))->state().passwordEdit);
}

/// Does something with the next modal window, when it is there.
template <class W>
void WithNextModal(const std::function<void(W&)>& act)
{
    QTimer::singleShot(0, [act] { act(dynamic_cast<W&>(*QApplication::activeModalWidget())); });
}

TEST(QtServices, MessageBoxesAnswer)
{
    qt::QtServices services({});
    const auto answer = [&](VButtons buttons, int defaultButton, Qt::Key key) {
        WithNextModal<QMessageBox>([key](QMessageBox& box) { QTest::keyClick(&box, key); });
        return services.ShowMessage(nullptr, {u"<b>Really?</b>", VIcon::Warning, buttons, defaultButton});
    };
    EXPECT_EQ(answer(VButtons::YesNo, 0, Qt::Key_Return), kResultYes);
    EXPECT_EQ(answer(VButtons::YesNo, kResultNo, Qt::Key_Return), kResultNo);
    EXPECT_EQ(answer(VButtons::YesNo, 0, Qt::Key_Escape), kResultNo);
    EXPECT_EQ(answer(VButtons::OkCancel, 0, Qt::Key_Escape), kResultCancel);
    EXPECT_EQ(answer(VButtons::Ok, 0, Qt::Key_Escape), kResultOk);
}

TEST(QtServices, FilesAndColors)
{
    TempFolder folder;
    qt::QtServices services({});
    VFileRequest request{.title = u"Save",
                         .path = VUnicodeString(qt::FromQt(QString::fromStdString(folder.Path("old.log")))),
                         .extension = u"*.log",
                         .filter = u"Log Files (*.log;*.txt)|*.log;*.txt|All Files (*.*)|*.*||",
                         .isSave = true};
    WithNextModal<QFileDialog>([](QFileDialog& chooser) {
        EXPECT_EQ(chooser.nameFilters(), QStringList({"Log Files (*.log *.txt)", "All Files (*)"}));
        EXPECT_EQ(chooser.defaultSuffix(), "log");
        chooser.findChild<QLineEdit*>()->setText("new");
        QTest::keyClick(&chooser, Qt::Key_Return);
    });
    EXPECT_TRUE(services.PickFile(nullptr, request));
    EXPECT_EQ(ToUtf8(request.path), folder.Path("new.log"));
    WithNextModal<QFileDialog>([](QFileDialog& chooser) { chooser.reject(); });
    EXPECT_FALSE(services.PickFile(nullptr, request));
    EXPECT_EQ(ToUtf8(request.path), folder.Path("new.log"));

    CustomColors custom{};
    custom[3] = 0x00123456;
    VColorRequest color{.color = 0x000000FF, .custom = &custom};
    WithNextModal<QColorDialog>([](QColorDialog& chooser) {
        EXPECT_EQ(chooser.currentColor(), QColor(255, 0, 0)) << "red is the lowest byte";
        EXPECT_EQ(QColorDialog::customColor(3), QColor(0x56, 0x34, 0x12));
        QColorDialog::setCustomColor(0, QColor(1, 2, 3));
        chooser.setCurrentColor(QColor(10, 20, 30));
        chooser.accept();
    });
    EXPECT_TRUE(services.PickColor(nullptr, color));
    EXPECT_EQ(color.color, 0x001E140Au);
    EXPECT_EQ(custom[0], 0x00030201u);
    EXPECT_EQ(custom[3], 0x00123456u);

    QImage(4, 4, QImage::Format_RGB32).save(QString::fromStdString(folder.Path("dot.png")));
    VUnicodeString picture;
    FromUtf8(folder.Path("dot.png"), picture);
    EXPECT_EQ(services.CountIcons(picture), 1u);
    const VIconHandle icon = services.LoadIcon(picture, 0);
    EXPECT_NE(icon, 0u);
    services.ReleaseIcon(icon);
    EXPECT_EQ(services.CountIcons(u"/no/such/file"), 0u);
    EXPECT_EQ(services.LoadIcon(u"/no/such/file", 0), 0u);
}

TEST(QtServices, FontsBothWays)
{
    const VLogFont font(12, u"No Such Family At All");
    VLogFont before = font;
    before.charSet = 7;
    const VLogFont back = qt::FromQtFont(qt::ToQtFont(font), before);
    EXPECT_EQ(back.GetFace(), u"No Such Family At All") << "a missing family is shown by another and kept";
    EXPECT_EQ(back.pointSize, font.pointSize);
    EXPECT_EQ(back.height, -12);
    EXPECT_EQ(back.charSet, 7) << "what choosers don't know stays";
}

} // namespace
} // namespace ostrand::test
