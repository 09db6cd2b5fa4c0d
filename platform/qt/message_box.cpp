#include "dialogs/kit/translate.h"
#include "platform/qt/choosers.h"
#include "platform/qt/text.h"

#include "core/product.h"

#include <QMessageBox>
#include <QPushButton>

#include <array>

namespace ostrand::qt {

namespace {

struct Answer {
    int result;
    const char16_t* text;
};
constexpr std::array kOk = {Answer{kResultOk, u"OK"}};
constexpr std::array kOkCancel = {Answer{kResultOk, u"OK"}, Answer{kResultCancel, u"Cancel"}};
constexpr std::array kYesNo = {Answer{kResultYes, u"&Yes"}, Answer{kResultNo, u"&No"}};

std::span<const Answer> AnswersOf(VButtons buttons)
{
    switch (buttons) {
    case VButtons::OkCancel:
        return kOkCancel;
    case VButtons::YesNo:
        return kYesNo;
    default:
        return kOk;
    }
}

QMessageBox::Icon IconOf(VIcon icon)
{
    switch (icon) {
    case VIcon::Error:
        return QMessageBox::Critical;
    case VIcon::Question:
        return QMessageBox::Question;
    case VIcon::Warning:
        return QMessageBox::Warning;
    case VIcon::Information:
        return QMessageBox::Information;
    default:
        return QMessageBox::NoIcon;
    }
}

} // namespace

int ShowMessageBox(QWidget* parent, const VMessage& message)
{
    QMessageBox box(parent);
    box.setWindowTitle(ToQt(VGetAppName()));
    box.setTextFormat(Qt::PlainText);
    box.setText(ToQt(message.text));
    box.setIcon(IconOf(message.icon));
    box.setTextInteractionFlags(Qt::TextSelectableByMouse);
    const std::span<const Answer> answers = AnswersOf(message.buttons);
    for (const Answer& answer : answers) {
        // One role for all, so that they stand in their own order on every desktop.
        QPushButton* const button = box.addButton(ToQt(Translate(answer.text)), QMessageBox::ActionRole);
        if (answer.result == message.defaultButton || &answer == answers.data())
            box.setDefaultButton(button);
        box.setEscapeButton(button); // in the end the last one
    }
    box.exec();
    const qsizetype clicked = box.buttons().indexOf(box.clickedButton());
    return answers[clicked >= 0 ? static_cast<size_t>(clicked) : answers.size() - 1].result;
}

} // namespace ostrand::qt
