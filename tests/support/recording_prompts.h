// Prompts that keep what they show and answer as a test says. `RecordingPrompts prompts;` is in place for its lifetime.
#pragma once

#include "core/prompts.h"

#include <string>
#include <vector>

namespace ostrand::test {

class RecordingPrompts : public IPrompts {
public:
    RecordingPrompts() { SetPrompts(this); }
    ~RecordingPrompts() override { SetPrompts(nullptr); }

    void Show(std::u16string_view text, VPromptIcon icon) override
    {
        texts.emplace_back(text);
        lastIcon = icon;
    }
    bool AskYesNo(std::u16string_view text, VPromptIcon icon) override
    {
        questions.emplace_back(text);
        lastIcon = icon;
        return answer;
    }
    bool PickFolder(std::u16string_view title, VUnicodeString& path) override
    {
        questions.emplace_back(title);
        pickedFrom = path.View();
        if (answer)
            path = picked;
        return answer;
    }
    VDownloadAnswer OfferDownload(const VDownloadOffer& offer) override
    {
        offers.push_back(offer);
        return downloadAnswer;
    }
    bool AskFirewallCredential(VFirewallCredential what, VUnicodeString& text, bool& isSaved,
                               IParentable* parent) override
    {
        questions.emplace_back(what == VFirewallCredential::UserName ? u"user" : u"password");
        lastParent = parent;
        if (answer) {
            text = typed;
            isSaved = savesTyped;
        }
        return answer;
    }
    void BeginWait() override { ++waiting; }
    void EndWait() override { --waiting; }

    bool answer = true; ///< to every question
    std::u16string picked;
    std::u16string typed;
    bool savesTyped = false;

    VDownloadAnswer downloadAnswer = VDownloadAnswer::Exit;

    std::vector<std::u16string> texts;
    std::vector<std::u16string> questions;
    std::vector<VDownloadOffer> offers;
    std::u16string pickedFrom;
    VPromptIcon lastIcon = VPromptIcon::None;
    IParentable* lastParent = nullptr;
    int waiting = 0;
};

} // namespace ostrand::test
