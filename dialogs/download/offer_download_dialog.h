// The offer of a newer version, when a sibling application's module and the running application don't fit.
#pragma once

#include "core/prompts.h"
#include "dialogs/kit/dialog.h"

namespace ostrand {

/// Ends with OK for going on without the sibling; with Cancel for the other two, of which WantsDownload tells one.
class OSTRAND_API OfferDownloadDialog final : public VDialog {
public:
    enum Id : VControlId { Explanation = 1, Question, Warning, Download, Continue, Exit };

    explicit OfferDownloadDialog(const VDownloadOffer& offer, IDialogServices& services = DialogServices(),
                                 void* parentWindow = nullptr);

    bool WantsDownload() const { return m_wantsDownload; }

private:
    void OnDownload();

    bool m_wantsDownload = false;
};

/// Where newer versions are to be had, with its scheme: "https://updates.example.org/". Empty: nowhere, and a download
/// opens nothing. Set at start-up, on the main thread.
OSTRAND_API void SetDownloadHost(std::u16string_view host);
/// The page that has the newer version; empty without a host.
OSTRAND_API VUnicodeString DownloadAddress(const VDownloadOffer& offer);

/// Runs the dialog, and opens the address after Download.
OSTRAND_API VDownloadAnswer RunDownloadOffer(const VDownloadOffer& offer, IDialogServices& services = DialogServices());

} // namespace ostrand
