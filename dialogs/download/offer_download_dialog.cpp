#include "dialogs/download/offer_download_dialog.h"

#include "core/trace.h"
#include "core/utf8.h"

namespace ostrand {

namespace {

using Id = OfferDownloadDialog::Id;
using namespace layout;

// clang-format off
constexpr auto kDialog = Page(u"",
    Label(Id::Explanation, u""),
    Label(Id::Question, u"What would you like to do?"),
    Label(Id::Warning, u""),
    Row(Stretch(),
        Button(Id::Download, u"", Default),
        EndButton(Id::Continue, u"&Continue", kResultOk),
        EndButton(Id::Exit, u"E&xit", kResultCancel)));
// clang-format on

constexpr const char16_t* kExplanation =
    u"In order for integration with %1 to work correctly, a compatible version of %2 must be installed.  You can "
    u"either upgrade %2 or continue, with integration temporarily disabled.";
constexpr const char16_t* kWarning =
    u"It is strongly recommended that if you continue without upgrading %1, you do not modify any sessions that are "
    u"configured for %2.";

VUnicodeString& Host()
{
    static VUnicodeString& host = *new VUnicodeString;
    return host;
}

/// What RFC 3986 leaves unreserved stays as it is.
VUnicodeString PercentEncoded(const VUnicodeString& text)
{
    constexpr std::string_view kMarks = "-._~";
    VUnicodeString encoded;
    for (const char c : ToUtf8(text)) {
        const bool isPlain = (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') ||
                             kMarks.find(c) != std::string_view::npos;
        encoded += isPlain ? Format(u"%1!c!", c) : Format(u"%%%1!02X!", static_cast<unsigned char>(c));
    }
    return encoded;
}

} // namespace

OfferDownloadDialog::OfferDownloadDialog(const VDownloadOffer& offer, IDialogServices& services, void* parentWindow)
    : VDialog(kDialog, services, parentWindow)
{
    SetTitle(offer.title);
    ResizeElements(Explanation, TranslateFormat(kExplanation, offer.integratedProduct, offer.productToUpgrade));
    ResizeElements(Warning, TranslateFormat(kWarning, offer.productToUpgrade, offer.kind));
    Control(Download).SetText(TranslateFormat(u"&Download %1 ...", offer.productToUpgrade));
    On({Download}, VEventKind::Clicked, &OfferDownloadDialog::OnDownload);
}

void OfferDownloadDialog::OnDownload()
{
    m_wantsDownload = true;
    EndDialog(kResultCancel);
}

void SetDownloadHost(std::u16string_view host) { Host() = host; }

VUnicodeString DownloadAddress(const VDownloadOffer& offer)
{
    if (Host().IsEmpty())
        return {};
    return Format(u"%1%2go.php?pid=%3&guid=%4", Host(), Host().View().ends_with(u'/') ? u"" : u"/",
                  PercentEncoded(offer.productToUpgrade), PercentEncoded(offer.identifier));
}

VDownloadAnswer RunDownloadOffer(const VDownloadOffer& offer, IDialogServices& services)
{
    OfferDownloadDialog dialog(offer, services);
    if (dialog.DoModal() == kResultOk)
        return VDownloadAnswer::Continue;
    if (!dialog.WantsDownload())
        return VDownloadAnswer::Exit;
    const VUnicodeString address = DownloadAddress(offer);
    if (address.IsEmpty() || !services.OpenAddress(address))
        VTrace(u"No page was opened for a newer %1: \"%2\".\n", offer.productToUpgrade, address);
    return VDownloadAnswer::Download;
}

} // namespace ostrand
