// LogonPanel: what a protocol adds to the page of logon actions.
#pragma once

#include "dialogs/kit/form.h"

namespace ostrand {

/// A form of the protocol's own, which the page puts in a place of its own and deletes when another protocol is chosen.
/// Its exchange runs with the page's. Its title isn't shown.
class OSTRAND_API LogonPanel : public VForm {
public:
    using VForm::VForm;

    /// Shows the copies, when the panel is in its place.
    void Open() { ShowFirst(); }
};

} // namespace ostrand
