#include "dialogs/prompts/firewall_credential_dialog.h"

namespace ostrand {

namespace {

using enum FirewallCredentialDialog::Id;
using namespace layout;

consteval auto EndButtons()
{
    return Row(Stretch(), EndButton(Ok, u"OK", kResultOk, Default), EndButton(Cancel, u"Cancel", kResultCancel));
}

// clang-format off
constexpr auto kUserName = Page(u"Enter Firewall Username",
    Label(u"The firewall settings require a username.  Please enter a username now."),
    Field(u"&Username:", Edit(Text, Grow)),
    Check(IsSaved, u"&Save username"),
    EndButtons());
constexpr auto kPassword = Page(u"Enter Firewall Password",
    Label(u"The firewall settings require a password.  Please enter a password now."),
    Field(u"&Password:", Edit(Text, Masked, Grow)),
    Check(IsSaved, u"&Save password"),
    EndButtons());
// clang-format on

} // namespace

FirewallCredentialDialog::FirewallCredentialDialog(VFirewallCredential what, VUnicodeString& text, bool& isSaved,
                                                   IDialogServices& services, void* parentWindow)
    : VDialog(what == VFirewallCredential::UserName ? VTemplate(kUserName) : VTemplate(kPassword), services,
              parentWindow),
      m_text(text),
      m_isSaved(isSaved)
{
}

void FirewallCredentialDialog::DoDataExchange(VDataExchange& dx)
{
    VUnicodeString text = m_text;
    bool isSaved = m_isSaved;
    DDX_Text(dx, Text, text);
    DDX_Check(dx, IsSaved, isSaved);
    dx.ThenWrite([this, text, isSaved] {
        m_text = text;
        m_isSaved = isSaved;
    });
}

} // namespace ostrand
