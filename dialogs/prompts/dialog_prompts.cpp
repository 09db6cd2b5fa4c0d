#include "dialogs/prompts/dialog_prompts.h"

#include "dialogs/download/offer_download_dialog.h"
#include "dialogs/prompts/firewall_credential_dialog.h"

namespace ostrand {

VDownloadAnswer DialogPrompts::OfferDownload(const VDownloadOffer& offer)
{
    return RunDownloadOffer(offer, Services());
}

bool DialogPrompts::AskFirewallCredential(VFirewallCredential what, VUnicodeString& text, bool& isSaved,
                                          IParentable* parent)
{
    FirewallCredentialDialog dialog(what, text, isSaved, Services(), parent ? parent->GetParentWindow() : nullptr);
    return dialog.DoModal() == kResultOk;
}

} // namespace ostrand
