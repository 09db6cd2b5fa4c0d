// Keys as Qt reports them, as dialogs know them.
#pragma once

#include "dialogs/kit/key_event.h"

#include <QKeyEvent>

namespace ostrand::qt {

/// Alt alone: with Ctrl it is the AltGr of some desktops, which types characters.
inline bool HoldsAlt(const QKeyEvent& event)
{
    return (event.modifiers() & (Qt::AltModifier | Qt::ControlModifier)) == Qt::AltModifier;
}

VKeyEvent ToKeyEvent(const QKeyEvent& event);

/// Set 1, from what Qt gives as the native scan code: the kernel's code of the key and 8.
struct ScanCode {
    unsigned code = 0;
    bool isExtended = false;
};
ScanCode ToScanCode(unsigned native);

} // namespace ostrand::qt
