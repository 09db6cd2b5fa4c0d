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

/// %1 reason: a transaction is recorded, but not all of its files could be written.
inline constexpr unsigned kTransactionPending = 0xe1380043;
/// %1 folder: the store's medium has no locks.
inline constexpr unsigned kNoStoreLock = 0xa1380044;

/// %1 file: it is damaged.
inline constexpr unsigned kFileDamaged = 0xa1380045;
/// %1 reason: saves go on without a history.
inline constexpr unsigned kHistoryNotWritten = 0xa1380046;

/// %1 number: conflicts of a transaction that has too many to tell each; the history has them.
inline constexpr unsigned kFurtherConflicts = 0xa1380047;

/// Makes the texts known to reports. Any number of times.
void InstallStoreMessages();

} // namespace ostrand
