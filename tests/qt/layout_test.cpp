// Every template in every look: each control has its widget, nothing overlaps, nothing is cut.
#include "tests/qt/kit_scene.h"
#include "tests/qt/layout_checks.h"
#include "tests/qt/look.h"

namespace ostrand::test {
namespace {

TEST(QtLayout, EveryTemplateInEveryLook)
{
    for (const Look::Of& of : kLooks) {
        SCOPED_TRACE(of.name);
        const Look look(of);
        KitScene scene;
        ShownDialog shown(scene.dialog);
        EXPECT_EQ(dynamic_cast<qt::FormWidget*>(scene.log.GetView()), nullptr) << "pages are built when they are shown";
        const std::pair<VPropertyTreePage*, const char*> pages[] = {{&scene.kit, "kit"}, {&scene.log, "log"}};
        for (const auto& [page, name] : pages) {
            SCOPED_TRACE(name);
            ASSERT_TRUE(scene.dialog.SelectPage(*page));
            ShownDialog::Settle();
            CheckControls(scene.dialog);
            CheckControls(*page);
            CheckTexts(shown.window);
            const QString picture = QStringLiteral("%1-%2").arg(QLatin1String(name), QLatin1String(of.name));
            shown.Save(picture);
            ShownDialog::Save(dynamic_cast<qt::FormWidget&>(*page->GetView()), picture + QStringLiteral("-whole"));
        }
        CheckControls(scene.kit.panel);
    }
}

TEST(QtLayout, FollowsAFontThatChangesWhileItIsShown)
{
    KitScene scene;
    ShownDialog shown(scene.dialog);
    const int before = shown.Of(scene.kit, KitPage::Rows).minimumSizeHint().width();
    {
        const Look look({.scale = 2});
        ShownDialog::Settle();
        CheckControls(scene.kit);
        CheckTexts(shown.window);
        EXPECT_GT(shown.Of(scene.kit, KitPage::Rows).minimumSizeHint().width(), before * 3 / 2);
    }
    ShownDialog::Settle();
    EXPECT_EQ(shown.Of(scene.kit, KitPage::Rows).minimumSizeHint().width(), before);
}

} // namespace
} // namespace ostrand::test
