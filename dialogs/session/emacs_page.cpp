#include "dialogs/session/emacs_page.h"

namespace ostrand {

namespace {

using enum SessionEmacsPage::Id;
using namespace layout;

// clang-format off
constexpr auto kPage = Page(u"Emacs\nEmacs Compatibility",
    Label(u"If you commonly use Emacs, you can configure your session to use the ALT key as the meta key.  However, this will "
          u"affect your ability to use the ALT key combinations to access menus. "),
    Check(AltIsMeta, u"&Use ALT as meta key", Also{u"escape modifier"}),
    Label(u"Also, many international keyboards have an ALTGR key which uses the same keyboard code as CTRL+ALT."),
    Check(KeepAltGr, u"&Preserve ALTGR international key", Also{u"right alt"}),
    Radio(Sends, YesFirst, Named{u"What the meta key sends"},
          Option(u"Us&e 8th bit for meta key (requires termcap support)"), Option(u"&Send escape for meta key")));
// clang-format on

} // namespace

SessionEmacsPage::SessionEmacsPage(TerminalConfig& terminal)
    : VPropertyTreePage(kPage),
      m_altIsMeta(*this, AltIsMeta, terminal.emacsMode),
      m_keepAltGr(*this, KeepAltGr, terminal.preserveAltGr),
      m_sends8thBit(*this, Sends, terminal.emacsMode8Bit)
{
    On({AltIsMeta}, VEventKind::Clicked, &SessionEmacsPage::EnableMeta);
}

bool SessionEmacsPage::OnInitDialog()
{
    const bool wantsFocus = VPropertyTreePage::OnInitDialog();
    Control(KeepAltGr).Enable(m_altIsMeta);
    Control(Sends).Enable(m_altIsMeta);
    return wantsFocus;
}

void SessionEmacsPage::EnableMeta()
{
    const bool isMeta = At<VCheckControl>(AltIsMeta).IsChecked();
    Control(KeepAltGr).Enable(isMeta);
    Control(Sends).Enable(isMeta);
    if (!isMeta)
        At<VCheckControl>(KeepAltGr).SetChecked(false);
}

} // namespace ostrand
