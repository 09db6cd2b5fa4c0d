#include "dialogs/session/expect_send_dialog.h"

namespace ostrand {

namespace {

using enum ExpectSendPropertiesDialog::Id;
using namespace layout;

// clang-format off
constexpr auto kDialog = Page(u"Expect/Send Properties",
    Group(u"Expect", Field(u"&Expect:", Edit(Expect, Grow))),
    Group(u"Send",
        Field(u"&Send:", Edit(Send, Grow)),
        Check(Hide, u"&Hide")),
    Row(Stretch(), EndButton(Ok, u"OK", kResultOk, Default), EndButton(Cancel, u"Cancel", kResultCancel)));
// clang-format on

} // namespace

ExpectSendPropertiesDialog::ExpectSendPropertiesDialog(VForm& owner, LogonAction& action)
    : VDialog(kDialog, owner),
      m_action(action),
      m_edited(action)
{
    At<VEditControl>(Send).SetMasked(action.hide);
    On({Hide}, VEventKind::Clicked, &ExpectSendPropertiesDialog::OnHide);
}

void ExpectSendPropertiesDialog::DoDataExchange(VDataExchange& dx)
{
    DDX_Text(dx, Expect, m_edited.expect);
    DDX_Text(dx, Send, m_edited.send);
    DDX_Check(dx, Hide, m_edited.hide);
    dx.ThenWrite([this] { m_action = m_edited; });
}

/// Taking the mask off must not show what it hid, so the text goes with it.
void ExpectSendPropertiesDialog::OnHide()
{
    VEditControl& send = At<VEditControl>(Send);
    const bool isHidden = At<VCheckControl>(Hide).IsChecked();
    if (!isHidden)
        send.SetText({});
    send.SetMasked(isHidden);
}

} // namespace ostrand
