// What the library below the dialogs asks its users, asked through the dialogs' services.
#pragma once

#include "core/prompts.h"
#include "dialogs/kit/services.h"

namespace ostrand {

/// The same picture, as the dialogs name it.
OSTRAND_API VIcon IconOf(VPromptIcon icon);

/// All but the questions that have dialogs of their own, which are left to who has those. Borrows the services.
class OSTRAND_API VServicePrompts : public IPrompts {
public:
    explicit VServicePrompts(IDialogServices& services) : m_services(services) {}

    void Show(std::u16string_view text, VPromptIcon icon) override;
    bool AskYesNo(std::u16string_view text, VPromptIcon icon) override;
    bool PickFolder(std::u16string_view title, VUnicodeString& path) override;
    void BeginWait() override;
    void EndWait() override;

protected:
    IDialogServices& Services() const { return m_services; }

private:
    IDialogServices& m_services;
    int m_waits = 0;
};

} // namespace ostrand
