#include "core/prompts.h"

#include "core/trace.h"

namespace ostrand {

namespace {

/// Nobody is there to answer.
class NoPrompts final : public IPrompts {
public:
    void Show(std::u16string_view text, VPromptIcon) override { VTrace(u"%1\n", text); }
    bool AskYesNo(std::u16string_view text, VPromptIcon) override
    {
        VTrace(u"%1\n", text);
        return false;
    }
    bool PickFolder(std::u16string_view, VUnicodeString&) override { return false; }
    VDownloadAnswer OfferDownload(const VDownloadOffer&) override { return VDownloadAnswer::Continue; }
    bool AskFirewallCredential(VFirewallCredential, VUnicodeString&, bool&, IParentable*) override { return false; }
    void BeginWait() override {}
    void EndWait() override {}
};

IPrompts* g_prompts = nullptr;

} // namespace

void SetPrompts(IPrompts* prompts) { g_prompts = prompts; }

IPrompts& Prompts()
{
    static NoPrompts& none = *new NoPrompts;
    return g_prompts ? *g_prompts : none;
}

} // namespace ostrand
