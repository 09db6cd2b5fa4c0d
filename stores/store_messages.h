// Messages of the stores: codes here, texts in one table that joins the library's own.
#pragma once

#include "core/messages.h"

namespace ostrand {

/// %1 key, %2 value: another process changed the value, and so did this one, whose change went in.
inline constexpr unsigned kValueConflict = 0xa1380040;
/// %1 key, %2 reason: a handle closed with changes that could not be written; they are kept for another try.
inline constexpr unsigned kChangesNotSaved = 0xe1380041;
/// %1 key, %2 reason: the last try failed, and the changes are gone.
inline constexpr unsigned kChangesLost = 0xe1380042;

/// Makes the texts known to reports. Any number of times.
void InstallStoreMessages();

} // namespace ostrand
