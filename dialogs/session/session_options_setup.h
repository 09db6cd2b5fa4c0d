// How the dialog of a session's options is asked for.
#pragma once

#include "core/unknown.h"
#include "dialogs/kit/dialog_mode.h"

namespace ostrand {

struct SessionOptionsSetup {
    IUnknown* owner = nullptr; ///< handed on to the pages of protocols, never looked into; may be null
    int mode = 0;              ///< one of dialog_mode.h, or any other for a session as usual
    bool isNewSession = false; ///< the session's path is then the folder that it will lie in
    bool lockName = false;
    int maxColumns = 0; ///< most columns that a terminal may have
    bool editCurrentModes = false;
    unsigned blinkPeriod = 0; ///< milliseconds; 0: nothing blinks
    bool printingEnabled = false;
};

} // namespace ostrand
