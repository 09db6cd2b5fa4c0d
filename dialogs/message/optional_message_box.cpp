#include "dialogs/message/optional_message_box.h"

#include "core/messages.h"
#include "core/product.h"

namespace ostrand {

namespace {

using enum OptionalMessageBox::Id;
using namespace layout;

// clang-format off
constexpr auto kDialog = Page(u"",
    Row(layout::Icon(Picture, VIcon::None), Label(Text, u"")),
    Check(NeverAgain, u"&Do not display this message again"),
    Row(Stretch(), EndButton(First, u"&Yes", kResultOk, Default), EndButton(Second, u"&No", kResultCancel)));
// clang-format on

constexpr unsigned kSecondIsDefault = 256;

VIcon IconOfNumber(int icon)
{
    constexpr VIcon kIcons[] = {VIcon::Warning, VIcon::Information, VIcon::Question};
    return icon >= 0 && icon < static_cast<int>(std::size(kIcons)) ? kIcons[icon] : VIcon::None;
}

} // namespace

OptionalMessageBox::OptionalMessageBox(const OptionalMessage& message, VProfile<int>& value, IDialogServices& services,
                                       void* parentWindow)
    : VDialog(kDialog, services, parentWindow),
      m_neverAgain(*this, NeverAgain, value)
{
    SetTitle(VGetAppName());
    At<VIconControl>(Picture).SetIcon(message.icon);
    ResizeElements(Text, message.text);
    VReportMessageParams usual;
    usual.SetMessage(kDoNotDisplayAgain);
    Control(NeverAgain).SetText(message.boxText.IsEmpty() ? TextOf(usual) : message.boxText);
    Control(First).SetText(message.firstButton);
    Control(Second).Show(message.hasSecondButton);
    SetDefaultButton(message.isSecondDefault && message.hasSecondButton ? Second : First);
    On({NeverAgain}, VEventKind::Clicked, [this] { UpdateData(VDataExchange::Save); });
}

int ShowOptionalMessageBox(void* parentWindow, const char16_t* text, const char16_t* boxText, VProfile<int>& value,
                           const char16_t* firstButton, bool hasSecondButton, int icon, unsigned defaultButton)
{
    return OptionalMessageBox(
               {text, boxText, firstButton, hasSecondButton, IconOfNumber(icon), defaultButton == kSecondIsDefault},
               value, DialogServices(), parentWindow)
        .DoModal();
}

} // namespace ostrand
