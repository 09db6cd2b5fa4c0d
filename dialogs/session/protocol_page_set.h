// The pages that protocols add to the dialog of a session's options: made when they are first wanted, kept until the
// dialog goes.
#pragma once

#include "config/session/protocol_table.h"
#include "core/array.h"

namespace ostrand {

/// By the rows of the protocol table. An index outside it raises the array's OutOfRange. What a module throws is
/// reported, and costs its pages alone.
class OSTRAND_API ProtocolPageSet {
public:
    /// Arguments of the factories, lent.
    struct Context {
        IPropertyTreeDialog* dialog;
        int mode;
        ISessionConfig* session;
        IUnknown* owner;
        VPropertyTreePage* connectPage;
    };
    using Pages = VUnknownPointer<IProtocolPages>;

    explicit ProtocolPageSet(const Context& context);

    void Show(int row);
    /// Nothing for pages that were never shown.
    void Hide(int row);
    /// Out of the dialog, and no longer held.
    void Remove();

private:
    Context m_context;
    VArray<Pages> m_pages; // null where there are none yet
};

} // namespace ostrand
