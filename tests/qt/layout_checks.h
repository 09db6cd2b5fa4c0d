// What every form must be in every look: each control has its widget, nothing overlaps, nothing is cut.
#pragma once

#include "tests/qt/shown_dialog.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>

#include <gtest/gtest.h>

namespace ostrand::test {

/// The form that a widget belongs to; null for none.
inline const QWidget* FormAround(const QWidget& widget)
{
    const QWidget* above = &widget;
    while (above && !dynamic_cast<const qt::FormWidget*>(above))
        above = above->parentWidget();
    return above;
}

/// Widgets that show something and hold no other control.
inline std::vector<const QWidget*> Leaves(const qt::FormWidget& form)
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

inline std::string NameOf(const QWidget& widget)
{
    return (widget.metaObject()->className() + (" " + widget.accessibleName())).toStdString();
}

inline void CheckOverlaps(const qt::FormWidget& form)
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

inline void CheckTexts(const QWidget& form)
{
    for (const QWidget* const widget : form.findChildren<QWidget*>()) {
        const bool showsText = qobject_cast<const QAbstractButton*>(widget) || qobject_cast<const QLabel*>(widget) ||
                               qobject_cast<const QComboBox*>(widget) || qobject_cast<const QGroupBox*>(widget);
        const bool isOfQt = widget->parentWidget()->inherits("QLineEdit"); // the button that clears it
        if (!showsText || isOfQt || !widget->isVisibleTo(&form))
            continue;
        const QSize needed = widget->minimumSizeHint();
        EXPECT_GE(widget->width(), needed.width()) << NameOf(*widget);
        EXPECT_GE(widget->height(), needed.height()) << NameOf(*widget);
        EXPECT_TRUE(widget->parentWidget()->rect().contains(widget->geometry())) << NameOf(*widget);
    }
}

inline void CheckControls(VForm& form)
{
    const auto& view = dynamic_cast<qt::FormWidget&>(*form.GetView());
    for (size_t i = 0; i < form.GetTemplate().Items().size(); ++i)
        if (const VControl* const control = form.ControlOfItem(i)) {
            ASSERT_NE(view.OfItem(i), nullptr) << ToUtf8(control->Dump());
            EXPECT_EQ(view.OfItem(i)->Widget()->isVisibleTo(&view), control->IsVisible()) << ToUtf8(control->Dump());
        }
    CheckOverlaps(view);
}

} // namespace ostrand::test
