// What a store may offer besides its keys: transactions, news of other programs' changes, places, history, repair. An
// optional interface of the private store; a store without it answers "not supported".
//
//     IStoreExtras& extras = store.Extras();
//     if (!extras.BeginTransaction(report)) ...
//     for (...) key.WriteDword(u"Scrollback", 5000);
//     if (!extras.CommitTransaction(report)) extras.RollBackTransaction();
#pragma once

#include "core/report.h"
#include "core/strings.h"
#include "platform/export.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace ostrand {

/// Where a value stands, for messages to people.
struct ValuePlace {
    std::string file; ///< path, UTF-8
    size_t line = 0;  ///< from 1; 0 for a value that doesn't stand in the file (yet)
};

/// One version of a key's values. Numbers grow by one with each change and stay what they are when old ones go.
struct StoreVersion {
    unsigned number = 0;
    uint64_t time = 0;                     ///< when it came to be; 100-nanosecond units since 1601, UTC; 0: unknown
    std::string by;                        ///< program that saved it, UTF-8; empty: an edit by other means
    std::vector<VUnicodeString> conflicts; ///< values that another program had changed, too; this version's stand
    bool isDeleted = false;                ///< the key was deleted, and has no text
};

/// Keys are paths below the store's root, levels parted by "\"; empty for the root. An operation that fails answers
/// false with the reason in the report. Calls follow the thread rule of the store's keys.
class OSTRAND_API IStoreExtras {
public:
    virtual ~IStoreExtras() = default;

    /// From here on no write of this process reaches the medium: flushes and closings of all keys of the store wait for
    /// the end of the transaction. Transactions don't nest, and keys can't be deleted in one (kErrorNotSupported).
    virtual bool BeginTransaction(IReportMessageParams& report);
    /// All that was written since reaches the medium, or nothing does, also if the machine fails meanwhile. On failure
    /// the transaction stays open, for another try or to be rolled back.
    virtual bool CommitTransaction(IReportMessageParams& report);
    /// Takes all writes since the beginning back. Not those of a commit that failed with the word that its changes are
    /// recorded: a store finishes these later.
    virtual void RollBackTransaction() {}

    /// The keys that other programs changed, made or deleted since the last call; handles that are open show the new
    /// values from now on. Never waits. The first call begins the watch.
    virtual bool Poll(std::vector<VUnicodeString>& keys, IReportMessageParams& report);
    /// A descriptor that becomes readable when `Poll` may have news, for the host's event loop; -1 without one. Owned
    /// by the store.
    virtual int PollDescriptor() { return -1; }

    /// The value name null asks for the key's file alone.
    virtual bool FindPlace(const char16_t* key, const char16_t* valueName, ValuePlace& place);

    /// The versions that are kept, oldest first; the last one is the key as it is now.
    virtual bool ListVersions(const char16_t* key, std::vector<StoreVersion>& versions, IReportMessageParams& report);
    /// A version in the store's own text form.
    virtual bool ReadVersion(const char16_t* key, unsigned number, std::string& text, IReportMessageParams& report);
    /// Saves an old version as the newest one. A deleted key comes back.
    virtual bool RestoreVersion(const char16_t* key, unsigned number, IReportMessageParams& report);

    /// What `RepairKey` would write; equal to the stored text where nothing is damaged.
    virtual bool ProposeRepair(const char16_t* key, std::string& text, IReportMessageParams& report);
    /// Sets a damaged file aside and writes what could be saved of it, with what the last good version had besides.
    /// True also where nothing is damaged; `aside` is empty then, else where the damaged file is kept.
    virtual bool RepairKey(const char16_t* key, std::string& aside, IReportMessageParams& report);
};

} // namespace ostrand
