// Questions and notices from below the dialogs: the library asks through one interface, which the dialog kit installs.
// A program without dialogs has none; then notices go to the trace log and every answer is the one that changes least.
#pragma once

#include "core/parentable.h"
#include "core/strings.h"

namespace ostrand {

enum class VPromptIcon { None, Error, Question, Warning, Information };

/// Why a sibling application's module can't be used, for the offer of a newer one.
struct VDownloadOffer {
    VUnicodeString title;
    VUnicodeString integratedProduct;
    VUnicodeString productToUpgrade;
    VUnicodeString kind;       ///< of the integrated product, as texts name it
    VUnicodeString identifier; ///< of the contract that the newer one has to fulfil, for the address
};

enum class VDownloadAnswer { Continue, Download, Exit };

/// What a connection lacks for its firewall.
enum class VFirewallCredential { UserName, Password };

/// Called on the thread of the user's windows; every call returns when the user has answered.
class IPrompts {
public:
    virtual ~IPrompts() = default;
    virtual void Show(std::u16string_view text, VPromptIcon icon) = 0;
    virtual bool AskYesNo(std::u16string_view text, VPromptIcon icon) = 0;
    /// Begins at `path`; false when cancelled, with `path` as it was.
    virtual bool PickFolder(std::u16string_view title, VUnicodeString& path) = 0;
    /// After Download the address was opened.
    virtual VDownloadAnswer OfferDownload(const VDownloadOffer& offer) = 0;
    /// Begins with `text` and the check box that asks to save it; false when cancelled, with both as they were.
    /// `parent` may be null.
    virtual bool AskFirewallCredential(VFirewallCredential what, VUnicodeString& text, bool& isSaved,
                                       IParentable* parent) = 0;
    /// Calls are paired and may nest.
    virtual void BeginWait() = 0;
    virtual void EndWait() = 0;
};

/// Borrowed; null removes it. Set at start-up, on the main thread.
OSTRAND_API void SetPrompts(IPrompts* prompts);
/// The installed prompts, or those of a program without dialogs. Never null.
OSTRAND_API IPrompts& Prompts();

/// Shows that the program is busy, for its own lifetime.
class VWaitCursor {
public:
    VWaitCursor() : m_prompts(Prompts()) { m_prompts.BeginWait(); }
    ~VWaitCursor() { m_prompts.EndWait(); }
    VWaitCursor(const VWaitCursor&) = delete;
    VWaitCursor& operator=(const VWaitCursor&) = delete;

private:
    IPrompts& m_prompts;
};

} // namespace ostrand
