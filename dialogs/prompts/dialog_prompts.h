// All that the library below the dialogs asks its users, asked by dialogs. A program with windows installs one:
//
//     SetDialogServices(&services);
//     DialogPrompts prompts(services);
//     SetPrompts(&prompts);               // before the protocols are loaded, which may have something to ask
#pragma once

#include "dialogs/kit/service_prompts.h"

namespace ostrand {

class OSTRAND_API DialogPrompts final : public VServicePrompts {
public:
    using VServicePrompts::VServicePrompts;

    VDownloadAnswer OfferDownload(const VDownloadOffer& offer) override;
    bool AskFirewallCredential(VFirewallCredential what, VUnicodeString& text, bool& isSaved,
                               IParentable* parent) override;
};

} // namespace ostrand
