// Every template in every look: each control has its widget, nothing overlaps, nothing is cut.
#include "tests/qt/kit_scene.h"
#include "tests/qt/look.h"
#include "tests/qt/shown_dialog.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>

#include <gtest/gtest.h>

namespace ostrand::test {
namespace {

constexpr Look::Of kLooks[] = {
    {"light"},
    {.name = "dark", .isDark = true},
    {.name = "double", .scale = 2},
    {.name = "pseudo", .isPseudo = true},
    {.name = "pseudo-triple-dark", .scale = 3, .isDark = true, .isPseudo = true},
    {.name = "right-to-left", .direction = Qt::RightToLeft},
};

const QWidget* FormAround(const QWidget& widget)
{
    const QWidget* above = &widget;
    while (above && !dynamic_cast<const qt::FormWidget*>(above))
        above = above->parentWidget();
    return above;
}

/// Widgets that show something and hold no other control.
std::vector<const QWidget*> Leaves(const qt::FormWidget& form)
{
    std::vector<const QWidget*> leaves;
    for (const auto& control : form.Widgets())
        if (control && control->Widget()->isVisibleTo(&form) && control->Model().GetKind() != VItemKind::Group &&
            control->Model().GetKind() != VItemKind::Place && control->Model().GetKind() != VItemKind::Radio)
            leaves.push_back(control->Widget());
    for (const QLabel* const label : form.findChildren<QLabel*>())
        if (label->isVisibleTo(&form) && FormAround(*label) == &form &&
            std::find(leaves.begin(), leaves.end(), label) == leaves.end())
            leaves.push_back(label);
    for (const QAbstractButton* const button : form.findChildren<QAbstractButton*>())
        if (button->isVisibleTo(&form) && FormAround(*button) == &form && button->inherits("QRadioButton"))
            leaves.push_back(button);
    return leaves;
}

std::string NameOf(const QWidget& widget)
{
    return (widget.metaObject()->className() + (" " + widget.accessibleName())).toStdString();
}

void CheckOverlaps(const qt::FormWidget& form)
{
    const std::vector<const QWidget*> leaves = Leaves(form);
    const auto area = [&form](const QWidget* widget) { return QRect(widget->mapTo(&form, QPoint()), widget->size()); };
    for (size_t i = 0; i < leaves.size(); ++i)
        for (size_t k = i + 1; k < leaves.size(); ++k) {
            const bool isNested = leaves[i]->isAncestorOf(leaves[k]) || leaves[k]->isAncestorOf(leaves[i]);
            EXPECT_FALSE(!isNested && area(leaves[i]).intersects(area(leaves[k])))
                << NameOf(*leaves[i]) << " overlaps " << NameOf(*leaves[k]);
        }
}

void CheckTexts(const QWidget& form)
{
    for (const QWidget* const widget : form.findChildren<QWidget*>()) {
        const bool showsText = qobject_cast<const QAbstractButton*>(widget) || qobject_cast<const QLabel*>(widget) ||
                               qobject_cast<const QComboBox*>(widget) || qobject_cast<const QGroupBox*>(widget);
        if (!showsText || !widget->isVisibleTo(&form))
            continue;
        const QSize needed = widget->minimumSizeHint();
        EXPECT_GE(widget->width(), needed.width()) << NameOf(*widget);
        EXPECT_GE(widget->height(), needed.height()) << NameOf(*widget);
        EXPECT_TRUE(widget->parentWidget()->rect().contains(widget->geometry())) << NameOf(*widget);
    }
}

void CheckControls(VForm& form)
{
    const auto& view = dynamic_cast<qt::FormWidget&>(*form.GetView());
    for (size_t i = 0; i < form.GetTemplate().Items().size(); ++i)
        if (const VControl* const control = form.ControlOfItem(i)) {
            ASSERT_NE(view.OfItem(i), nullptr) << ToUtf8(control->Dump());
            EXPECT_EQ(view.OfItem(i)->Widget()->isVisibleTo(&view), control->IsVisible()) << ToUtf8(control->Dump());
        }
    CheckOverlaps(view);
}

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
