#include "stores/store_messages.h"

#include <array>

namespace ostrand {

namespace {

constexpr std::array kTable = {
    VMessageText{kValueConflict,
                 u"The value '%2' of '%1' was changed by another program at the same time.  Your change, "
                 u"the later one, was saved."},
    VMessageText{kFurtherConflicts, u"%1 further values were changed by another program at the same time.  Your "
                                    u"changes, the later ones, were saved."},
    VMessageText{kChangesNotSaved, u"The changes to '%1' could not be saved yet:\r\n%2"},
    VMessageText{kChangesLost, u"The changes to '%1' could not be saved and are lost:\r\n%2"},
    VMessageText{kTransactionPending, u"The changes are recorded, but could not all be written yet.  They will be "
                                      u"completed when the settings are opened again.\r\n%1"},
    VMessageText{kNoStoreLock, u"The folder '%1' lies on a medium without locks.  Settings are safe there only while "
                               u"one program at a time changes them."},
    VMessageText{kFileDamaged,
                 u"The file '%1' is damaged.  Its values were restored from the last good version, as far "
                 u"as there is one.  The next save keeps the damaged file beside the new one."},
    VMessageText{kHistoryNotWritten, u"Old versions of the settings can't be kept:\r\n%1"},
};

} // namespace

void InstallStoreMessages()
{
    static const bool isDone = (SetFurtherMessages(kTable), true);
    static_cast<void>(isDone);
}

} // namespace ostrand
