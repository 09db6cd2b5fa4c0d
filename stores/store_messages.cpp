#include "stores/store_messages.h"

#include <array>

namespace ostrand {

namespace {

constexpr std::array kTable = {
    VMessageText{kValueConflict,
                 u"The value '%2' of '%1' was changed by another program at the same time.  Your change, "
                 u"the later one, was saved."},
    VMessageText{kChangesNotSaved, u"The changes to '%1' could not be saved yet:\r\n%2"},
    VMessageText{kChangesLost, u"The changes to '%1' could not be saved and are lost:\r\n%2"},
};

} // namespace

void InstallStoreMessages()
{
    static const bool isDone = (SetFurtherMessages(kTable), true);
    static_cast<void>(isDone);
}

} // namespace ostrand
