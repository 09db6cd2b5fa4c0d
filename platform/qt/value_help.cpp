#include "platform/qt/value_help.h"

#include "dialogs/kit/origin_text.h"
#include "platform/qt/form_widget.h"
#include "platform/qt/text.h"

#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTextDocument>
#include <QToolTip>

namespace ostrand::qt {

namespace {

QMenu* OwnMenu(QWidget& widget)
{
    if (auto* const edit = qobject_cast<QLineEdit*>(&widget))
        return edit->createStandardContextMenu();
    for (QWidget* const part : {&widget, widget.parentWidget()}) // the mouse's event comes to the viewport
        if (auto* const edit = qobject_cast<QPlainTextEdit*>(part))
            return edit->createStandardContextMenu();
    return nullptr;
}

void AddAct(QMenu& menu, FormWidget& form, VControlId id, const char16_t* text, bool isEnabled,
            bool (VForm::*act)(VControlId))
{
    QAction* const action = menu.addAction(ToQt(Translate(text)));
    action->setEnabled(isEnabled);
    QObject::connect(action, &QAction::triggered, &form,
                     [&form, id, act] { form.Host().Do([&form, id, act] { return (form.Model().*act)(id); }); });
}

} // namespace

VUnicodeString MarkWords(const VMarks& marks, bool isFound)
{
    VUnicodeString words;
    const auto add = [&words](bool isSo, const char16_t* text) {
        if (isSo)
            words += (words.IsEmpty() ? VUnicodeString() : VUnicodeString(u" ")) + Translate(text);
    };
    add(isFound, u"Found by the search.");
    add(marks.isLocked, u"Locked by an administrator.");
    add(marks.isChanged, u"Changed since the dialog opened.");
    add(marks.differs, u"Differs from the default.");
    return words;
}

bool ShowOrigin(VForm& form, VControlId id, QWidget& widget, const QPoint& position)
{
    VBinding* const binding = form.BindingOf(id);
    if (!binding)
        return false;
    VUnicodeString text = OriginText(*binding);
    const VUnicodeString marks = MarkWords({.isChanged = form.Control(id).GetMarks().isChanged});
    if (!text.IsEmpty() && !marks.IsEmpty())
        text += u"\n";
    text += marks;
    if (text.IsEmpty())
        return false;
    // As rich text it breaks its lines.
    QToolTip::showText(position, Qt::convertFromPlainText(ToQt(text), Qt::WhiteSpaceNormal), &widget);
    return true;
}

QMenu* MakeValueMenu(FormWidget& form, VControlId id, QWidget& widget)
{
    QMenu* menu = OwnMenu(widget);
    if (form.Model().BindingOf(id)) {
        if (!menu)
            menu = new QMenu(&widget);
        if (!menu->isEmpty())
            menu->addSeparator();
        const VControl& control = form.Model().Control(id);
        const VMarks& marks = control.GetMarks();
        AddAct(*menu, form, id, u"U&ndo this change", marks.isChanged && control.IsEnabled(), &VForm::UndoChange);
        AddAct(*menu, form, id, u"Reset to &default", marks.differs && marks.canBeReset && control.IsEnabled(),
               &VForm::ResetToDefault);
    }
    if (menu)
        menu->setAttribute(Qt::WA_DeleteOnClose);
    return menu;
}

} // namespace ostrand::qt
