// The tree of pages on one session's options, and which of them are in sight: by the applications that are installed,
// and by the session's protocols, whose modules add pages of their own.
#pragma once

#include "dialogs/kit/property_tree.h"
#include "dialogs/session/protocol_page_set.h"
#include "dialogs/session/session_options_setup.h"
#include "dialogs/session/session_records.h"

namespace ostrand {

/// Pages write to the session as soon as they are left, also before a Cancel: the caller saves the session or throws it
/// away. Nothing here touches the store.
///
/// Operations that take the row of a protocol raise the array's OutOfRange for one that the protocol table lacks.
class OSTRAND_API SessionOptionsDialogBase : public VPropertyTreeDialog {
public:
    /// The session is shared, the global record borrowed. Rebuilds the tables of emulations (emulations.h).
    SessionOptionsDialogBase(GlobalConfig& global, SessionConfig& session, const SessionOptionsSetup& setup,
                             IDialogServices& services = DialogServices(), void* parentWindow = nullptr);

    // What pages ask of the dialog, found by a cast of their GetParentDialog.

    void ShowHideTerminalPages(bool show) { ShowHideSide(Side::Terminal, show); }
    void ShowHideFileTransferPages(bool show) { ShowHideSide(Side::Transfer, show); }
    void ShowSessionProtocolPages(int row) { m_protocolPages.Show(row); }
    /// A list of protocols went from one to another; -1 for a protocol that the table lacks. `otherRow` is that of the
    /// other list, -1 without one. Then refreshes the pages that depend on protocols.
    void UpdateSessionProtocolPages(int oldRow, int newRow, int otherRow);
    void UpdateSessionLogonScriptsPage() { m_logonScriptsPage->Refresh(); }
    /// Tells that nothing can be saved, with the offer not to tell it again.
    void ShowReadOnlyPrompt();

    /// What all these dialogs of the process remember of their trees.
    static VPropertyPageStateMap& PageStates();

protected:
    /// Shows the pages that the session's protocols have.
    void InitDialog();
    /// Takes the protocols' pages out and lets them go.
    void Destroy() { m_protocolPages.Remove(); }
    /// Whether the read-only prompt is due.
    bool WantsReadOnlyPrompt() const;

private:
    /// Which protocol must be a real one for a page to be shown.
    enum class Side : uint8_t { Any, Terminal, Transfer };
    struct Line;
    struct SidePage {
        Side side;
        VPropertyTreePage* page;
    };

    /// The tree; the answer is its first page.
    VPropertyTreePage* AddAllPages();
    template <class P, class... Arguments>
    P* Own(Arguments&&... arguments);
    void ShowHideSide(Side side, bool show);
    void ShowNewProtocol(int newRow, int otherRow);
    void HidePagesOf(int row);

    GlobalConfig& m_global;
    const VUnknownPointer<SessionConfig> m_session;
    const SessionOptionsSetup m_setup;
    const SessionRecords m_records;
    int m_ssh2Row = -1;
    int m_sftpRow = -1;

    std::vector<std::unique_ptr<VPropertyTreePage>> m_ownPages;
    std::vector<SidePage> m_sidePages; // the same, without those that aren't in the tree
    VPropertyTreePage* m_logonScriptsPage = nullptr;
    VPropertyTreePage* const m_connectPage;
    ProtocolPageSet m_protocolPages; // whose pages hang below the connection's
};

} // namespace ostrand
