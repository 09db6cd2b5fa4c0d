// What a user does with mouse and keyboard reaches the model, and what code does to the model reaches the widgets.
#include "tests/qt/kit_scene.h"
#include "tests/qt/shown_dialog.h"

#include "platform/qt/keys.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <QTreeView>
#include <QTreeWidget>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace ostrand::test {
namespace {

using D = VPropertyTreeDialog;
using P = KitPage;
using testing::ElementsAre;

class QtInput : public testing::Test {
protected:
    template <class W = QWidget>
    W& Of(VControlId id)
    {
        return shown.Of<W>(kit, id);
    }
    void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = {})
    {
        QWidget* const focused = shown.window.focusWidget();
        QTest::keyClick(focused ? focused : &shown.window, key, modifiers);
        ShownDialog::Settle();
    }
    static void Click(QWidget& widget, QPoint at = {8, 8}, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::mouseClick(&widget, Qt::LeftButton, modifiers, at);
        ShownDialog::Settle();
    }
    QPoint RowAt(int row)
    {
        auto& view = Of<QTreeView>(P::Rows);
        return view.visualRect(view.model()->index(row, 0)).center();
    }
    std::vector<int> SelectedRows()
    {
        std::vector<int> rows;
        for (const QModelIndex& index : Of<QTreeView>(P::Rows).selectionModel()->selectedRows())
            rows.push_back(index.row());
        std::sort(rows.begin(), rows.end());
        return rows;
    }

    KitScene scene;
    KitPage& kit = scene.kit;
    ShownDialog shown{scene.dialog};
};

TEST_F(QtInput, BoxesAndOptions)
{
    auto& beep = Of<QCheckBox>(P::Beep);
    Click(beep, {8, beep.height() / 2});
    EXPECT_FALSE(kit.At<VCheckControl>(P::Beep).IsChecked());
    EXPECT_FALSE(beep.isChecked());
    EXPECT_EQ(kit.GetFocus(), P::Beep) << "a click leads there";

    auto& bar = Of<QCheckBox>(P::Scrollbar);
    ASSERT_EQ(bar.checkState(), Qt::PartiallyChecked);
    EXPECT_TRUE(bar.accessibleName().contains("global setting: on")) << bar.accessibleName().toStdString();
    for (const Qt::CheckState next : {Qt::Unchecked, Qt::Checked, Qt::PartiallyChecked}) {
        bar.setFocus();
        Key(Qt::Key_Space);
        EXPECT_EQ(bar.checkState(), next);
    }

    auto& transfer = kit.At<VRadioControl>(P::Transfer);
    auto* const binary = shown.window.findChildren<QRadioButton*>().at(1);
    Click(*binary);
    EXPECT_EQ(transfer.GetIndex(), 1);
    Key(Qt::Key_Up);
    EXPECT_EQ(transfer.GetIndex(), 0);
    transfer.SetIndex(-1);
    EXPECT_FALSE(binary->group()->checkedButton());
    transfer.SetIndex(2);
    EXPECT_EQ(binary->group()->checkedId(), 2);
    transfer.EnableOption(1, false);
    EXPECT_FALSE(binary->isEnabled());
}

TEST_F(QtInput, Edits)
{
    const auto type = [&](VControlId id, const char* keys) {
        Of(id).setFocus();
        QTest::keyClick(&Of(id), Qt::Key_End);
        QTest::keyClicks(&Of(id), QString::fromLatin1(keys));
        ShownDialog::Settle();
        return ToUtf8(kit.Control(id).GetText());
    };
    EXPECT_EQ(type(P::Retries, "x4-"), "34") << "digits alone";
    EXPECT_EQ(type(P::Host, "0123456789abcdef"), "router.lab0123456789") << "no more than the edit takes";
    EXPECT_EQ(Of<QLineEdit>(P::Host).text(), "router.lab0123456789");
    EXPECT_EQ(type(P::Nick, "x"), "") << "read-only";

    auto& password = Of<QLineEdit>(P::Password);
    EXPECT_EQ(type(P::Password, "s"), "secrets");
    EXPECT_EQ(password.displayText(), "*******");
    EXPECT_TRUE(kit.Control(P::Password).GetText().IsSensitive());
    kit.At<VEditControl>(P::Password).SetMasked(false);
    EXPECT_EQ(password.displayText(), "secrets");

    auto& host = Of<QLineEdit>(P::Host);
    host.setFocus();
    host.setSelection(2, 3);
    EXPECT_EQ(kit.At<VEditControl>(P::Host).GetSelection(), (VEditControl::Range{2, 5}));
    kit.At<VEditControl>(P::Host).Select({4, 1});
    EXPECT_EQ(host.selectedText(), "out");
    EXPECT_EQ(host.cursorPosition(), 1);
    kit.At<VEditControl>(P::Host).SetText(u"a name that is longer than a user may type");
    EXPECT_EQ(host.text(), "a name that is longer than a user may type");

    auto& remarks = Of<QPlainTextEdit>(P::Remarks);
    remarks.setFocus();
    QTest::keyClicks(&remarks, "one");
    Key(Qt::Key_Return);
    QTest::keyClicks(&remarks, "two");
    EXPECT_EQ(kit.Control(P::Remarks).GetText(), u"one\r\ntwo");
    EXPECT_TRUE(scene.dialog.IsRunning()) << "Return made a line";
    EXPECT_EQ(kit.At<VEditControl>(P::Remarks).GetSelection(), (VEditControl::Range{8, 8}));
    kit.At<VEditControl>(P::Remarks).Select({0, 5});
    EXPECT_EQ(remarks.textCursor().selectedText(), QStringLiteral("one") + QChar::ParagraphSeparator);
    kit.Control(P::Remarks).SetText(u"new\r\ntext");
    EXPECT_EQ(remarks.toPlainText(), "new\ntext");
}

TEST_F(QtInput, ListsAndReports)
{
    auto& parity = Of<QComboBox>(P::Parity);
    parity.setFocus();
    Key(Qt::Key_Down);
    EXPECT_EQ(kit.At<VListControl>(P::Parity).GetSelectedData(), 7);
    Of(P::Host).setFocus();
    QWheelEvent wheel({5, 5}, parity.mapToGlobal(QPointF(5, 5)), {}, {0, -120}, {}, {}, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&parity, &wheel);
    EXPECT_EQ(parity.currentText(), "Odd") << "a wheel that passes over it is meant for the page";
    kit.At<VListControl>(P::Parity).RemoveAt(1);
    EXPECT_EQ(parity.currentIndex(), -1);
    EXPECT_EQ(parity.count(), 2);
    kit.At<VListControl>(P::Parity).Select(1);
    EXPECT_EQ(parity.currentText(), "Even");
    EXPECT_EQ(Of<QComboBox>(P::Names).itemText(0), "Home") << "sorted";

    auto& rows = kit.At<VReportControl>(P::Rows);
    int doubled = 0;
    kit.On({P::Rows}, VEventKind::DoubleClicked, [&] { ++doubled; });
    QWidget& viewport = *Of<QTreeView>(P::Rows).viewport();
    Click(viewport, RowAt(0));
    Click(viewport, RowAt(2), Qt::ControlModifier);
    EXPECT_EQ(rows.CountSelected(), 2);
    Click(viewport, RowAt(1));
    QTest::mouseDClick(&viewport, Qt::LeftButton, {}, RowAt(1));
    EXPECT_EQ(doubled, 1);
    EXPECT_EQ(rows.GetSelected(), 1);
    rows.Insert(0, {u"new", u"row"});
    EXPECT_THAT(SelectedRows(), ElementsAre(2)) << "the selection stays with its row";
    rows.SelectRows({0, 3});
    EXPECT_THAT(SelectedRows(), ElementsAre(0, 3));
    rows.Clear();
    EXPECT_EQ(Of<QTreeView>(P::Rows).model()->rowCount(), 0);
}

TEST_F(QtInput, StatesOfControls)
{
    int clicks = 0;
    kit.On({P::AddRow}, VEventKind::Clicked, [&] { ++clicks; });
    Click(Of(P::AddRow));
    EXPECT_EQ(clicks, 1);
    kit.Control(P::AddRow).Enable(false);
    Click(Of(P::AddRow));
    EXPECT_EQ(clicks, 1);
    EXPECT_EQ(kit.GetFocus(), P::Names) << "it went on to the next control";
    EXPECT_TRUE(Of(P::Names).hasFocus());

    kit.Control(P::Host).Show(false);
    EXPECT_FALSE(Of(P::Host).isVisible());
    kit.Control(P::Parity).SetLabel(u"&Check:");
    kit.Control(P::AddRow).SetText(u"Add &Row...");
    EXPECT_EQ(Of<QPushButton>(P::AddRow).text(), "Add &Row...");
    EXPECT_EQ(Of(P::Parity).accessibleName(), "Check");
    Of(P::Retries).setFocus();
    scene.dialog.SelectPage(scene.other);
    ShownDialog::Settle();
    EXPECT_EQ(scene.dialog.GetFocus(), D::PageTree) << "the page with the focus is no longer shown";
    EXPECT_TRUE(shown.Of(scene.dialog, D::PageTree).hasFocus());
    scene.dialog.SelectPage(kit);
    scene.dialog.SetTitle(u"Another");
    EXPECT_EQ(shown.window.windowTitle(), "Another");
    kit.At<VEditControl>(P::Nick).SetReadOnly(false);
    EXPECT_FALSE(Of<QLineEdit>(P::Nick).isReadOnly());
}

TEST_F(QtInput, TheKeyboardGoesThroughTheDialog)
{
    EXPECT_EQ(scene.dialog.GetFocus(), D::PageTree);
    EXPECT_TRUE(shown.Of(scene.dialog, D::PageTree).hasFocus());
    Key(Qt::Key_Tab);
    EXPECT_TRUE(Of(P::Beep).hasFocus());
    Key(Qt::Key_Tab, Qt::ShiftModifier);
    EXPECT_EQ(scene.dialog.GetFocus(), D::PageTree);
    Key(Qt::Key_H, Qt::AltModifier);
    EXPECT_TRUE(Of(P::Host).hasFocus());
    EXPECT_EQ(Of<QLineEdit>(P::Host).selectedText(), "router.lab");
    Key(Qt::Key_E, Qt::AltModifier);
    EXPECT_FALSE(kit.At<VCheckControl>(P::Beep).IsChecked()) << "a marked letter presses its box";
    scene.services.Expect({.call = Call::Help, .text = {}});
    Key(Qt::Key_F1);
    EXPECT_EQ(scene.services.texts.back(), u"Kit");
    Key(Qt::Key_Return);
    EXPECT_FALSE(scene.dialog.IsRunning());
    EXPECT_FALSE(scene.record.beepOnError) << "OK has saved";
}

TEST_F(QtInput, ThePageTree)
{
    auto& tree = shown.Of<QTreeWidget>(scene.dialog, D::PageTree);
    ASSERT_EQ(tree.topLevelItemCount(), 2);
    tree.setFocus();
    Key(Qt::Key_Down);
    EXPECT_EQ(scene.dialog.GetActivePage(), &scene.log);
    Click(shown.Of(scene.log, SessionLogFilePage::NewAtMidnight), {8, 10});
    scene.services.ExpectMessage();
    Click(*tree.viewport(), tree.visualItemRect(tree.topLevelItem(1)).center());
    EXPECT_EQ(scene.dialog.GetActivePage(), &scene.log);
    EXPECT_EQ(tree.currentItem()->text(0), "Log File") << "a page that may not be left keeps the selection";
    EXPECT_TRUE(shown.Of(scene.log, SessionLogFilePage::FileName).hasFocus());
    scene.services.ExpectMessage();
    tree.collapseItem(tree.topLevelItem(0));
    ShownDialog::Settle();
    EXPECT_TRUE(tree.topLevelItem(0)->isExpanded()) << "nor can it go with the page above it";
    Click(shown.Of(scene.log, SessionLogFilePage::NewAtMidnight), {8, 10});
    tree.collapseItem(tree.topLevelItem(0));
    EXPECT_FALSE(kit.IsExpanded());
    EXPECT_EQ(scene.dialog.GetActivePage(), &kit);
    scene.dialog.HidePage(&scene.other);
    EXPECT_EQ(tree.topLevelItemCount(), 1);
    scene.dialog.ShowPage(&scene.other);
    EXPECT_EQ(tree.topLevelItem(1)->text(0), "Empty");
    scene.dialog.SelectPage(scene.other);
    EXPECT_EQ(tree.currentItem()->text(0), "Empty");
}

TEST_F(QtInput, Search)
{
    Key(Qt::Key_F, Qt::ControlModifier);
    ASSERT_EQ(scene.dialog.GetFocus(), D::SearchText);
    QTest::keyClicks(shown.window.focusWidget(), "log");
    ShownDialog::Settle();
    shown.Save(QStringLiteral("search-log"));
    Key(Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(shown.window.focusWidget(), "retr");
    ShownDialog::Settle();
    auto& tree = shown.Of<QTreeWidget>(scene.dialog, D::PageTree);
    const auto rows = [&tree] {
        QStringList texts;
        for (QTreeWidgetItemIterator item(&tree); *item; ++item)
            texts.append((*item)->text(0));
        return texts;
    };
    EXPECT_EQ(rows(), QStringList({"Kit", "Retries"}));
    EXPECT_EQ(shown.Of(scene.dialog, D::SearchText).accessibleDescription(), "1 hit");
    EXPECT_TRUE(Of(P::Retries).accessibleDescription().contains("Found by the search."));
    shown.Save(QStringLiteral("search"));
    Key(Qt::Key_Return);
    EXPECT_TRUE(Of(P::Retries).hasFocus());
    Key(Qt::Key_F, Qt::ControlModifier);
    EXPECT_EQ(shown.Of<QLineEdit>(scene.dialog, D::SearchText).selectedText(), "retr");
    QTest::keyClicks(shown.window.focusWidget(), "only");
    ShownDialog::Settle();
    EXPECT_EQ(rows(), QStringList({"Kit", "Log File", "Log only custom data"}));
    Key(Qt::Key_Escape);
    EXPECT_EQ(rows(), QStringList({"Kit", "Log File", "Empty"}));
    EXPECT_EQ(tree.currentItem()->text(0), "Kit");
    ASSERT_TRUE(Of(P::Names).visibleRegion().isEmpty());
    QTest::keyClicks(shown.window.focusWidget(), "names");
    Key(Qt::Key_Down);
    EXPECT_TRUE(tree.hasFocus());
    EXPECT_EQ(tree.currentItem()->text(0), "Names");
    EXPECT_FALSE(Of(P::Names).visibleRegion().isEmpty()) << "what is chosen comes into sight";
    const QPoint row = tree.visualItemRect(tree.currentItem()).center();
    Click(*tree.viewport(), row);
    QTest::mouseDClick(tree.viewport(), Qt::LeftButton, {}, row);
    ShownDialog::Settle();
    EXPECT_TRUE(Of(P::Names).hasFocus());
    Key(Qt::Key_F, Qt::ControlModifier);
    QTest::keyClicks(shown.window.focusWidget(), "zzz");
    ShownDialog::Settle();
    EXPECT_EQ(rows(), QStringList());
    EXPECT_TRUE(shown.Of(scene.dialog, D::SearchText).hasFocus());
    shown.Save(QStringLiteral("search-none"));
    Key(Qt::Key_Escape);
    EXPECT_TRUE(scene.dialog.IsRunning());
    Key(Qt::Key_Escape);
    EXPECT_FALSE(scene.dialog.IsRunning());
}

TEST(QtKeys, ScanCodes)
{
    const struct {
        unsigned native, code;
        bool isExtended;
    } cases[] = {{38, 30, false},  {36, 28, false}, {104, 28, true}, {77, 69, true},
                 {127, 69, false}, {110, 71, true}, {0, 0, false},   {250, 0, false}};
    for (const auto& each : cases) {
        SCOPED_TRACE(each.native);
        EXPECT_EQ(qt::ToScanCode(each.native).code, each.code);
        EXPECT_EQ(qt::ToScanCode(each.native).isExtended, each.isExtended);
    }
    const QKeyEvent release(QEvent::KeyRelease, Qt::Key_Backtab, Qt::ShiftModifier, 23, 0, 0);
    const VKeyEvent key = qt::ToKeyEvent(release);
    EXPECT_EQ(key.kind, VKeyEvent::Kind::Up);
    EXPECT_EQ(key.virtualKey, kKeyTab);
    EXPECT_TRUE(key.isShift);
    const QKeyEvent comma(QEvent::KeyPress, Qt::Key_Comma, {}, 59, 0, 0);
    EXPECT_EQ(qt::ToKeyEvent(comma).virtualKey, 0xBCu);
}

} // namespace
} // namespace ostrand::test
